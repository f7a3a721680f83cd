/// Levels by category and route: the slot setter and getter, and the active route.
#include "controller/PNOController.h"
#include "platform/AVSystemController.h"

namespace panotra {
namespace {

/// What a pair reads that no slot takes.
constexpr float unknownPairLevel = 0.5f;

} // namespace

void PNOController::setVolumeLevel(float level, const NSString& category, const NSString& route) const
{
    InstanceVariables* const self = fields();
    const SlotNumber slot = slotToWrite(category.view(), route.view());
    if (self == nullptr || slot == noSlot)
        return;
    if (const PNOVolumeView slider = self->_volumeView[slot])
        slider.setVolumeLevel(level);
    else
        saveVolume(level, NSString::constant(volumeSlot(slot).preferenceKey));
}

float PNOController::getVolumeLevel(const NSString& category, const NSString& route) const
{
    InstanceVariables* const self = fields();
    if (self == nullptr)
        return 0;
    const SlotNumber slot = slotToRead(category.view(), route.view());
    if (slot == noSlot)
        return unknownPairLevel;
    if (const PNOVolumeView& slider = self->_volumeView[slot])
        return static_cast<float>(slider.volume());
    return getVolume(NSString::constant(volumeSlot(slot).preferenceKey));
}

NSString PNOController::pickedRoute() const
{
    if (fields() == nullptr)
        return nullptr;
    const AVSystemController audio = AVSystemController::sharedAVSystemController();
    NSString route = NSString::checked(audio.attributeForKey(AVController_ActiveAudioRouteAttribute));
    // Later systems answer only attributes that they list; whether this is one is not known of all of them.
    if (!route && audio)
        route = NSString::checked(SBAVSystemControllerCache::sharedInstance().activeAudioRoute());
    return route;
}

} // namespace panotra
