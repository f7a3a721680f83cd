/// The settings: copied whole from the preference domains whenever a change is announced.
#include "controller/PNOController.h"
#include "controller/PNOHelperController.h"
#include "facts/AudioNames.h"
#include "facts/PublicNames.h"
#include "hooks/Panotra.h"
#include "model/ProcessValues.h"
#include "platform/AVSystemController.h"
#include "platform/NSUserDefaults.h"
#include "platform/Notify.h"

#include <cstdint>
#include <string_view>

namespace panotra {
namespace {

// What is stored under a key, or what an absent key gives where `stored` is null, by the platform's conversions.

void take(std::uint16_t& value, const NSObject& stored, double absent)
{
    value = stored ? stored.unsignedShortValue() : static_cast<std::uint16_t>(absent);
}

void take(bool& value, const NSObject& stored, double absent)
{
    value = stored ? stored.boolValue() : absent != 0;
}

void take(float& value, const NSObject& stored, double absent)
{
    value = stored ? stored.floatValue() : static_cast<float>(absent);
}

void take(double& value, const NSObject& stored, double absent)
{
    value = stored ? stored.doubleValue() : absent;
}

void load(const NSString& suite, std::string_view domain)
{
    const NSUserDefaults defaults = NSUserDefaults::initWithSuiteName(suite);
    defaults.synchronize();
    forEachHeldSetting([&](const MixerSetting& setting, auto held) {
        if (setting.domain == domain) {
            // Asked once whether it is there and once what it is: whoever watches the preferences sees both questions.
            const NSString key = NSString::constant(setting.key);
            const NSObject stored = defaults.objectForKey(key) ? defaults.objectForKey(key) : nullptr;
            take(processValues.*held, stored, setting.absentValue);
        }
    });
}

/// Older systems, which lack the class, are given the ringer's level at every reload.
void reapplyRingerVolume()
{
    if (objc_getClass("UIViewPropertyAnimator") != nullptr)
        return;
    const char* const source = processValues.isAppCallNotification ? category::notifications : category::ringtone;
    const float level = PNOController::sharedInstance().getVolumeLevel(NSString::constant(source), nullptr);
    AVSystemController::sharedAVSystemController().setVolumeTo(level, NSString::constant(category::ringtone));
}

} // namespace

/// Neither presents nor rebuilds the mixer: style, skin and scale show at the next build. Only the home screen
/// calls it; in any other process it would read the state that the settings page publishes for the shake.
void settingsChanged() noexcept
{
    if (!isSpringBoardProcess()) {
        processValues.handleShake = notify_get_state(processValues.shakeToken) != 0;
        return;
    }
    load(PNOHelperController::sharedInstance().packageName(), ownDomain);
    reapplyRingerVolume();
}

void brv2SettingsChanged() noexcept
{
    load(NSString::constant(siblingDomain), siblingDomain);
}

} // namespace panotra
