/// The constructor with its tables of hooks and observers, and the hook of the host's launch.
#include "hooks/Panotra.h"

#include "controller/PNOController.h"
#include "facts/PublicNames.h"
#include "hooks/PreviousImplementations.h"
#include "model/ProcessValues.h"
#include "platform/MethodReplacement.h"
#include "platform/Notify.h"

#include <array>
#include <string_view>

namespace panotra {

constinit PreviousImplementations previous;

namespace {

struct Hook {
    const char* className;
    const char* method;
    IMP replacement;
    IMP* previous;
};

template <typename Function> IMP implementation(Function* function)
{
    return reinterpret_cast<IMP>(function);
}

/// A class is looked up once for all its hooks: rows of one class follow each other.
template <std::size_t count> void install(const std::array<Hook, count>& hooks)
{
    const char* className = nullptr;
    Class hostClass = nullptr;
    for (const Hook& hook : hooks) {
        if (className == nullptr || std::string_view(hook.className) != className) {
            className = hook.className;
            hostClass = objc_getClass(className);
        }
        replaceMethod(hostClass, hook.method, hook.replacement, hook.previous);
    }
}

/// In every process.
void installShakeHook()
{
    install(std::array {
        Hook { "UIResponder", "motionBegan:withEvent:", implementation(hooks::motionBegan),
            &previous.motionBegan.implementation },
    });
}

/// In the home screen, in this order.
void installSpringBoardHooks()
{
    constexpr const char* audio = "AVSystemController";
    install(std::array {
        Hook { "SpringBoard", "applicationDidFinishLaunching:", implementation(hooks::applicationDidFinishLaunching),
            &previous.applicationDidFinishLaunching.implementation },
        Hook { audio, "getActiveCategoryVolume:andName:fallbackCategory:",
            implementation(hooks::getActiveCategoryVolume), &previous.getActiveCategoryVolume.implementation },
        Hook { audio, "postEffectiveVolumeNotification:", implementation(hooks::postEffectiveVolumeNotification),
            &previous.postEffectiveVolumeNotification.implementation },
        Hook { audio, "setVolumeTo:forCategory:", implementation(hooks::setVolumeTo),
            &previous.setVolumeTo.implementation },
        Hook { "SBSoundController", "playSound:environments:completion:", implementation(hooks::playSound),
            &previous.playSound.implementation },
        Hook { "SBMediaController", "setRingerMuted:", implementation(hooks::setRingerMuted),
            &previous.setRingerMuted.implementation },
        Hook { "SBHUDController", "presentHUDView:autoDismissWithDelay:", implementation(hooks::presentHUDView),
            &previous.presentHUDView.implementation },
        Hook { "SBHUDController", "reorientHUDIfNeeded:", implementation(hooks::reorientHUDIfNeeded),
            &previous.reorientHUDIfNeeded.implementation },
        Hook { "VolumeControl", "_presentVolumeHUDWithMode:volume:", implementation(hooks::presentVolumeHUD),
            &previous.presentVolumeHUD.implementation },
        Hook { "UIStatusBar", "setFrame:", implementation(hooks::setStatusBarFrame),
            &previous.setStatusBarFrame.implementation },
        Hook { "_UIStatusBar", "setFrame:", implementation(hooks::setModernStatusBarFrame),
            &previous.setModernStatusBarFrame.implementation },
    });
}

} // namespace

void constructor() noexcept
{
    installShakeHook();
    notify_register_check(notification::shakeState, &processValues.shakeToken);
    if (!isSpringBoardProcess())
        return;
    installSpringBoardHooks();
    addDarwinObserver(notification::ownSettingsChanged, settingsChanged);
    addDarwinObserver(notification::siblingSettingsChanged, brv2SettingsChanged);
    notify_register_check(notification::screenChanged, &processValues.screenToken);
    addDarwinObserver(notification::screenChanged, screenChanged);
    addDarwinObserver(notification::ownShaken, uikitShaken);
}

/// Settings are read for the first time here, after the host's own launch; the tear-down of nothing creates the
/// controller.
void hooks::applicationDidFinishLaunching(id self, SEL selector, id application) noexcept
{
    previous.applicationDidFinishLaunching(self, selector, application);
    PNOController::sharedInstance().releaseObjects();
    settingsChanged();
    brv2SettingsChanged();
}

} // namespace panotra
