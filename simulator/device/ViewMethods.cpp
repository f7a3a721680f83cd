/// Own implementations of views, layers and the screen.
#include "simulator/device/ClassTable.h"
#include "simulator/device/PlatformMethods.h"
#include "simulator/device/Screen.h"
#include "simulator/device/View.h"

namespace panotra::sim {

namespace {

HostObject* init(HostObject* self, Selector)
{
    return self;
}

HostObject* initWithFrame(HostObject* self, Selector, Rect frame)
{
    static_cast<View*>(self)->setFrame(frame);
    return self;
}

void setFrame(HostObject* self, Selector, Rect frame)
{
    static_cast<View*>(self)->setFrame(frame);
}

HostObject* hitTest(HostObject* self, Selector, Point point, HostObject*)
{
    return static_cast<View*>(self)->hitTest(point);
}

void setContinuousCorners(HostObject* self, Selector, bool continuous)
{
    if (View* const view = static_cast<LayerObject*>(self)->view)
        view->layer.continuousCorners = continuous;
}

Rect bounds(HostObject*, Selector)
{
    const auto [width, height] = process().screen->currentSize();
    return { 0, 0, width, height };
}

double scale(HostObject*, Selector)
{
    return process().screen->scale;
}

Rect referenceBounds(HostObject*, Selector)
{
    const Screen& screen = *process().screen;
    return { 0, 0, screen.width, screen.height };
}

} // namespace

void addMethods(ClassTable& classes, std::span<const PlatformMethod> methods)
{
    for (const PlatformMethod& method : methods)
        classes.platformClass(method.className).methods[selector(method.selector)] = method.implementation;
}

void addViewMethods(ClassTable& classes)
{
    const PlatformMethod methods[] = {
        { "NSObject", "init", implementation(init) },
        { "UIView", "initWithFrame:", implementation(initWithFrame) },
        { "UIView", "setFrame:", implementation(setFrame) },
        { "UIView", "hitTest:withEvent:", implementation(hitTest) },
        { "UIStatusBar", "setFrame:", implementation(setFrame) },
        { "_UIStatusBar", "setFrame:", implementation(setFrame) },
        { "CALayer", "setContinuousCorners:", implementation(setContinuousCorners) },
        { "UIScreen", "bounds", implementation(bounds) },
        { "UIScreen", "scale", implementation(scale) },
        { "UIScreen", "_referenceBounds", implementation(referenceBounds) },
    };
    addMethods(classes, methods);
}

} // namespace panotra::sim
