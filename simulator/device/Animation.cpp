/// What a block animation moves.
#include "simulator/device/Animation.h"

#include "simulator/device/View.h"

#include <algorithm>
#include <utility>

namespace panotra::sim {

PropertyValue propertyValue(const View& view, AnimatedProperty property)
{
    switch (property) {
    case AnimatedProperty::Center:
        return { view.center.x, view.center.y };
    case AnimatedProperty::Bounds:
        return { view.bounds.width, view.bounds.height };
    case AnimatedProperty::Transform: {
        const Transform& transform = view.transform;
        return { transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty };
    }
    case AnimatedProperty::Alpha:
        return { view.alpha };
    case AnimatedProperty::BlurRadius: {
        const auto* const backdrop = dynamic_cast<const BackdropView*>(&view);
        return { backdrop == nullptr ? 0 : backdrop->blurRadius.value_or(0) };
    }
    case AnimatedProperty::Background: {
        const auto color = view.background.value_or(std::array<double, 4> {});
        return { color[0], color[1], color[2], color[3] };
    }
    }
    return {};
}

Animation::~Animation()
{
    for (const Change& change : m_changes)
        release(change.view);
}

const Animation::Change* Animation::find(const View& view, AnimatedProperty property) const
{
    const auto change = std::ranges::find_if(
        m_changes, [&](const Change& each) { return each.view == &view && each.property == property; });
    return change == m_changes.end() ? nullptr : &*change;
}

bool Animation::animates(const View& view) const
{
    return std::ranges::find(m_changes, &view, &Change::view) != m_changes.end();
}

void Animation::record(View& view, AnimatedProperty property, const PropertyValue& before)
{
    const PropertyValue after = propertyValue(view, property);
    if (const Change* const known = find(view, property)) {
        m_changes[static_cast<std::size_t>(known - m_changes.data())].after = after;
        return;
    }
    retain(&view);
    m_changes.push_back({ &view, property, before, after });
}

void Animation::remove(View& view)
{
    const auto gone = std::erase_if(m_changes, [&view](const Change& change) { return change.view == &view; });
    for (auto count = gone; count > 0; --count)
        release(&view);
}

} // namespace panotra::sim
