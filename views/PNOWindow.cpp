/// The overlay's window.
#include "views/PNOWindow.h"

#include "platform/MethodEntry.h"
#include "views/MixerDelegate.h"

namespace panotra {

const ClassDescription& PNOWindow::description() noexcept
{
    static const Method methodTable[] = {
        methodEntry<&PNOWindow::hitTest>("hitTest:withEvent:"),
    };
    static const ClassDescription description {
        "PNOWindow",
        "UIWindow",
        {},
        methodTable,
        {},
        0,
        [](void*) {},
        [](id, void*) {},
    };
    return description;
}

PNOWindow PNOWindow::initWithFrame(CGRect frame) noexcept
{
    return adopt<PNOWindow>(superInitWithFrame(allocate(description()), description(), frame));
}

UIView PNOWindow::hitTest(CGPoint point, const NSObject& event) const
{
    return mixerDelegate::returnViewFromTouchedView(superHitTest(description(), point, event));
}

} // namespace panotra
