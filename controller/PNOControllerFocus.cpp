/// The focus: the slider of the pair that changed swells and shrinks back shortly afterwards.
#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "platform/SpringBoard.h"

namespace panotra {
namespace {

constexpr CGAffineTransform focusedTransform = CGAffineTransformMakeScale(CGFloat(1.05), CGFloat(1.05));
constexpr CGAffineTransform restingTransform = CGAffineTransformIdentity;

constexpr double growSeconds = 0.2;
constexpr double growDelaySeconds = 0.05;
constexpr double shrinkSeconds = 0.2;
/// From the end of the growth to the beginning of the shrink-back.
constexpr double focusedSeconds = 0.1;
constexpr double resetSeconds = 0.15;

bool isVolumeButtonHeld()
{
    return VolumeControl::current().valueForKey(volumeDownButtonIsDown).boolValue()
        || VolumeControl::current().valueForKey(volumeUpButtonIsDown).boolValue();
}

} // namespace

/// The alarm's slider swells for notifications, and that of the notifications never by a change of volume. An
/// absent slider is animated like any other: nothing is seen of it.
void PNOController::animateForCategory(const NSString& category, const NSString& route) const
{
    const SlotNumber slot = slotToFocus(category.view(), route.view());
    if (slot != noSlot)
        autoAnimateView(volumeView(slot));
}

void PNOController::autoAnimateView(const PNOVolumeView& view) const
{
    if (fields() == nullptr)
        return;
    // A run of changes keeps the slider enlarged: an earlier shrink-back must not cut in.
    if (processValues.autoResetTransform)
        cancelPreviousPerformRequests(*this, "resetAnimation:", view);
    UIView::animateWithDuration(
        growSeconds, growDelaySeconds, UIViewAnimationOptionAllowUserInteraction,
        [view] { view.setTransform(focusedTransform); },
        [controller = *this, view](bool) {
            if (processValues.autoResetTransform)
                controller.performSelector("resetAnimation:", view, focusedSeconds);
        });
}

/// A slider that is being stepped with a held button stays enlarged; letting the button go does not try again.
void PNOController::resetAnimation(const PNOVolumeView& view) const
{
    if (fields() == nullptr)
        return;
    UIView::animateWithDuration(shrinkSeconds, 0, UIViewAnimationOptionAllowUserInteraction,
        [view] {
            if (!isVolumeButtonHeld())
                view.setTransform(restingTransform);
        },
        {});
}

void PNOController::resetTransforms() const
{
    InstanceVariables* const self = fields();
    if (self == nullptr || !self->_containerView)
        return;
    UIView::animateWithDuration(resetSeconds, 0, UIViewAnimationOptionAllowUserInteraction,
        [self] {
            for (const VolumeSlot& slot : volumeSlots) // slot 11 first
                self->_volumeView[slot.number].setTransform(restingTransform);
        },
        {});
}

} // namespace panotra
