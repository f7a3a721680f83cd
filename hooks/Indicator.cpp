/// The host's own indicator, its re-orientation and the ringer: hooks that keep the system's bar out of the way,
/// re-lay the mixer out, and give notification sounds and the ringer switch their own levels.
#include "controller/PNOController.h"
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
    const float level = PNOController::sharedInstance().getVolumeLevel(
        NSString::stringWithUTF8String(category::notifications), nullptr);
    AVSystemController::sharedAVSystemController().setVolumeTo(
        level, NSString::stringWithUTF8String(category::ringtone));
}

} // namespace

void hooks::presentHUDView(id self, SEL selector, id view, double autoDismissDelay) noexcept
{
    if (mayShowIndicator())
        previous.presentHUDView(self, selector, view, autoDismissDelay);
}

void hooks::presentVolumeHUD(id self, SEL selector, std::int64_t mode, float volume) noexcept
{
    if (mayShowIndicator())
        previous.presentVolumeHUD(self, selector, mode, volume);
}

void hooks::reorientHUDIfNeeded(id self, SEL selector, bool flag) noexcept
{
    previous.reorientHUDIfNeeded(self, selector, flag);
    if (flag)
        PNOController::sharedInstance().layoutSubviews();
}

void hooks::setStatusBarFrame(id self, SEL selector, CGRect frame) noexcept
{
    previous.setStatusBarFrame(self, selector, frame);
    PNOController::sharedInstance().layoutSubviews();
}

void hooks::setModernStatusBarFrame(id self, SEL selector, CGRect frame) noexcept
{
    previous.setModernStatusBarFrame(self, selector, frame);
    PNOController::sharedInstance().layoutSubviews();
}

bool hooks::playSound(id self, SEL selector, id sound, std::uint64_t environments, id completion) noexcept
{
    const auto played = retained<SBSound>(sound);
    if (played.respondsToSelector("soundType") && played.soundType() != ringerLevelSoundType)
        borrowRingerLevel();
    return previous.playSound(self, selector, sound, environments, completion);
}

void hooks::setRingerMuted(id self, SEL selector, bool muted) noexcept
{
    processValues.manualSet = false;
    previous.setRingerMuted(self, selector, muted);
    const PNOController controller = PNOController::sharedInstance();
    if (processValues.replaceHUD)
        controller.createUI();
    if (!controller.window())
        return;
    const PNOVolumeView ringer = controller.volumeView(ringerSlot);
    if (muted)
        ringer.setLevelText(NSString::stringWithUTF8String("Silent"));
    else
        ringer.showPercentage();
}

} // namespace panotra
