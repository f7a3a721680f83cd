/// PNOWindow: the overlay's window, above the apps. It decides for each touch whether the overlay takes it.
#pragma once

#include "platform/UIWindow.h"

namespace panotra {

class PNOWindow : public UIWindow {
public:
    using UIWindow::UIWindow;

    static const ClassDescription& description() noexcept;
    static PNOWindow initWithFrame(CGRect frame) noexcept;

    /// The superclass's hit test, handed to the controller, whose answer is final.
    UIView hitTest(CGPoint point, const NSObject& event) const;
};

} // namespace panotra
