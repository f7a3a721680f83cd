/// The setting of an animatable property of a view, for as long as it takes.
#pragma once

#include "simulator/device/Animation.h"

namespace panotra::sim {

/// Stands around the assignment in a setter: what the view showed before and what was set go to the animation whose
/// block is running. Outside of blocks it does nothing.
class AnimatedSetting {
public:
    AnimatedSetting(View& view, AnimatedProperty property);
    ~AnimatedSetting();
    AnimatedSetting(const AnimatedSetting&) = delete;
    AnimatedSetting& operator=(const AnimatedSetting&) = delete;

private:
    View& m_view;
    const AnimatedProperty m_property;
    Animation* const m_animation;
    PropertyValue m_before {};
};

} // namespace panotra::sim
