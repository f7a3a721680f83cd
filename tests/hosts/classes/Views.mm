/// UIView: geometry, the tree, block animations.
#include "tests/hosts/classes/UIKit.h"

#include "simulator/device/RunLoop.h"
#include "tests/hosts/Blocks.h"
#include "tests/hosts/DeviceCalls.h"
#include "tests/hosts/Hostility.h"
#include "tests/hosts/Values.h"

#include <objc/runtime.h>

#include <utility>

using namespace panotra;

namespace {

sim::View* viewOf(id view)
{
    return hosts::peerAs<sim::View>(view);
}

bool isContentView(const sim::View& view)
{
    const auto* const backdrop = dynamic_cast<const sim::BackdropView*>(view.superview);
    return backdrop != nullptr && backdrop->content == &view;
}

/// The class of the device's that a status bar is of; null for any other view.
const char* statusBarClassOf(id view)
{
    for (const char* const name : { "UIStatusBar", "_UIStatusBar" }) {
        if ([view isKindOfClass:objc_lookUpClass(name)])
            return name;
    }
    return nullptr;
}

} // namespace

@implementation UIResponder

+ (id)allocWithZone:(NSZone*)zone
{
    const id object = NSAllocateObject(self, 0, zone);
    hosts::attachNewPeer(object);
    return object;
}

- (void)motionBegan:(long)motion withEvent:(id)event
{
    hosts::callOwn<void>(
        "UIResponder", hosts::peerOf(self), _cmd, std::int64_t { motion }, hosts::deviceObjectFor(event));
}

@end

@implementation UIView

- (id)initWithFrame:(DeviceRect)frame
{
    viewOf(self)->setFrame(frame);
    return self;
}

// Geometry.

- (DeviceRect)frame
{
    if (hosts::isHostile() && isContentView(*viewOf(self)))
        return hosts::frameAtLastLayout(*viewOf(self));
    return viewOf(self)->frame();
}

/// Status bars have no method of their own on any system.
- (void)setFrame:(DeviceRect)frame
{
    if (const char* const statusBar = statusBarClassOf(self))
        hosts::callOwn<void>(statusBar, hosts::peerOf(self), _cmd, frame);
    else
        viewOf(self)->setFrame(frame);
}

- (void)layoutIfNeeded
{
    if (const auto* const backdrop = hosts::peerAs<sim::BackdropView>(self))
        hosts::layOut(*backdrop->content);
}

- (DeviceRect)bounds
{
    const auto& size = viewOf(self)->bounds;
    return { 0, 0, size.width, size.height };
}

- (DevicePoint)center
{
    return viewOf(self)->center;
}

- (void)setCenter:(DevicePoint)center
{
    viewOf(self)->setCenter(center);
}

- (void)setTransform:(DeviceTransform)transform
{
    viewOf(self)->setTransform(transform);
}

// Looks.

- (double)alpha
{
    return viewOf(self)->alpha;
}

- (void)setAlpha:(double)alpha
{
    viewOf(self)->setAlpha(alpha);
}

- (BOOL)isHidden
{
    return viewOf(self)->hidden;
}

- (void)setHidden:(BOOL)hidden
{
    viewOf(self)->setHidden(hidden);
}

- (void)setBackgroundColor:(id)color
{
    viewOf(self)->setBackground(componentsOf(color));
}

- (void)setUserInteractionEnabled:(BOOL)enabled
{
    viewOf(self)->interaction = enabled;
}

- (long)tag
{
    return viewOf(self)->tag;
}

- (void)setTag:(long)tag
{
    viewOf(self)->tag = tag;
}

- (id)layer
{
    return hosts::hostObjectFor(&viewOf(self)->layerObject());
}

// The tree.

- (id)superview
{
    return hosts::hostObjectFor(viewOf(self)->superview);
}

- (id)subviews
{
    NSMutableArray* const subviews = [NSMutableArray array];
    for (sim::View* const view : viewOf(self)->subviews)
        [subviews addObject:hosts::hostObjectFor(view)];
    return subviews;
}

- (void)addSubview:(id)view
{
    viewOf(self)->addSubview(*viewOf(view));
}

- (void)bringSubviewToFront:(id)view
{
    viewOf(self)->bringSubviewToFront(*viewOf(view));
}

- (void)removeFromSuperview
{
    viewOf(self)->removeFromSuperview();
}

// Touches.

- (id)hitTest:(DevicePoint)point withEvent:(id)event
{
    return hosts::hostObjectFor(viewOf(self)->hitTest(point));
}

- (void)addGestureRecognizer:(id)recognizer
{
    viewOf(self)->addRecognizer(*hosts::peerAs<sim::PanRecognizer>(recognizer));
}

- (void)removeGestureRecognizer:(id)recognizer
{
    viewOf(self)->removeRecognizer(*hosts::peerAs<sim::PanRecognizer>(recognizer));
}

+ (void)animateWithDuration:(double)duration
                      delay:(double)delay
                    options:(unsigned long)options
                 animations:(void*)animations
                 completion:(void*)completion
{
    std::function<void(bool)> completes = hosts::completionOfBlock(completion);
    if (hosts::isHostile() && completes) {
        const std::function<void(bool)> inTime = completes;
        completes = [=](bool finished) {
            hosts::device().runLoop->defer([=] { inTime(finished); });
        };
    }
    hosts::device().runLoop->animate(
        duration, delay, options, hosts::functionOfBlock(animations), std::move(completes));
}

@end

// Windows.

@implementation UIWindow

- (void)setWindowLevel:(double)level
{
    hosts::peerAs<sim::Window>(self)->level = level;
}

- (void)makeKeyAndVisible
{
    hosts::peerAs<sim::Window>(self)->makeKeyAndVisible();
}

@end

// The blur view.

@implementation _UIBackdropViewSettings

+ (id)settingsForStyle:(long)style graphicsQuality:(long)quality
{
    return hosts::autoreleasedHostObject(
        hosts::device().classes->make<sim::BackdropSettings>("_UIBackdropViewSettings", style, quality));
}

@end

@implementation _UIBackdropView

- (id)initWithFrame:(DeviceRect)frame autosizesToFitSuperview:(BOOL)autosizes settings:(id)settings
{
    auto* const backdrop = hosts::peerAs<sim::BackdropView>([self initWithFrame:frame]);
    backdrop->autosizes = autosizes;
    if (const auto* const given = hosts::peerAs<sim::BackdropSettings>(settings)) {
        backdrop->style = given->style;
        backdrop->quality = given->quality;
    }
    return self;
}

- (void)setBlurRadius:(double)radius
{
    hosts::peerAs<sim::BackdropView>(self)->setBlurRadius(radius);
}

- (void)transitionToStyle:(long)style
{
    hosts::peerAs<sim::BackdropView>(self)->style = style;
}

- (id)contentView
{
    return hosts::hostObjectFor(hosts::peerAs<sim::BackdropView>(self)->content);
}

- (id)effectView
{
    return hosts::hostObjectFor(hosts::peerAs<sim::BackdropView>(self)->effect);
}

@end
