/// The rest of UIKit: colours, fonts, pictures, the screen, events, recognisers, the application.
#include "tests/hosts/classes/UIKit.h"

#include "simulator/device/BundlePictures.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Screen.h"
#include "simulator/device/Values.h"
#include "tests/hosts/DeviceCalls.h"
#include "tests/hosts/Hostility.h"
#include "tests/hosts/Values.h"
#include "tests/hosts/classes/SystemClasses.h"

#include <objc/runtime.h>

using namespace panotra;

namespace {

/// UIImageRenderingModeAlwaysTemplate
constexpr long alwaysTemplate = 2;

DeviceRect uprightPixels(id, SEL)
{
    const sim::Screen& screen = *hosts::device().screen;
    return { 0, 0, screen.width * screen.scale, screen.height * screen.scale };
}

} // namespace

std::optional<sim::Rgba> componentsOf(id color)
{
    const auto* const peer = hosts::peerAs<sim::Color>(color);
    return peer == nullptr ? std::nullopt : std::optional(peer->rgba);
}

@implementation UIColor

+ (id)colorWithRed:(double)red green:(double)green blue:(double)blue alpha:(double)alpha
{
    return hosts::autoreleasedHostObject(
        hosts::device().classes->make<sim::Color>("UIColor", sim::Rgba { red, green, blue, alpha }));
}

+ (id)blackColor
{
    return [self colorWithRed:0 green:0 blue:0 alpha:1];
}

+ (id)whiteColor
{
    return [self colorWithRed:1 green:1 blue:1 alpha:1];
}

- (void*)CGColor
{
    return self;
}

@end

@implementation UIFont

+ (id)systemFontOfSize:(double)points weight:(double)weight
{
    return hosts::autoreleasedHostObject(
        hosts::device().classes->make<sim::Font>("UIFont", points, sim::nearestWeightName(weight)));
}

@end

@implementation UIImage

+ (id)imageNamed:(NSString*)name inBundle:(NSBundle*)bundle
{
    const auto text = hosts::textOf(name);
    if (!text || bundle == nil)
        return nil;
    return hosts::autoreleasedHostObject(
        hosts::device().classes->make<sim::Image>("UIImage", *text, sim::pictureFile(hosts::device(), *text)));
}

- (id)imageWithRenderingMode:(long)mode
{
    const auto& image = *hosts::peerAs<sim::Image>(self);
    auto* const copy = hosts::device().classes->make<sim::Image>("UIImage", image.baseName, image.file);
    copy->isTemplate = mode == alwaysTemplate;
    return hosts::autoreleasedHostObject(copy);
}

@end

/// UIKit's one function among its methods.
extern "C" NSData* UIImagePNGRepresentation(id image)
{
    const auto* const given = hosts::peerAs<sim::Image>(image);
    if (given == nullptr)
        return nil;
    const std::string bytes = sim::pngOf(*given);
    return [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

@implementation UIScreen

+ (id)mainScreen
{
    if (hosts::device().screen->hasRealDisplayBounds && !hosts::device().system)
        class_addMethod(self, sel_registerName("_realDisplayBounds"), reinterpret_cast<IMP>(uprightPixels), "{}@:");
    return hosts::hostObjectFor(hosts::device().home->mainScreen());
}

- (DeviceRect)bounds
{
    const auto [width, height] = hosts::device().screen->currentSize();
    return { 0, 0, width, height };
}

- (double)scale
{
    return hosts::device().screen->scale;
}

- (DeviceRect)_referenceBounds
{
    return { 0, 0, hosts::device().screen->width, hosts::device().screen->height };
}

@end

@implementation UIEvent

- (long)type
{
    return hosts::peerAs<sim::Event>(self)->type;
}

@end

@implementation UIGestureRecognizer

- (long)state
{
    return hosts::peerAs<sim::PanRecognizer>(self)->state;
}

- (DevicePoint)locationInView:(id)view
{
    return hosts::peerAs<sim::PanRecognizer>(self)->locationIn(hosts::peerAs<sim::View>(view));
}

@end

@implementation UIPanGestureRecognizer

- (id)initWithTarget:(id)target action:(SEL)action
{
    hosts::attachPeer(self,
        hosts::device().classes->make<sim::PanRecognizer>(
            "UIPanGestureRecognizer", hosts::deviceObjectFor(target), sim::selector(sel_getName(action))));
    return self;
}

@end

@implementation UIViewPropertyAnimator
@end

@implementation UIApplication

+ (id)sharedApplication
{
    return hosts::hostObjectFor(hosts::device().home->shared(hosts::nameOfClass(self)));
}

- (long)activeInterfaceOrientation
{
    return hosts::device().screen->orientation;
}

- (id)statusBar
{
    if (hosts::refusesThisTime())
        return nil;
    return hosts::hostObjectFor(hosts::device().home->statusBar());
}

@end

@implementation UIStatusBar
@end

@implementation _UIStatusBar
@end
