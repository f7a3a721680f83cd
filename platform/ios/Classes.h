/// The table of classes: every public class that is named here. Those that the platform keeps to itself, and those of
/// other people's libraries, stand in private/ in the same form.
#pragma once

#include "platform/ios/Names.h"

namespace panotra::ios::classes {

inline constinit ClassName NSObject { "NSObject" };
inline constinit ClassName NSBundle { "NSBundle" };
inline constinit ClassName NSDictionary { "NSDictionary" };
inline constinit ClassName NSNumber { "NSNumber" };
inline constinit ClassName NSString { "NSString" };
inline constinit ClassName NSUserDefaults { "NSUserDefaults" };
inline constinit ClassName UIApplication { "UIApplication" };
inline constinit ClassName UIColor { "UIColor" };
inline constinit ClassName UIFont { "UIFont" };
inline constinit ClassName UIImage { "UIImage" };
inline constinit ClassName UIImageView { "UIImageView" };
inline constinit ClassName UILabel { "UILabel" };
inline constinit ClassName UIPanGestureRecognizer { "UIPanGestureRecognizer" };
inline constinit ClassName UIScreen { "UIScreen" };
inline constinit ClassName UIView { "UIView" };
/// Since iOS 13.
inline constinit ClassName UIWindowScene { "UIWindowScene" };

} // namespace panotra::ios::classes
