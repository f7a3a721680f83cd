/// The constructor with its tables of hooks and observers, and the hook of the host's launch.
#include "hooks/Panotra.h"

#include "controller/PNOController.h"
#include "facts/PublicNames.h"
#include "hooks/HostTables.h"
#include "hooks/PreviousImplementations.h"
#include "model/ProcessValues.h"
#include "platform/MethodReplacement.h"
#include "platform/Notify.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace panotra {

constinit PreviousImplementations previous;

namespace {

/// A function of ours, and where what it replaces is kept.
struct HookFunction {
    Hook hook;
    IMP implementation;
    IMP* previous;
};

template <typename Result, typename... Arguments>
HookFunction function(Hook hook, Result (*implementation)(id, SEL, Arguments...) noexcept,
    PreviousImplementation<Result(Arguments...)>& replaced)
{
    return { hook, reinterpret_cast<IMP>(implementation), &replaced.implementation };
}

HookFunction functionOf(Hook hook)
{
    const HookFunction functions[] = {
        function(Hook::MotionBegan, hooks::motionBegan, previous.motionBegan),
        function(Hook::ApplicationDidFinishLaunching, hooks::applicationDidFinishLaunching,
            previous.applicationDidFinishLaunching),
        function(Hook::GetActiveCategoryVolume, hooks::getActiveCategoryVolume, previous.getActiveCategoryVolume),
        function(Hook::PostEffectiveVolumeNotification, hooks::postEffectiveVolumeNotification,
            previous.postEffectiveVolumeNotification),
        function(Hook::SetVolumeTo, hooks::setVolumeTo, previous.setVolumeTo),
        function(Hook::PlaySound, hooks::playSound, previous.playSound),
        function(Hook::SetRingerMuted, hooks::setRingerMuted, previous.setRingerMuted),
        function(Hook::ActivateRingerHUDFromMuteSwitch, hooks::activateRingerHUDFromMuteSwitch,
            previous.activateRingerHUDFromMuteSwitch),
        function(Hook::ActivateRingerHUD, hooks::activateRingerHUD, previous.activateRingerHUD),
        function(Hook::PresentHUDView, hooks::presentHUDView, previous.presentHUDView),
        function(Hook::PresentHUD, hooks::presentHUD, previous.presentHUD),
        function(Hook::ReorientHUDIfNeeded, hooks::reorientHUDIfNeeded, previous.reorientHUDIfNeeded),
        function(Hook::NoteInterfaceOrientationChanged, hooks::noteInterfaceOrientationChanged,
            previous.noteInterfaceOrientationChanged),
        function(Hook::PresentVolumeHUDWithMode, hooks::presentVolumeHUDWithMode, previous.presentVolumeHUDWithMode),
        function(Hook::PresentVolumeHUD, hooks::presentVolumeHUD, previous.presentVolumeHUD),
        function(Hook::SetStatusBarFrame, hooks::setStatusBarFrame, previous.setStatusBarFrame),
        function(Hook::SetModernStatusBarFrame, hooks::setModernStatusBarFrame, previous.setModernStatusBarFrame),
    };
    return functions[static_cast<std::size_t>(hook)];
}

/// A class is looked up once for all its hooks that follow each other.
void install(std::span<const HookRow> rows)
{
    const char* className = nullptr;
    Class hostClass = nullptr;
    bool isFound = false; // a row since the last `Always` found its method
    bool isAboveFound = false; // the row above did
    for (const HookRow& row : rows) {
        if (row.turn == Always)
            isFound = isAboveFound = false;
        if ((row.turn == OrElse && isFound) || (row.turn == AndAlso && !isAboveFound)) {
            isAboveFound = false;
            continue;
        }
        if (className == nullptr || std::string_view(row.className) != className) {
            className = row.className;
            hostClass = objc_getClass(className);
        }
        const HookFunction function = functionOf(row.hook);
        replaceMethod(hostClass, row.method, function.implementation, function.previous);
        isAboveFound = *function.previous != nullptr;
        isFound = isFound || isAboveFound;
    }
}

constexpr std::span<const HookRow> everywhere { hookRows.data(), 1 };
constexpr std::span<const HookRow> inSpringBoard { hookRows.data() + 1, hookRows.size() - 1 };

} // namespace

void constructor() noexcept
{
    install(everywhere);
    notify_register_check(notification::shakeState, &processValues.shakeToken);
    if (!isSpringBoardProcess())
        return;
    install(inSpringBoard);
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
