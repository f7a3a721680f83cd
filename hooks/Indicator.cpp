/// The host's own indicator, its re-orientation and the ringer: hooks that keep the system's bar out of the way,
/// re-lay the mixer out, and give notification sounds and the ringer switch their own levels.
#include "controller/PNOController.h"
#include "hooks/HookedMethod.h"
#include "hooks/Panotra.h"
#include "hooks/PreviousImplementations.h"
#include "model/ProcessValues.h"
#include "platform/AVSystemController.h"
#include "platform/UIEvent.h"

namespace panotra {
namespace {

/// Sounds of this type are left at the ringer's level.
constexpr std::int64_t ringerLevelSoundType = 5;
constexpr SlotNumber ringerSlot = 7;

/// The host's indicator is shown only if no program has just set a volume, the mixer does not replace it and is
/// not on screen, and no notification sound's level is pending.
bool mayShowIndicator()
{
    return !processValues.manualSet && !processValues.replaceHUD && !PNOController::sharedInstance().window()
        && !processValues.isHackedRingtoneVolume;
}

/// The host plays such sounds at the ringer's level, which is moved to the notifications level just before. The
/// flag comes first: the announcement of the move must find it.
void borrowRingerLevel()
{
    processValues.isHackedRingtoneVolume = true;
    const float level
        = PNOController::sharedInstance().getVolumeLevel(NSString::constant(category::notifications), nullptr);
    AVSystemController::sharedAVSystemController().setVolumeTo(level, NSString::constant(category::ringtone));
}

} // namespace

void hooks::presentHUDView(id self, SEL selector, id view, double autoDismissDelay)
{
    if (mayShowIndicator())
        previous.presentHUDView(self, selector, view, autoDismissDelay);
}

void hooks::presentHUD(id self, SEL selector, id model, bool animated)
{
    if (mayShowIndicator())
        previous.presentHUD(self, selector, model, animated);
}

void hooks::presentVolumeHUDWithMode(id self, SEL selector, std::int32_t mode, float volume)
{
    if (mayShowIndicator())
        previous.presentVolumeHUDWithMode(self, selector, mode, volume);
}

void hooks::presentVolumeHUD(id self, SEL selector, float volume)
{
    if (mayShowIndicator())
        previous.presentVolumeHUD(self, selector, volume);
}

/// The ringer's indicator has ways of its own on systems whose ringer has.
void hooks::activateRingerHUDFromMuteSwitch(id self, SEL selector, std::int32_t source)
{
    if (mayShowIndicator())
        previous.activateRingerHUDFromMuteSwitch(self, selector, source);
}

void hooks::activateRingerHUD(id self, SEL selector, std::int32_t kind, float volume, NSUInteger source)
{
    if (mayShowIndicator())
        previous.activateRingerHUD(self, selector, kind, volume, source);
}

void hooks::reorientHUDIfNeeded(id self, SEL selector, bool flag)
{
    previous.reorientHUDIfNeeded(self, selector, flag);
    if (flag)
        PNOController::sharedInstance().layoutSubviews();
}

/// On systems whose indicator is not re-oriented any more: every change of the orientation, with its duration.
void hooks::noteInterfaceOrientationChanged(
    id self, SEL selector, NSInteger orientation, double duration, id logMessage)
{
    previous.noteInterfaceOrientationChanged(self, selector, orientation, duration, logMessage);
    processValues.rotationDuration = duration;
    PNOController::sharedInstance().layoutSubviews();
}

void hooks::setStatusBarFrame(id self, SEL selector, CGRect frame)
{
    previous.setStatusBarFrame(self, selector, frame);
    PNOController::sharedInstance().layoutSubviews();
}

void hooks::setModernStatusBarFrame(id self, SEL selector, CGRect frame)
{
    previous.setModernStatusBarFrame(self, selector, frame);
    PNOController::sharedInstance().layoutSubviews();
}

bool hooks::playSound(id self, SEL selector, id sound, NSInteger environments, id completion)
{
    onMainThread([played = retained<SBSound>(sound)] {
        if (played.respondsToSelector("soundType") && played.soundType() != ringerLevelSoundType)
            borrowRingerLevel();
    });
    return previous.playSound(self, selector, sound, environments, completion);
}

void hooks::setRingerMuted(id self, SEL selector, bool muted)
{
    processValues.manualSet = false;
    previous.setRingerMuted(self, selector, muted);
    const PNOController& controller = PNOController::sharedInstance();
    if (processValues.replaceHUD)
        controller.createUI();
    if (!controller.window())
        return;
    const PNOVolumeView ringer = controller.volumeView(ringerSlot);
    if (muted)
        ringer.setLevelText(NSString::constant("Silent"));
    else
        ringer.showPercentage();
}

} // namespace panotra
