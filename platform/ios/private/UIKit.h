/// UIKit's private interface: the blur view, the upright screen, the orientation and the status bar.
#pragma once

#include "platform/CoreGraphics.h"
#include "platform/ios/Abi.h"
#include "platform/ios/Names.h"

namespace panotra::ios {

namespace classes {

/// The blur view of the system's own panels, since iOS 7. The public blur view has no radius to animate.
inline constinit ClassName UIBackdropView { "_UIBackdropView" };
/// Its materials, by number.
inline constinit ClassName UIBackdropViewSettings { "_UIBackdropViewSettings" };

} // namespace classes

namespace selectors {

/// Class method of the settings. Both numbers are NSInteger: the family's own style codes, and 100 for the best
/// quality.
inline constinit Selector<id(NSInteger style, NSInteger quality)> settingsForStyle {
    "settingsForStyle:graphicsQuality:"
};
/// The flag makes the view follow its superview's size; no other initialiser takes it.
inline constinit Selector<id(CGRect, bool autosizes, id settings)> initBackdrop {
    "initWithFrame:autosizesToFitSuperview:settings:"
};
/// Points. Animatable, which is what the fade-in is made of.
inline constinit Selector<void(CGFloat)> setBlurRadius { "setBlurRadius:" };
/// Another material for a view that is already there.
inline constinit Selector<void(NSInteger style)> transitionToStyle { "transitionToStyle:" };
/// Subviews belong here: the material covers what is added to the backdrop itself.
inline constinit Selector<id()> contentView { "contentView" };
/// Draws the material: transparent, it leaves the plain background.
inline constinit Selector<id()> effectView { "effectView" };

/// UIScreen: pixels, upright whatever the orientation. Not on every system.
inline constinit Selector<CGRect()> realDisplayBounds { "_realDisplayBounds" };
/// UIScreen: points, upright. What systems without the former have.
inline constinit Selector<CGRect()> referenceBounds { "_referenceBounds" };

/// UIApplication: the orientation of what is in front, an app included; the public one is the home screen's own.
inline constinit Selector<NSInteger()> activeInterfaceOrientation { "activeInterfaceOrientation" };
/// UIApplication: the view itself, of which the public interface tells only the frame.
inline constinit Selector<id()> statusBar { "statusBar" };

/// UIImage: a picture of a bundle at the screen's scale. The public method beside it also wants a trait collection.
inline constinit Selector<id(id name, id bundle)> imageNamedInBundle { "imageNamed:inBundle:" };

} // namespace selectors
} // namespace panotra::ios
