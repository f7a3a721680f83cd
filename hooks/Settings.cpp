/// The settings: copied whole from the preference domains whenever a change is announced.
#include "controller/PNOController.h"
#include "controller/PNOHelperController.h"
#include "hooks/Panotra.h"
#include "model/ProcessValues.h"
#include "platform/AVSystemController.h"
#include "platform/NSUserDefaults.h"
#include "platform/Notify.h"

#include <array>

namespace panotra {
namespace {

/// A setting: its key, and how its value, null if the key is absent, becomes the process-wide one.
struct Setting {
    const char* key;
    void (*load)(const NSObject& value);
};

template <auto Field> void loadUnsignedShort(const NSObject& value)
{
    processValues.*Field = value ? value.unsignedShortValue() : std::uint16_t(0);
}

template <auto Field> void loadBoolean(const NSObject& value)
{
    processValues.*Field = value && value.boolValue();
}

constexpr float absentScale = 0.875f;
constexpr double absentAutoDismissSeconds = 2.0;

void loadScale(const NSObject& value)
{
    processValues.scale = value ? value.floatValue() : absentScale;
}

void loadAutoDismiss(const NSObject& value)
{
    processValues.autoDismiss = value ? value.doubleValue() : absentAutoDismissSeconds;
}

/// In the order in which they are read.
constexpr std::array ownSettings {
    Setting { "activeStyle", loadUnsignedShort<&ProcessValues::activeStyle> },
    Setting { "mixerSkin", loadUnsignedShort<&ProcessValues::mixerSkin> },
    Setting { "replaceHUD", loadBoolean<&ProcessValues::replaceHUD> },
    Setting { "scale", loadScale },
    Setting { "dismissOnTouch", loadBoolean<&ProcessValues::dismissOnTouch> },
    Setting { "isAppCallNotification", loadBoolean<&ProcessValues::isAppCallNotification> },
    Setting { "handleShake", loadBoolean<&ProcessValues::handleShake> },
};

constexpr std::array siblingSettings {
    Setting { "dismissDelay", loadAutoDismiss },
};

template <std::size_t count> void load(const NSString& suite, const std::array<Setting, count>& settings)
{
    const NSUserDefaults defaults = NSUserDefaults::initWithSuiteName(suite);
    defaults.synchronize();
    for (const Setting& setting : settings)
        setting.load(defaults.objectForKey(NSString::stringWithUTF8String(setting.key)));
}

/// Older systems, which lack the class, are given the ringer's level at every reload.
void reapplyRingerVolume()
{
    if (objc_getClass("UIViewPropertyAnimator") != nullptr)
        return;
    const char* const source = processValues.isAppCallNotification ? category::notifications : category::ringtone;
    const float level = PNOController::sharedInstance().getVolumeLevel(NSString::stringWithUTF8String(source), nullptr);
    AVSystemController::sharedAVSystemController().setVolumeTo(
        level, NSString::stringWithUTF8String(category::ringtone));
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
    load(PNOHelperController::sharedInstance().packageName(), ownSettings);
    reapplyRingerVolume();
}

void brv2SettingsChanged() noexcept
{
    load(NSString::stringWithUTF8String("net.qorvath.brevane2"), siblingSettings);
}

} // namespace panotra
