/// Labels and fonts.
#include "platform/UILabel.h"

#include "platform/simulated/Host.h"
#include "simulator/device/View.h"

#include <algorithm>
#include <cmath>

namespace panotra {

namespace {

struct FontWeight {
    CGFloat weight;
    const char* name;
};

/// The platform's scale of weights.
constexpr FontWeight fontWeights[] = {
    { CGFloat(-0.8), "ultraLight" },
    { CGFloat(-0.6), "thin" },
    { UIFontWeightLight, "light" },
    { CGFloat(0), "regular" },
    { CGFloat(0.23), "medium" },
    { CGFloat(0.3), "semibold" },
    { CGFloat(0.4), "bold" },
    { CGFloat(0.56), "heavy" },
    { CGFloat(0.62), "black" },
};

const char* nearestWeightName(CGFloat weight)
{
    const auto distance = [weight](const FontWeight& each) {
        return std::abs(each.weight - weight);
    };
    return std::ranges::min_element(fontWeights, {}, distance)->name;
}

} // namespace

UIFont UIFont::systemFontOfSize(CGFloat points, CGFloat weight) noexcept
{
    return simulated::create<UIFont, sim::Font>("UIFont", points, nearestWeightName(weight));
}

UILabel UILabel::init() noexcept
{
    return simulated::create<UILabel, sim::Label>("UILabel");
}

void UILabel::setText(const NSString& text) const noexcept
{
    const std::string* const value = sim::textOf(simulated::objectOf(text));
    if (auto* const label = simulated::objectOf<sim::Label>(*this))
        label->text = value == nullptr ? std::nullopt : std::optional(*value);
}

void UILabel::setTextAlignment(std::int64_t alignment) const noexcept
{
    if (auto* const label = simulated::objectOf<sim::Label>(*this))
        label->alignment = alignment;
}

void UILabel::setFont(const UIFont& font) const noexcept
{
    auto* const label = simulated::objectOf<sim::Label>(*this);
    const auto* const value = simulated::objectOf<sim::Font>(font);
    if (label == nullptr || value == nullptr)
        return;
    label->fontSize = value->size;
    label->fontWeight = value->weight;
}

void UILabel::setTextColor(const UIColor& color) const noexcept
{
    const auto* const value = simulated::objectOf<sim::Color>(color);
    if (auto* const label = simulated::objectOf<sim::Label>(*this))
        label->textColor = value == nullptr ? std::nullopt : std::optional(value->rgba);
}

} // namespace panotra
