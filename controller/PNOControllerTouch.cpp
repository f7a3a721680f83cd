/// Which touches the overlay takes, which dismiss it and which pass to the app below.
#include "controller/PNOController.h"
#include "model/ProcessValues.h"

namespace panotra {

/// Heights are compared as each view's superview reports them: inner views of the banner by their own unscaled
/// height, the banner by its scaled one, so that some of its inner views let touches through.
UIView PNOController::returnViewFromTouchedView(const UIView& touchedView) const
{
    const InstanceVariables* const self = fields();
    if (self == nullptr)
        return nullptr;
    if (touchedView.isEqual(self->_rootView) && processValues.dismissOnTouch) {
        processValues.killedByTouch = true;
        destroyHUDWindow();
        return touchedView;
    }
    if (MixerStyle { processValues.activeStyle } == MixerStyle::Banner
        && touchedView.frame().size.height > self->_containerView.frame().size.height)
        return nullptr;
    return touchedView;
}

} // namespace panotra
