/// The audio service.
#include "platform/AVSystemController.h"

#include "platform/ios/Send.h"
#include "platform/ios/private/AVSystemController.h"

namespace panotra {

using namespace ios;

AVSystemController AVSystemController::sharedAVSystemController() noexcept
{
    return ask<AVSystemController>(classes::AVSystemController, selectors::sharedAVSystemController);
}

bool AVSystemController::setVolumeTo(float level, const NSString& category) const noexcept
{
    return send(get(), selectors::setVolumeTo, level, category.get());
}

bool AVSystemController::getVolume(float* level, const NSString& category) const noexcept
{
    float answer = *level;
    if (!send(get(), selectors::getVolume, &answer, category.get()))
        return false;
    *level = answer;
    return true;
}

NSObject AVSystemController::attributeForKey(const char* key) const noexcept
{
    if (get() == nullptr || key == nullptr)
        return nullptr;
    return ask<NSObject>(get(), selectors::attributeForKey, NSString::constant(key).get());
}

SBAVSystemControllerCache SBAVSystemControllerCache::sharedInstance() noexcept
{
    return ask<SBAVSystemControllerCache>(classes::SBAVSystemControllerCache, selectors::sharedInstance);
}

NSObject SBAVSystemControllerCache::activeAudioRoute() const noexcept
{
    return ask<NSObject>(get(), selectors::activeAudioRoute);
}

} // namespace panotra
