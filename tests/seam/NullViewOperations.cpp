/// Views, layers, labels, images and windows on null.
#include "platform/UIBackdropView.h"
#include "platform/UIGestureRecognizer.h"
#include "platform/UIImage.h"
#include "platform/UILabel.h"
#include "platform/UIWindow.h"
#include "tests/seam/NullOperations.h"

namespace panotra {

namespace {

constexpr CGAffineTransform doubled { 2, 0, 0, 2, 0, 0 };

} // namespace

std::vector<Operation> operationsOfViews()
{
    const UIView view;
    return {
        operation("frame", [=] { return view.frame() == CGRect(); }),
        operation("setFrame", [=] { view.setFrame(CGRectMake(1, 2, 3, 4)); }),
        operation("bounds", [=] { return view.bounds() == CGRect(); }),
        operation("center", [=] { return view.center() == CGPoint(); }),
        operation("setCenter",
            [=] {
                view.setCenter({ 1, 2 });
            }),
        operation("setTransform", [=] { view.setTransform(doubled); }),
        operation("alpha", [=] { return view.alpha() == 0; }),
        operation("setAlpha", [=] { view.setAlpha(1); }),
        operation("isHidden", [=] { return !view.isHidden(); }),
        operation("setHidden", [=] { view.setHidden(true); }),
        operation("layoutIfNeeded", [=] { view.layoutIfNeeded(); }),
        operation("setBackgroundColor", [=] { view.setBackgroundColor(nullptr); }),
        operation("setUserInteractionEnabled", [=] { view.setUserInteractionEnabled(true); }),
        operation("tag", [=] { return view.tag() == 0; }),
        operation("setTag", [=] { view.setTag(7); }),
        operation("layer", [=] { return !view.layer(); }),
        operation("superview", [=] { return !view.superview(); }),
        operation("addSubview", [=] { view.addSubview(view); }),
        operation("bringSubviewToFront", [=] { view.bringSubviewToFront(view); }),
        operation("removeFromSuperview", [=] { view.removeFromSuperview(); }),
        operation("addGestureRecognizer", [=] { view.addGestureRecognizer(nullptr); }),
        operation("removeGestureRecognizer", [=] { view.removeGestureRecognizer(nullptr); }),
        operation("setMasksToBounds", [] { CALayer().setMasksToBounds(true); }),
        operation("setCornerRadius", [] { CALayer().setCornerRadius(1); }),
        operation("setBorderWidth", [] { CALayer().setBorderWidth(1); }),
        operation("setBorderColor", [] { CALayer().setBorderColor(nullptr); }),
        operation("setContinuousCorners", [] { CALayer().setContinuousCorners(true); }),
        operation("removeAllAnimations", [] { CALayer().removeAllAnimations(); }),
        operation("setBlurRadius", [] { UIBackdropView().setBlurRadius(30); }),
        operation("transitionToStyle", [] { UIBackdropView().transitionToStyle(2010); }),
        operation("contentView", [] { return !UIBackdropView().contentView(); }),
        operation("effectView", [] { return !UIBackdropView().effectView(); }),
        operation(
            "recogniser state", [] { return UIGestureRecognizer().state() == UIGestureRecognizerState::Possible; }),
        operation("locationInView", [=] { return UIGestureRecognizer().locationInView(view) == CGPoint(); }),
        operation("imageNamed", [] { return !UIImage::imageNamed(nullptr, nullptr); }),
        operation("imageWithRenderingMode", [] { return !UIImage().imageWithRenderingMode(2); }),
        operation("UIImagePNGRepresentation", [] { return !UIImagePNGRepresentation(nullptr); }),
        operation("setTintColor", [] { UIImageView().setTintColor(nullptr); }),
        operation("setText", [] { UILabel().setText(nullptr); }),
        operation("setTextAlignment", [] { UILabel().setTextAlignment(1); }),
        operation("setFont", [] { UILabel().setFont(nullptr); }),
        operation("setTextColor", [] { UILabel().setTextColor(nullptr); }),
        operation("setWindowLevel", [] { UIWindow().setWindowLevel(UIWindowLevelAlert); }),
        operation("makeKeyAndVisible", [] { UIWindow().makeKeyAndVisible(); }),
        operation("setWindowScene", [] { UIWindow().setWindowScene(nullptr); }),
        operation(
            "superInitWithFrame", [] { return UIWindow::superInitWithFrame(nullptr, nobody(), CGRect()) == nullptr; }),
        operation("superHitTest", [] { return !UIWindow().superHitTest(nobody(), {}, nullptr); }),
    };
}

} // namespace panotra
