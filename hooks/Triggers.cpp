/// Showing and dismissing the mixer on demand: the shake and the screen. The gesture framework's listeners are the
/// helper object's.
#include "controller/PNOController.h"
#include "facts/PublicNames.h"
#include "hooks/Panotra.h"
#include "model/ProcessValues.h"
#include "platform/Notify.h"
#include "platform/UIEvent.h"

namespace panotra {
namespace {

/// Asks for the window, where the gesture framework's toggle asks for the root view.
void toggle()
{
    const PNOController& controller = PNOController::sharedInstance();
    if (controller.window()) {
        controller.destroyHUDWindow();
    } else {
        processValues.presentedViaActivator = true;
        controller.createUI();
    }
}

} // namespace

/// The previous implementation is never called, for any event and in any process.
///
/// The name posted here is the sibling tool's, while the home screen observes one that nobody posts; and
/// `handleShake` is only ever set in the home screen. So a shake counts only if the home screen handles it.
void hooks::motionBegan(id, SEL, NSInteger, id event)
{
    if (retained<UIEvent>(event).type() != UIEventTypeMotion || !processValues.handleShake)
        return;
    if (isSpringBoardProcess())
        toggle();
    else
        notify_post(notification::siblingShaken);
}

/// Does not ask `handleShake`.
void uikitShaken() noexcept
{
    settingsChanged();
    toggle();
}

void screenChanged() noexcept
{
    const std::uint64_t state = notify_get_state(processValues.screenToken);
    const PNOController& controller = PNOController::sharedInstance();
    if (state == 0 || state == 9)
        controller.destroyHUDWindow();
    if (controller.window())
        controller.layoutSubviews();
}

} // namespace panotra
