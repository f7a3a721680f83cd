/// UIWindow: the root of a view tree on the screen.
#pragma once

#include "platform/UIView.h"

namespace panotra {

/// The level of alerts; windows above it cover them.
inline constexpr CGFloat UIWindowLevelAlert = 2000;

/// What a window belongs to on systems that have scenes.
class UIWindowScene : public NSObject {
public:
    using NSObject::NSObject;
};

class UIWindow : public UIView {
public:
    using UIView::UIView;

    void setWindowLevel(CGFloat level) const noexcept;
    void makeKeyAndVisible() const noexcept;
    /// Not on every system: where windows know of no scenes, nothing happens.
    void setWindowScene(const UIWindowScene& scene) const noexcept;
    /// `[super initWithFrame:]` for an allocated object of a subclass of ours; answers what the superclass answers.
    /// Where that has no such method the object is let go of, and null answered.
    static id superInitWithFrame(id self, const ClassDescription&, CGRect frame) noexcept;
    /// `[super hitTest:withEvent:]`: the view under `point` (in the window's points), null for none.
    UIView superHitTest(const ClassDescription&, CGPoint point, const NSObject& event) const noexcept;
};

} // namespace panotra
