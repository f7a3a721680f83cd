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
    Class const superclass = superclassOf(self, description);
    const SEL initializer = selectors::initWithFrame.get();
    if (superclass != nullptr && instancesAnswer(superclass, initializer))
        return deliverAs<id, CGRect>(superclass, self, initializer, frame);
    release(self); // nobody has taken it over
    return nullptr;
}

UIView UIWindow::superHitTest(const ClassDescription& description, CGPoint point, const NSObject& event) const noexcept
{
    return retained<UIView>(sendSuper(get(), description, selectors::hitTest, point, event.get()));
}

} // namespace panotra
