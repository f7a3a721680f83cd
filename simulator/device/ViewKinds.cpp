/// Windows, labels, image views, backdrops and recognisers.
#include "simulator/device/AnimatedSetting.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/View.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace panotra::sim {

namespace {

/// Fills its backdrop, always.
struct ContentView : View {
    void superviewBoundsChanged() override { applyFrame({ 0, 0, superview->bounds.width, superview->bounds.height }); }
};

struct FontWeight {
    double weight;
    const char* name;
};

/// The platform's scale of weights.
constexpr FontWeight fontWeights[] = {
    { -0.8, "ultraLight" },
    { -0.6, "thin" },
    { -0.4, "light" },
    { 0, "regular" },
    { 0.23, "medium" },
    { 0.3, "semibold" },
    { 0.4, "bold" },
    { 0.56, "heavy" },
    { 0.62, "black" },
};

} // namespace

const char* nearestWeightName(double weight)
{
    const auto distance = [weight](const FontWeight& each) {
        return std::abs(each.weight - weight);
    };
    return std::ranges::min_element(fontWeights, {}, distance)->name;
}

Window::~Window()
{
    release(scene);
}

void Window::setScene(HostObject* value)
{
    retain(value);
    release(std::exchange(scene, value));
}

void Window::makeKeyAndVisible()
{
    if (scene == nullptr && Device::current()->home->windowScene() != nullptr)
        return;
    shown = true;
    Device::current()->trace("windowShown");
}

// These three take no touches unless told to; content views and plain views do.

Label::Label()
{
    interaction = false;
}

ImageView::ImageView()
{
    interaction = false;
}

ImageView::~ImageView()
{
    release(image);
}

void ImageView::setImage(Image* value)
{
    retain(value);
    release(std::exchange(image, value));
}

BackdropView::BackdropView()
{
    interaction = false;
    ClassTable& classes = *Device::current()->classes;
    content = classes.make<ContentView>("UIView");
    content->name = "contentView";
    addSubview(*content);
    release(content);
    effect = classes.make<View>("UIView");
}

BackdropView::~BackdropView()
{
    release(effect);
}

void BackdropView::setBlurRadius(double radius)
{
    const AnimatedSetting setting(*this, AnimatedProperty::BlurRadius);
    blurRadius = radius;
}

void BackdropView::superviewBoundsChanged()
{
    if (autosizes)
        applyFrame({ 0, 0, superview->bounds.width, superview->bounds.height });
}

void PanRecognizer::send(std::int64_t newState)
{
    if (view == nullptr)
        return;
    state = newState;
    // The action may tear the view down, and with it the target and this recogniser.
    retain(this);
    HostObject* const told = target;
    retain(told);
    sim::send<void, HostObject*>(told, action, this);
    release(told);
    release(this);
}

Point PanRecognizer::locationIn(const View* asked) const
{
    if (fixedX.has_value())
        return { *fixedX, 0 };
    return asked == nullptr ? screenPoint : asked->fromScreen(screenPoint).value_or(Point {});
}

} // namespace panotra::sim
