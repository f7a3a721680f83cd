/// Walking the tree, and putting what is found into words.
#include "simulator/window/Inspector.h"

#include "facts/MixerSkins.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Presentation.h"
#include "simulator/device/RunLoop.h"
#include "simulator/render/Materials.h"
#include "simulator/scenario/TextFormat.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace panotra::sim {

namespace {

std::string nameOf(const Device& device, const View& view)
{
    // Asking for a name changes nothing of the view.
    const std::string* const name = device.nameOf(const_cast<View*>(&view));
    return name != nullptr ? *name : view.isa->name;
}

void addViews(const Device& device, const View& view, std::size_t depth, std::vector<InspectedView>& views)
{
    views.push_back({ &view, depth, nameOf(device, view) });
    for (const View* const subview : view.subviews)
        addViews(device, *subview, depth + 1, views);
}

bool showsAnything(const View& view)
{
    for (const View* each = &view; each != nullptr; each = each->superview) {
        if (each->hidden || !(each->alpha > 0))
            return false;
    }
    return true;
}

/// Hundredths are as fine as anybody wants to read.
std::string rounded(double value)
{
    constexpr double fineness = 100;
    return std::abs(value) < 1e9 ? shortNumber(std::round(value * fineness) / fineness) : shortNumber(value);
}

std::string listed(std::span<const double> values)
{
    std::string text;
    for (const double value : values)
        text += (text.empty() ? "" : "  ") + rounded(value);
    return text;
}

/// What is shown now and, while that is something else, what it will be.
std::string nowAndThen(const std::string& now, const std::string& then)
{
    return now == then ? now : now + "  \u2192  " + then;
}

std::string frameText(const PropertyValue& center, const PropertyValue& bounds)
{
    return rounded(center[0] - bounds[0] / 2) + ", " + rounded(center[1] - bounds[1] / 2) + "   " + rounded(bounds[0])
        + " \u00d7 " + rounded(bounds[1]);
}

std::string materialText(const BackdropView& backdrop)
{
    const auto skin = std::ranges::find(mixerSkins, backdrop.style, &MixerSkin::backdropStyle);
    std::string text = "style " + std::to_string(backdrop.style);
    if (skin != mixerSkins.end())
        text += std::string(", as of the skin ") + skin->name;
    return text;
}

} // namespace

std::vector<InspectedView> viewsOf(const Device& device)
{
    std::vector<InspectedView> views;
    const auto* const window = dynamic_cast<const Window*>(device.home->window());
    if (window != nullptr && window->shown)
        addViews(device, *window, 0, views);
    return views;
}

const View* viewAt(const Device& device, Point onScreen)
{
    const View* found = nullptr;
    for (const InspectedView& each : viewsOf(device)) {
        const auto inside = each.view->fromScreen(onScreen);
        const bool isHit = inside && inside->x >= 0 && inside->y >= 0 && inside->x < each.view->bounds.width
            && inside->y < each.view->bounds.height;
        if (isHit && showsAnything(*each.view))
            found = each.view; // those that come later are drawn over it
    }
    return found;
}

const View* viewNamed(const Device& device, const std::string& name)
{
    for (const InspectedView& each : viewsOf(device)) {
        if (each.name == name)
            return each.view;
    }
    return nullptr;
}

std::vector<std::pair<std::string, std::string>> describe(const Device& device, const View& view)
{
    const RunLoop& runLoop = *device.runLoop;
    const auto now = [&](AnimatedProperty property) {
        return presentationValue(runLoop, view, property, runLoop.now());
    };
    std::vector<std::pair<std::string, std::string>> lines;
    lines.emplace_back("Class", view.isa->name);
    lines.emplace_back("Frame",
        nowAndThen(frameText(now(AnimatedProperty::Center), now(AnimatedProperty::Bounds)),
            frameText(propertyValue(view, AnimatedProperty::Center), propertyValue(view, AnimatedProperty::Bounds))));
    lines.emplace_back("Alpha",
        nowAndThen(rounded(now(AnimatedProperty::Alpha)[0]), rounded(view.alpha)) + (view.hidden ? ", hidden" : ""));
    const PropertyValue matrix = now(AnimatedProperty::Transform);
    const PropertyValue target = propertyValue(view, AnimatedProperty::Transform);
    lines.emplace_back("Transform", nowAndThen(listed(matrix), listed(target)));
    if (const auto* const backdrop = dynamic_cast<const BackdropView*>(&view)) {
        lines.emplace_back("Material", materialText(*backdrop));
        const double radius = backdrop->blurRadius.value_or(render::materialOfStyle(backdrop->style).blurRadius);
        const double shown = backdrop->blurRadius ? now(AnimatedProperty::BlurRadius)[0] : radius;
        lines.emplace_back("Blur", nowAndThen(rounded(shown), rounded(radius)));
    }
    if (const auto* const label = dynamic_cast<const Label*>(&view); label != nullptr && label->text)
        lines.emplace_back("Text", *label->text);
    return lines;
}

} // namespace panotra::sim
