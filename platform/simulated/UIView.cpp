/// Views.
#include "platform/UIView.h"

#include "platform/UIGestureRecognizer.h"
#include "platform/simulated/Host.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/View.h"

#include <functional>
#include <memory>
#include <utility>

namespace panotra {

namespace {

sim::View* viewOf(const UIView& handle)
{
    return simulated::objectOf<sim::View>(handle);
}

} // namespace

UIView UIView::init() noexcept
{
    return simulated::create<UIView, sim::View>("UIView");
}

UIView UIView::initWithFrame(CGRect frame) noexcept
{
    const UIView view = init();
    view.setFrame(frame);
    return view;
}

CGRect UIView::frame() const noexcept
{
    const sim::View* const view = viewOf(*this);
    return view == nullptr ? CGRect() : simulated::fromDevice(view->frame());
}

void UIView::setFrame(CGRect frame) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->setFrame(simulated::toDevice(frame));
}

/// Nothing is ever put off.
void UIView::layoutIfNeeded() const noexcept { }

CGRect UIView::bounds() const noexcept
{
    const sim::View* const view = viewOf(*this);
    return view == nullptr ? CGRect() : CGRectMake(0, 0, view->bounds.width, view->bounds.height);
}

CGPoint UIView::center() const noexcept
{
    const sim::View* const view = viewOf(*this);
    return view == nullptr ? CGPoint() : simulated::fromDevice(view->center);
}

void UIView::setCenter(CGPoint center) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->setCenter(simulated::toDevice(center));
}

void UIView::setTransform(CGAffineTransform transform) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->setTransform(simulated::toDevice(transform));
}

CGFloat UIView::alpha() const noexcept
{
    const sim::View* const view = viewOf(*this);
    return view == nullptr ? 0 : view->alpha;
}

void UIView::setAlpha(CGFloat alpha) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->setAlpha(alpha);
}

bool UIView::isHidden() const noexcept
{
    const sim::View* const view = viewOf(*this);
    return view != nullptr && view->hidden;
}

void UIView::setHidden(bool hidden) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->setHidden(hidden);
}

void UIView::setBackgroundColor(const UIColor& color) const noexcept
{
    const auto* const value = simulated::objectOf<sim::Color>(color);
    if (sim::View* const view = viewOf(*this))
        view->setBackground(value == nullptr ? std::nullopt : std::optional(value->rgba));
}

void UIView::setUserInteractionEnabled(bool enabled) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->interaction = enabled;
}

std::int64_t UIView::tag() const noexcept
{
    const sim::View* const view = viewOf(*this);
    return view == nullptr ? 0 : view->tag;
}

void UIView::setTag(std::int64_t tag) const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->tag = tag;
}

CALayer UIView::layer() const noexcept
{
    sim::View* const view = viewOf(*this);
    if (view == nullptr || sim::Device::current()->classes->find("CALayer") == nullptr)
        return nullptr;
    return retained<CALayer>(&view->layerObject());
}

UIView UIView::superview() const noexcept
{
    const sim::View* const view = viewOf(*this);
    return view == nullptr ? UIView() : retained<UIView>(view->superview);
}

void UIView::addSubview(const UIView& view) const noexcept
{
    sim::View* const parent = viewOf(*this);
    sim::View* const child = viewOf(view);
    if (parent != nullptr && child != nullptr)
        parent->addSubview(*child);
}

void UIView::bringSubviewToFront(const UIView& view) const noexcept
{
    sim::View* const parent = viewOf(*this);
    sim::View* const child = viewOf(view);
    if (parent != nullptr && child != nullptr)
        parent->bringSubviewToFront(*child);
}

void UIView::removeFromSuperview() const noexcept
{
    if (sim::View* const view = viewOf(*this))
        view->removeFromSuperview();
}

void UIView::addGestureRecognizer(const UIGestureRecognizer& recognizer) const noexcept
{
    sim::View* const view = viewOf(*this);
    auto* const added = simulated::objectOf<sim::PanRecognizer>(recognizer);
    if (view != nullptr && added != nullptr)
        view->addRecognizer(*added);
}

void UIView::removeGestureRecognizer(const UIGestureRecognizer& recognizer) const noexcept
{
    sim::View* const view = viewOf(*this);
    auto* const removed = simulated::objectOf<sim::PanRecognizer>(recognizer);
    if (view != nullptr && removed != nullptr)
        view->removeRecognizer(*removed);
}

void UIView::animateWithDuration(double duration, double delay, std::uint64_t options, Block<void()> animations,
    Block<void(bool finished)> completion) noexcept
{
    sim::Device* const device = sim::Device::current();
    if (device == nullptr)
        return;
    std::function<void(bool)> finish;
    if (completion)
        finish = [kept = std::make_shared<Block<void(bool)>>(std::move(completion))](bool finished) {
            (*kept)(finished);
        };
    std::function<void()> begin;
    if (animations)
        begin = [&animations] {
            animations();
        };
    device->runLoop->animate(duration, delay, options, begin, std::move(finish));
}

} // namespace panotra
