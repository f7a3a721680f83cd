/// Labels and fonts.
#include "platform/UILabel.h"

#include "platform/simulated/Host.h"
#include "simulator/device/View.h"

namespace panotra {

UIFont UIFont::systemFontOfSize(CGFloat points, CGFloat weight) noexcept
{
    return simulated::create<UIFont, sim::Font>("UIFont", points, sim::nearestWeightName(weight));
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
