/// The drag on a slider: from the finger to the level, the store and the system's volume.
#include "facts/VolumeSlots.h"
#include "model/ProcessValues.h"
#include "platform/AVSystemController.h"
#include "platform/SpringBoard.h"
#include "views/MixerDelegate.h"
#include "views/PNOVolumeView.h"

namespace panotra {
namespace {

/// A drag keeps the mixer alive this long after its last event.
constexpr double keepAliveSeconds = 1.5;
/// Where a drag stops on a slider that cannot go to zero.
constexpr CGFloat lowestDraggedLevel = CGFloat(0.0625);
/// The voice assistant's slider: lifting the finger from it opens and closes the assistant.
constexpr std::int64_t assistantTag = 10;

bool hasEnded(UIGestureRecognizerState state)
{
    return state == UIGestureRecognizerState::Ended || state == UIGestureRecognizerState::Cancelled
        || state == UIGestureRecognizerState::Failed;
}

/// Whether a drag on the slot's slider reaches the system: its route is active, or it is for any route. The route
/// is asked for afresh for each comparison.
bool isOnActiveRoute(const VolumeSlot& slot)
{
    if (slot.isForAnyRoute())
        return true;
    for (const char* const route : slot.routes) {
        if (route != nullptr && mixerDelegate::pickedRoute().isEqualToString(route))
            return true;
    }
    return false;
}

} // namespace

/// The level under `x`, a place in the slider's own points: left edge low, right edge high, never below the floor.
/// A slider of zero width gives no number; it receives no touches either.
CGFloat PNOVolumeView::levelAt(CGFloat x) const
{
    const CGFloat width = frame().size.width;
    const CGFloat floor = fields()->_canGoToZero ? CGFloat(0) : lowestDraggedLevel;
    if (x < floor * width)
        x = floor * width;
    else if (x > width)
        x = width;
    return x / width;
}

/// The active category is not consulted: a call slider on the active route writes the call volume while music plays.
void PNOVolumeView::setSystemVolume() const
{
    const std::int64_t slotNumber = tag();
    for (const VolumeSlot& slot : volumeSlots) {
        if (slot.number != slotNumber)
            continue;
        if (slot.dragSetsSystemVolume && isOnActiveRoute(slot))
            AVSystemController::sharedAVSystemController().setVolumeTo(
                static_cast<float>(volume()), NSString::constant(slot.category));
        return;
    }
}

/// Opens and closes the voice assistant, unseen. A server that cannot open it leaves it alone altogether.
void PNOVolumeView::flashAssistant() const
{
    const AXSpringBoardServer server = AXSpringBoardServer::server();
    if (server && !server.respondsToSelector("openSiri"))
        return;
    server.openSiri();
    SBAssistantController::sharedInstance().window().setHidden(true);
    server.dismissSiri();
}

void PNOVolumeView::handleVolumeViewPan(const UIPanGestureRecognizer& recognizer) const
{
    if (fields() == nullptr)
        return;
    if (processValues.replaceHUD && !processValues.presentedViaActivator)
        mixerDelegate::rescheduleDismissal(keepAliveSeconds);

    const UIGestureRecognizerState state = recognizer.state();
    if (state == UIGestureRecognizerState::Began) {
        mixerDelegate::autoAnimateView(*this);
        processValues.isPanning = true;
    }
    if (state == UIGestureRecognizerState::Began || state == UIGestureRecognizerState::Changed)
        processValues.autoResetTransform = false;

    setVolume(levelAt(recognizer.locationInView(*this).x));
    setSystemVolume();
    setVolumeLevel(volume());

    if (!hasEnded(state))
        return;
    processValues.autoResetTransform = true;
    processValues.isPanning = false;
    mixerDelegate::resetTransforms();
    mixerDelegate::saveVolumeLevelsToDisk();
    if (tag() == assistantTag && !AXSpringBoardServer::server().isSiriVisible())
        flashAssistant();
}

} // namespace panotra
