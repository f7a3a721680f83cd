/// Announcements of the audio service: the heart of the mixer.
///
/// A change of the active category or route pushes the pair's remembered level back into the system; a change by
/// the user is remembered, presents the mixer and brings the pair's slider into focus.
#include "controller/PNOController.h"
#include "facts/AudioNames.h"
#include "hooks/HookedMethod.h"
#include "hooks/HostTables.h"
#include "hooks/Panotra.h"
#include "hooks/PreviousImplementations.h"
#include "model/ProcessValues.h"
#include "platform/AVSystemController.h"
#include "platform/Dispatch.h"
#include "platform/SpringBoard.h"
#include "platform/VolumeOverlays.h"

#include <string_view>
#include <utility>

namespace panotra {
namespace {

constexpr double recordSeconds = 0.15;
constexpr std::int64_t ringerRestoreNanoseconds = 100'000'000;
/// One step of the volume buttons.
constexpr double oneSixteenth = 0.0625;

/// Two other overlays may share the process; they are hidden while the mixer stands in for the indicator.
void driveOtherOverlays()
{
    const bool isHidden = processValues.replaceHUD;
    if (const MeliorWindow window = MeliorWindow::sharedInstance())
        window.firstSubview().setHidden(isHidden);
    if (const ABVolumeHUDManager manager = ABVolumeHUDManager::sharedManager()) {
        if (isHidden)
            manager.visibilityManager().hideImmediatelyIfPossible();
        manager.targetView().setHidden(isHidden);
    }
}

/// After a notification sound older systems, which lack the class, are given the ringer's own level back.
void restoreRingerAfterSound(const AVSystemController& audio)
{
    if (processValues.isAppCallNotification || objc_getClass("UIViewPropertyAnimator") != nullptr)
        return;
    dispatch_after(ringerRestoreNanoseconds, [audio] {
        const NSString ringtone = NSString::constant(category::ringtone);
        audio.setVolumeTo(PNOController::sharedInstance().getVolumeLevel(ringtone, nullptr), ringtone);
    });
}

/// `_mode` is asked for afresh: the host may change it in between.
std::int64_t currentMode()
{
    return VolumeControl::current().valueForKey(volumeMode).integerValue();
}

/// At full volume the sliders always come to rest. In mode 0 every other level but zero is focused, in any other
/// mode only levels above one sixteenth. The asymmetry is intended.
bool deservesFocus(double level)
{
    if (level == 1.0)
        return false;
    if (currentMode() == 0 && level != 0.0)
        return true;
    return currentMode() != 0 && level > oneSixteenth;
}

void recordAndFocus(float level, const NSString& route)
{
    UIView::animateWithDuration(recordSeconds, 0, UIViewAnimationOptionAllowUserInteraction,
        [level, route] {
            PNOController::sharedInstance().setVolumeLevel(level, processValues.globalCategory.get(), route);
        },
        {});
    if (deservesFocus(level))
        PNOController::sharedInstance().animateForCategory(processValues.globalCategory.get(), route);
    else
        PNOController::sharedInstance().resetTransforms();
}

/// What stands under the first of a key's names that is there.
NSObject valueUnder(const std::array<const char*, 2>& names, const NSDictionary& announcement)
{
    NSObject value = announcement.objectForKey(NSString::constant(names[0]));
    return value ? value : announcement.objectForKey(NSString::constant(names[1]));
}

void handleAnnouncement(const AVSystemController& audio, const NSDictionary& announcement)
{
    processValues.globalCategory.set(
        NSString::checked(announcement.objectForKey(NSString::constant(announcementKey::category))));
    const NSString category = processValues.globalCategory.get();
    const NSString reasonString = NSString::checked(valueUnder(reasonKeys, announcement));
    const NSString route = PNOController::sharedInstance().pickedRoute();
    const float level = valueUnder(levelKeys, announcement).floatValue();
    const float stored = PNOController::sharedInstance().getVolumeLevel(category, route);
    const bool isNewLevel = level != stored;

    const std::string_view reason = reasonString.view();
    if (reason == changeReason::category || reason == changeReason::route) {
        if (isNewLevel)
            audio.setVolumeTo(stored, category);
        return;
    }
    if (reason != changeReason::explicitChange)
        return;
    if (processValues.replaceHUD)
        PNOController::sharedInstance().createUI();
    if (!isNewLevel)
        return;
    processValues.manualSet = false;
    if (!processValues.isPanning) // else the drag owns the level
        recordAndFocus(level, route);
}

} // namespace

/// The announcement of a notification sound's own level is swallowed: neither the system's indicator nor any
/// other listener sees the ringer at that level.
void hooks::postEffectiveVolumeNotification(id self, SEL selector, id notification)
{
    driveOtherOverlays();
    const auto audio = retained<AVSystemController>(self);
    if (processValues.isHackedRingtoneVolume) {
        processValues.isHackedRingtoneVolume = false;
        restoreRingerAfterSound(audio);
        return;
    }
    handleAnnouncement(audio, NSDictionary::checked(retained<NSObject>(notification)));
    previous.postEffectiveVolumeNotification(self, selector, notification);
}

/// The first call in the life of the process that asks for a name seeds the category, and is spent whatever was
/// answered; later ones never touch it. Without an answer nothing was written, and whatever stands in the place of the
/// name is none.
bool hooks::getActiveCategoryVolume(id self, SEL selector, float* volume, id* name, id fallbackCategory)
{
    const bool isAnswered = previous.getActiveCategoryVolume(self, selector, volume, name, fallbackCategory);
    if (name != nullptr) {
        onMainThread([isAnswered, answer = retained<NSObject>(isAnswered ? *name : nullptr)] {
            if (!std::exchange(processValues.globalCategoryWasSeeded, true) && isAnswered)
                processValues.globalCategory.set(NSString::checked(answer));
        });
    }
    return isAnswered;
}

/// Sees every such call in the process, the mixer's own included.
bool hooks::setVolumeTo(id self, SEL selector, float level, id category)
{
    onMainThread([] { processValues.manualSet = true; });
    return previous.setVolumeTo(self, selector, level, category);
}

} // namespace panotra
