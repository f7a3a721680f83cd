/// The audio service, by messages, so that every hook sees them.
#include "platform/AVSystemController.h"

#include "platform/simulated/Host.h"

namespace panotra {

AVSystemController AVSystemController::sharedAVSystemController() noexcept
{
    return simulated::shared<AVSystemController>("AVSystemController");
}

bool AVSystemController::setVolumeTo(float level, const NSString& category) const noexcept
{
    return simulated::send<bool>(*this, "setVolumeTo:forCategory:", level, simulated::objectOf(category));
}

bool AVSystemController::getVolume(float* level, const NSString& category) const noexcept
{
    float answer = *level;
    if (!simulated::send<bool>(*this, "getVolume:forCategory:", &answer, simulated::objectOf(category)))
        return false;
    *level = answer;
    return true;
}

NSObject AVSystemController::attributeForKey(const char* key) const noexcept
{
    if (simulated::objectOf(*this) == nullptr || key == nullptr)
        return nullptr;
    return simulated::sendForObject<NSObject>(
        *this, "attributeForKey:", static_cast<HostObject*>(sim::autoreleasedString(key)));
}

SBAVSystemControllerCache SBAVSystemControllerCache::sharedInstance() noexcept
{
    return simulated::askClass<SBAVSystemControllerCache>("SBAVSystemControllerCache", "sharedInstance");
}

NSObject SBAVSystemControllerCache::activeAudioRoute() const noexcept
{
    return simulated::sendForObject<NSObject>(*this, "activeAudioRoute");
}

} // namespace panotra
