/// How a shown mixer goes away: the fade-out, the tear-down and the dismissal that is pending.
#include "controller/PNOController.h"
#include "model/ProcessValues.h"

namespace panotra {
namespace {

constexpr double fadeOutSeconds = 0.4;
constexpr CGFloat dismissedBlurRadius = 5;
/// After a touch the tear-down waits this long, so that the touch ends on views that are still there.
constexpr double tearDownDelayAfterTouchSeconds = 0.4;

} // namespace

void PNOController::rescheduleDismissal(double seconds) const
{
    if (fields() == nullptr)
        return;
    cancelPreviousPerformRequests(*this, "destroyHUDWindow", nullptr);
    performSelector("destroyHUDWindow", nullptr, seconds);
}

void PNOController::destroyHUDWindow() const
{
    const InstanceVariables* const self = fields();
    if (self == nullptr)
        return;
    saveVolumeLevelsToDisk();
    UIView::animateWithDuration(
        fadeOutSeconds, 0, UIViewAnimationOptionAllowUserInteraction,
        [self] {
            self->_containerView.setAlpha(0);
            self->_blurBackdropView.setBlurRadius(dismissedBlurRadius);
        },
        // Finished or interrupted alike: whether anything is torn down is decided by the alpha at that time.
        [controller = *this](bool) {
            controller.performSelector(
                "releaseObjects", nullptr, processValues.killedByTouch ? tearDownDelayAfterTouchSeconds : 0);
            processValues.killedByTouch = false;
        });
}

/// The alpha test is what keeps a mixer alive that was shown again while it faded. Nothing built reads as alpha 0.
void PNOController::releaseObjects() const
{
    InstanceVariables* const self = fields();
    if (self == nullptr || self->_containerView.alpha() != 0)
        return;

    // Every view leaves its superview before the first is released. `_blurBackdropView` is left alone on purpose.
    for (std::size_t slot = volumeSlotCount; slot-- > 0;)
        self->_volumeView[slot].removeFromSuperview();
    for (std::size_t group = groupCount; group-- > 0;)
        self->_groupLabel[group].removeFromSuperview();
    for (std::size_t group = groupCount; group-- > 0;)
        self->_groupView[group].removeFromSuperview();
    self->_rootBackdropView.removeFromSuperview();
    self->_containerView.removeFromSuperview();
    self->_rootView.removeFromSuperview();

    for (std::size_t slot = volumeSlotCount; slot-- > 0;)
        self->_volumeView[slot] = nullptr;
    for (std::size_t group = groupCount; group-- > 0;)
        self->_groupLabel[group] = nullptr;
    for (std::size_t group = groupCount; group-- > 0;)
        self->_groupView[group] = nullptr;
    self->_rootBackdropView = nullptr;
    self->_containerView = nullptr;
    self->_rootView = nullptr;
    self->_window = nullptr;
    self->_volume = 0;
    processValues.presentedViaActivator = false;
}

} // namespace panotra
