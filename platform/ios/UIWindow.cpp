/// The root of a view tree, and what a window of ours asks of its superclass.
#include "platform/UIWindow.h"

#include "platform/ios/Super.h"

namespace panotra {

using namespace ios;

void UIWindow::setWindowLevel(CGFloat level) const noexcept
{
    send(get(), selectors::setWindowLevel, level);
}

void UIWindow::makeKeyAndVisible() const noexcept
{
    send(get(), selectors::makeKeyAndVisible);
}

void UIWindow::setWindowScene(const UIWindowScene& scene) const noexcept
{
    send(get(), selectors::setWindowScene, scene.get());
}

id UIWindow::superInitWithFrame(id self, const ClassDescription& description, CGRect frame) noexcept
{
    return sendSuper(self, description, selectors::initWithFrame, frame);
}

UIView UIWindow::superHitTest(const ClassDescription& description, CGPoint point, const NSObject& event) const noexcept
{
    return retained<UIView>(sendSuper(get(), description, selectors::hitTest, point, event.get()));
}

} // namespace panotra
