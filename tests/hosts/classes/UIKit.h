/// The part of UIKit and QuartzCore that the mixer uses, in front of the device's views.
#pragma once

#include "simulator/device/View.h"
#include "tests/hosts/Peers.h"

#include <optional>

using DevicePoint = panotra::sim::Point;
using DeviceRect = panotra::sim::Rect;
using DeviceTransform = panotra::sim::Transform;

@interface CALayer : DeviceObject
@end

/// Of a UIColor; none of nil.
std::optional<panotra::sim::Rgba> componentsOf(id color);

/// Its own Core Graphics colour.
@interface UIColor : DeviceObject
+ (id)colorWithRed:(double)red green:(double)green blue:(double)blue alpha:(double)alpha;
@end

@interface UIFont : DeviceObject
@end

@interface UIImage : DeviceObject
@end

@interface UIEvent : DeviceObject
@end

@interface UIScreen : DeviceObject
@end

@interface UIGestureRecognizer : DeviceObject
@end

@interface UIPanGestureRecognizer : UIGestureRecognizer
@end

/// Known to old systems' programs as absent.
@interface UIViewPropertyAnimator : DeviceObject
@end

@interface UIResponder : DeviceObject
@end

@interface UIApplication : UIResponder
@end

@interface UIView : UIResponder
- (id)initWithFrame:(DeviceRect)frame;
- (void)setFrame:(DeviceRect)frame;
@end

@interface UIImageView : UIView
@end

@interface UILabel : UIView
@end

@interface UIWindow : UIView
@end

@interface UIStatusBar : UIView
@end

@interface _UIStatusBar : UIView
@end

@interface _UIBackdropViewSettings : DeviceObject
@end

@interface _UIBackdropView : UIView
@end
