/// A view's geometry, its properties and its hit test.
#include "simulator/device/View.h"

#include "simulator/device/AnimatedSetting.h"
#include "simulator/device/ClassTable.h"

namespace panotra::sim {

namespace {

/// The least alpha with which a view can be touched.
constexpr double touchableAlpha = 0.01;

} // namespace

View::~View()
{
    // When the process ends, the other objects may be gone already.
    if (Device::current() == nullptr)
        return;
    for (View* const view : subviews) {
        view->superview = nullptr;
        release(view);
    }
    for (PanRecognizer* const recognizer : recognizers) {
        recognizer->view = nullptr;
        release(recognizer);
    }
    if (m_layerObject != nullptr) {
        m_layerObject->view = nullptr;
        release(m_layerObject);
    }
}

Rect View::frame() const
{
    const Size size = boundingSize(bounds, transform);
    return { center.x + transform.tx - size.width / 2, center.y + transform.ty - size.height / 2, size.width,
        size.height };
}

void View::setFrame(Rect frame)
{
    const AnimatedSetting settingCenter(*this, AnimatedProperty::Center);
    const AnimatedSetting settingBounds(*this, AnimatedProperty::Bounds);
    applyFrame(frame);
}

void View::applyFrame(Rect frame)
{
    center = frame.middle();
    if (const auto back = inverse(transform))
        setBounds(boundingSize(frame.size(), *back));
}

void View::setCenter(Point point)
{
    const AnimatedSetting setting(*this, AnimatedProperty::Center);
    center = point;
}

void View::setTransform(Transform value)
{
    const AnimatedSetting setting(*this, AnimatedProperty::Transform);
    transform = value;
}

void View::setAlpha(double value)
{
    const AnimatedSetting setting(*this, AnimatedProperty::Alpha);
    alpha = value;
}

void View::setBackground(const std::optional<Rgba>& color)
{
    const AnimatedSetting setting(*this, AnimatedProperty::Background);
    background = color;
}

void View::setHidden(bool value)
{
    hidden = value;
}

void View::setBounds(Size size)
{
    if (bounds == size)
        return;
    bounds = size;
    for (View* const view : subviews)
        view->superviewBoundsChanged();
}

LayerObject& View::layerObject()
{
    if (m_layerObject == nullptr)
        m_layerObject = Device::current()->classes->make<LayerObject>("CALayer", *this);
    return *m_layerObject;
}

View* View::hitTest(Point point)
{
    if (hidden || alpha < touchableAlpha || !interaction)
        return nullptr;
    if (point.x < 0 || point.x >= bounds.width || point.y < 0 || point.y >= bounds.height)
        return nullptr;
    for (auto view = subviews.rbegin(); view != subviews.rend(); ++view) {
        if (const auto inside = (*view)->fromSuperview(point)) {
            if (View* const hit = (*view)->hitTest(*inside))
                return hit;
        }
    }
    return this;
}

std::optional<Point> View::fromSuperview(Point point) const
{
    const auto back = inverse(transform);
    if (!back)
        return std::nullopt;
    const Point offset = apply(*back, { point.x - center.x, point.y - center.y });
    return Point { offset.x + bounds.width / 2, offset.y + bounds.height / 2 };
}

std::optional<Point> View::fromScreen(Point point) const
{
    if (superview == nullptr)
        return fromSuperview(point);
    const auto above = superview->fromScreen(point);
    return above ? fromSuperview(*above) : std::nullopt;
}

} // namespace panotra::sim
