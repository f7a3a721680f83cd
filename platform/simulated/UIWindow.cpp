/// Windows, and messages from a window class of ours to its superclass.
#include "platform/UIWindow.h"

#include "platform/simulated/Host.h"
#include "platform/simulated/Super.h"
#include "simulator/device/View.h"

namespace panotra {

void UIWindow::setWindowLevel(CGFloat level) const noexcept
{
    if (auto* const window = simulated::objectOf<sim::Window>(*this))
        window->level = level;
}

void UIWindow::makeKeyAndVisible() const noexcept
{
    if (auto* const window = simulated::objectOf<sim::Window>(*this))
        window->makeKeyAndVisible();
}

void UIWindow::setWindowScene(const UIWindowScene& scene) const noexcept
{
    simulated::send<void>(*this, "setWindowScene:", simulated::objectOf(scene));
}

id UIWindow::superInitWithFrame(id self, const ClassDescription& description, CGRect frame) noexcept
{
    return simulated::sendSuper<HostObject*>(self, description, "initWithFrame:", simulated::toDevice(frame));
}

UIView UIWindow::superHitTest(const ClassDescription& description, CGPoint point, const NSObject& event) const noexcept
{
    return retained<UIView>(simulated::sendSuper<HostObject*>(simulated::objectOf(*this), description,
        "hitTest:withEvent:", simulated::toDevice(point), simulated::objectOf(event)));
}

} // namespace panotra
