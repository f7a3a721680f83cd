/// Tells the animation whose block is running what is being set.
#include "simulator/device/AnimatedSetting.h"

#include "simulator/device/Presentation.h"

namespace panotra::sim {

AnimatedSetting::AnimatedSetting(View& view, AnimatedProperty property)
    : m_view(view)
    , m_property(property)
    , m_animation(Device::current() == nullptr ? nullptr : Device::current()->runLoop->animationOfBlock())
{
    if (m_animation != nullptr) {
        const RunLoop& runLoop = *Device::current()->runLoop;
        m_before = presentationValue(runLoop, view, property, runLoop.now());
    }
}

AnimatedSetting::~AnimatedSetting()
{
    if (m_animation != nullptr)
        m_animation->record(m_view, m_property, m_before);
}

} // namespace panotra::sim
