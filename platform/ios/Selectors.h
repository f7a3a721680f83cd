/// The table of selectors: every public method that is sent here, with its type. Those that the platform keeps to
/// itself, and those of other people's libraries, stand in private/ in the same form.
#pragma once

#include "platform/CoreGraphics.h"
#include "platform/ios/Abi.h"
#include "platform/ios/Names.h"
#include "platform/ios/Scenes.h"
#include "platform/ios/private/SharedInstance.h"

namespace panotra::ios::selectors {

// NSObject.
inline constinit Selector<id()> alloc { "alloc" };
inline constinit Selector<id(void* zone)> allocWithZone { "allocWithZone:" };
inline constinit Selector<id()> init { "init" };
inline constinit Selector<void()> dealloc { "dealloc" };
inline constinit Selector<bool(id)> isEqual { "isEqual:" };
inline constinit Selector<bool(SEL)> respondsToSelector { "respondsToSelector:" };
inline constinit Selector<bool()> accessInstanceVariablesDirectly { "accessInstanceVariablesDirectly" };
inline constinit Selector<id(id)> valueForKey { "valueForKey:" };
inline constinit Selector<id(SEL)> perform { "performSelector:" };
inline constinit Selector<void(SEL, id, double)> performSelector { "performSelector:withObject:afterDelay:" };
inline constinit Selector<void(id, SEL, id)> cancelPreviousPerformRequests {
    "cancelPreviousPerformRequestsWithTarget:selector:object:"
};

// NSNumber and NSString.
inline constinit Selector<bool()> boolValue { "boolValue" };
inline constinit Selector<float()> floatValue { "floatValue" };
inline constinit Selector<double()> doubleValue { "doubleValue" };
inline constinit Selector<long long()> longLongValue { "longLongValue" };
inline constinit Selector<const char*()> objCType { "objCType" };
inline constinit Selector<id(float)> initWithFloat { "initWithFloat:" };
inline constinit Selector<id(const char*)> initWithUTF8String { "initWithUTF8String:" };
inline constinit Selector<const char*()> UTF8String { "UTF8String" };
inline constinit Selector<NSUInteger(NSUInteger encoding)> lengthOfBytesUsingEncoding { "lengthOfBytesUsingEncoding:" };

// NSDictionary, NSArray and NSUserDefaults.
inline constinit Selector<id(id)> objectForKey { "objectForKey:" };
inline constinit Selector<id()> firstObject { "firstObject" };
inline constinit Selector<id()> allObjects { "allObjects" };
inline constinit Selector<NSUInteger()> count { "count" };
inline constinit Selector<id(NSUInteger index)> objectAtIndex { "objectAtIndex:" };
inline constinit Selector<id(id)> initWithSuiteName { "initWithSuiteName:" };
inline constinit Selector<bool()> synchronize { "synchronize" };
inline constinit Selector<void(id, id)> setObjectForKey { "setObject:forKey:" };

// NSBundle.
inline constinit Selector<id()> mainBundle { "mainBundle" };
inline constinit Selector<id(id)> bundleWithPath { "bundleWithPath:" };
inline constinit Selector<id()> bundleIdentifier { "bundleIdentifier" };

// UIApplication, UIScreen and UIEvent.
inline constinit Selector<id()> sharedApplication { "sharedApplication" };
inline constinit Selector<id()> mainScreen { "mainScreen" };
inline constinit Selector<CGFloat()> scale { "scale" };
inline constinit Selector<NSInteger()> type { "type" };

// UIView.
inline constinit Selector<id(CGRect)> initWithFrame { "initWithFrame:" };
inline constinit Selector<CGRect()> frame { "frame" };
inline constinit Selector<void(CGRect)> setFrame { "setFrame:" };
inline constinit Selector<CGRect()> bounds { "bounds" };
inline constinit Selector<void()> layoutIfNeeded { "layoutIfNeeded" };
inline constinit Selector<CGPoint()> center { "center" };
inline constinit Selector<void(CGPoint)> setCenter { "setCenter:" };
inline constinit Selector<void(CGAffineTransform)> setTransform { "setTransform:" };
inline constinit Selector<CGFloat()> alpha { "alpha" };
inline constinit Selector<void(CGFloat)> setAlpha { "setAlpha:" };
inline constinit Selector<bool()> isHidden { "isHidden" };
inline constinit Selector<void(bool)> setHidden { "setHidden:" };
inline constinit Selector<void(id)> setBackgroundColor { "setBackgroundColor:" };
inline constinit Selector<void(bool)> setUserInteractionEnabled { "setUserInteractionEnabled:" };
inline constinit Selector<NSInteger()> tag { "tag" };
inline constinit Selector<void(NSInteger)> setTag { "setTag:" };
inline constinit Selector<id()> layer { "layer" };
inline constinit Selector<id()> superview { "superview" };
inline constinit Selector<id()> subviews { "subviews" };
inline constinit Selector<void(id)> addSubview { "addSubview:" };
inline constinit Selector<void(id)> bringSubviewToFront { "bringSubviewToFront:" };
inline constinit Selector<void()> removeFromSuperview { "removeFromSuperview" };
inline constinit Selector<void(id)> addGestureRecognizer { "addGestureRecognizer:" };
inline constinit Selector<void(id)> removeGestureRecognizer { "removeGestureRecognizer:" };
inline constinit Selector<void(double, double, NSUInteger, void (^)(), void (^)(BOOL))> animateWithDuration {
    "animateWithDuration:delay:options:animations:completion:"
};

// UIWindow.
inline constinit Selector<void(CGFloat)> setWindowLevel { "setWindowLevel:" };
inline constinit Selector<void()> makeKeyAndVisible { "makeKeyAndVisible" };
inline constinit Selector<id(CGPoint, id)> hitTest { "hitTest:withEvent:" };

// CALayer.
inline constinit Selector<void(bool)> setMasksToBounds { "setMasksToBounds:" };
inline constinit Selector<void(CGFloat)> setCornerRadius { "setCornerRadius:" };
inline constinit Selector<void(CGFloat)> setBorderWidth { "setBorderWidth:" };
inline constinit Selector<void(void* color)> setBorderColor { "setBorderColor:" };
inline constinit Selector<void()> removeAllAnimations { "removeAllAnimations" };

// UIColor, UIFont, UILabel, UIImage and UIImageView.
inline constinit Selector<id(CGFloat, CGFloat, CGFloat, CGFloat)> colorWithRed { "colorWithRed:green:blue:alpha:" };
inline constinit Selector<id()> blackColor { "blackColor" };
inline constinit Selector<id()> whiteColor { "whiteColor" };
inline constinit Selector<void*()> CGColor { "CGColor" };
inline constinit Selector<id(CGFloat, CGFloat)> systemFontOfSize { "systemFontOfSize:weight:" };
inline constinit Selector<void(id)> setText { "setText:" };
inline constinit Selector<void(NSInteger)> setTextAlignment { "setTextAlignment:" };
inline constinit Selector<void(id)> setFont { "setFont:" };
inline constinit Selector<void(id)> setTextColor { "setTextColor:" };
inline constinit Selector<id(NSInteger)> imageWithRenderingMode { "imageWithRenderingMode:" };
inline constinit Selector<id(id)> initWithImage { "initWithImage:" };
inline constinit Selector<void(id)> setTintColor { "setTintColor:" };

// Gesture recognisers.
inline constinit Selector<id(id, SEL)> initWithTarget { "initWithTarget:action:" };
inline constinit Selector<NSInteger()> state { "state" };
inline constinit Selector<CGPoint(id)> locationInView { "locationInView:" };

} // namespace panotra::ios::selectors
