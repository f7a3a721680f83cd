/// Every operation of the seam on null: each is a defined no-operation that answers zero, empty or null, and
/// nothing is asked of the host.
#include "platform/AVSystemController.h"
#include "platform/Dispatch.h"
#include "platform/LAActivator.h"
#include "platform/NSUserDefaults.h"
#include "platform/Notify.h"
#include "platform/SpringBoard.h"
#include "platform/UIBackdropView.h"
#include "platform/UIEvent.h"
#include "platform/UIGestureRecognizer.h"
#include "platform/UIImage.h"
#include "platform/UILabel.h"
#include "platform/UIScreen.h"
#include "platform/VolumeOverlays.h"
#include "tests/unit/simulated/SeamTest.h"

#include <functional>
#include <utility>

namespace panotra {
namespace {

constexpr CGAffineTransform doubled { 2, 0, 0, 2, 0, 0 };

const ClassDescription& nobody()
{
    static const ClassDescription description {
        "Nobody",
        "NobodyHasHeardOfIt",
        {},
        {},
        {},
        0,
        [](void*) {},
        [](id, void*) {},
    };
    return description;
}

struct Operation {
    const char* name;
    /// Whether what it answered is what null answers.
    std::function<bool()> answersNothing;
};

template <typename Function> Operation returnsNothing(const char* name, Function function)
{
    return { name, [function] {
                function();
                return true;
            } };
}

/// The operations of plain handles.
std::vector<Operation> operationsOfObjects()
{
    const NSObject object;
    return {
        { "isEqual",
            [=] {
                return !object.isEqual(object);
            } },
        { "respondsToSelector",
            [=] {
                return !object.respondsToSelector("init");
            } },
        { "valueForKey",
            [=] {
                return !object.valueForKey("_window");
            } },
        { "boolValue",
            [=] {
                return !object.boolValue();
            } },
        { "floatValue",
            [=] {
                return object.floatValue() == 0;
            } },
        { "doubleValue",
            [=] {
                return object.doubleValue() == 0;
            } },
        { "integerValue",
            [=] {
                return object.integerValue() == 0;
            } },
        { "unsignedShortValue",
            [=] {
                return object.unsignedShortValue() == 0;
            } },
        returnsNothing("performSelector", [=] { object.performSelector("init", object, 0); }),
        { "stringWithUTF8String",
            [] {
                return !NSString::stringWithUTF8String(nullptr);
            } },
        { "NSString::checked",
            [=] {
                return !NSString::checked(object);
            } },
        { "view",
            [] {
                return NSString().view().empty();
            } },
        { "isEqualToString",
            [] {
                return !NSString().isEqualToString("");
            } },
        { "NSDictionary::checked",
            [=] {
                return !NSDictionary::checked(object);
            } },
        { "NSDictionary objectForKey",
            [] {
                return !NSDictionary().objectForKey("AudioCategory");
            } },
        { "initWithSuiteName",
            [] {
                return !NSUserDefaults::initWithSuiteName(nullptr);
            } },
        returnsNothing("synchronize", [] { NSUserDefaults().synchronize(); }),
        { "NSUserDefaults objectForKey",
            [] {
                return !NSUserDefaults().objectForKey(nullptr);
            } },
        returnsNothing("setObject", [] { NSUserDefaults().setObject(nullptr, nullptr); }),
        { "bundleWithPath",
            [] {
                return !NSBundle::bundleWithPath(nullptr);
            } },
        { "bundleIdentifier",
            [] {
                return !NSBundle().bundleIdentifier();
            } },
    };
}

/// The operations of the home screen's own classes.
std::vector<Operation> operationsOfServices()
{
    return {
        { "setVolumeTo",
            [] {
                return !AVSystemController().setVolumeTo(0.5f, nullptr);
            } },
        { "getVolume",
            [] {
                float level = 0.25f;
                return !AVSystemController().getVolume(&level, nullptr) && level == 0.25f;
            } },
        { "attributeForKey",
            [] {
                return !AVSystemController().attributeForKey(AVController_ActiveAudioRouteAttribute);
            } },
        returnsNothing("registerListener", [] { LAActivator().registerListener(nullptr, "name"); }),
        returnsNothing("setHandled", [] { LAEvent().setHandled(true); }),
        { "activeInterfaceOrientation",
            [] {
                return UIApplication().activeInterfaceOrientation() == 0;
            } },
        { "statusBar",
            [] {
                return !UIApplication().statusBar();
            } },
        { "windowRotationDuration",
            [] {
                return SpringBoard().windowRotationDuration() == 0;
            } },
        { "isSpringBoardStatusBarHidden",
            [] {
                return !SpringBoard().isSpringBoardStatusBarHidden();
            } },
        { "isSiriVisible",
            [] {
                return !AXSpringBoardServer().isSiriVisible();
            } },
        returnsNothing("openSiri", [] { AXSpringBoardServer().openSiri(); }),
        returnsNothing("dismissSiri", [] { AXSpringBoardServer().dismissSiri(); }),
        { "assistant window",
            [] {
                return !SBAssistantController().window();
            } },
        { "event type",
            [] {
                return UIEvent().type() == 0;
            } },
        { "soundType",
            [] {
                return SBSound().soundType() == 0;
            } },
        { "firstSubview",
            [] {
                return !MeliorWindow().firstSubview();
            } },
        returnsNothing("hideImmediatelyIfPossible", [] { ABVolumeHUDVisibilityManager().hideImmediatelyIfPossible(); }),
        { "visibilityManager",
            [] {
                return !ABVolumeHUDManager().visibilityManager();
            } },
        { "targetView",
            [] {
                return !ABVolumeHUDManager().targetView();
            } },
        { "screen bounds",
            [] {
                return UIScreen().bounds() == CGRect();
            } },
        { "scale",
            [] {
                return UIScreen().scale() == 0;
            } },
        { "realDisplayBounds",
            [] {
                return UIScreen().realDisplayBounds() == CGRect();
            } },
        { "referenceBounds",
            [] {
                return UIScreen().referenceBounds() == CGRect();
            } },
    };
}

/// The operations of views and what belongs to them.
std::vector<Operation> operationsOfViews()
{
    const UIView view;
    return {
        { "frame",
            [=] {
                return view.frame() == CGRect();
            } },
        returnsNothing("setFrame", [=] { view.setFrame(CGRectMake(1, 2, 3, 4)); }),
        { "bounds",
            [=] {
                return view.bounds() == CGRect();
            } },
        { "center",
            [=] {
                return view.center() == CGPoint();
            } },
        returnsNothing("setCenter",
            [=] {
                view.setCenter({ 1, 2 });
            }),
        returnsNothing("setTransform", [=] { view.setTransform(doubled); }),
        { "alpha",
            [=] {
                return view.alpha() == 0;
            } },
        returnsNothing("setAlpha", [=] { view.setAlpha(1); }),
        returnsNothing("setHidden", [=] { view.setHidden(true); }),
        returnsNothing("setBackgroundColor", [=] { view.setBackgroundColor(nullptr); }),
        returnsNothing("setUserInteractionEnabled", [=] { view.setUserInteractionEnabled(true); }),
        { "tag",
            [=] {
                return view.tag() == 0;
            } },
        returnsNothing("setTag", [=] { view.setTag(7); }),
        { "layer",
            [=] {
                return !view.layer();
            } },
        { "superview",
            [=] {
                return !view.superview();
            } },
        returnsNothing("addSubview", [=] { view.addSubview(view); }),
        returnsNothing("bringSubviewToFront", [=] { view.bringSubviewToFront(view); }),
        returnsNothing("removeFromSuperview", [=] { view.removeFromSuperview(); }),
        returnsNothing("addGestureRecognizer", [=] { view.addGestureRecognizer(nullptr); }),
        returnsNothing("removeGestureRecognizer", [=] { view.removeGestureRecognizer(nullptr); }),
        returnsNothing("setMasksToBounds", [] { CALayer().setMasksToBounds(true); }),
        returnsNothing("setCornerRadius", [] { CALayer().setCornerRadius(1); }),
        returnsNothing("setBorderWidth", [] { CALayer().setBorderWidth(1); }),
        returnsNothing("setBorderColor", [] { CALayer().setBorderColor(nullptr); }),
        returnsNothing("setContinuousCorners", [] { CALayer().setContinuousCorners(true); }),
        returnsNothing("removeAllAnimations", [] { CALayer().removeAllAnimations(); }),
        returnsNothing("setBlurRadius", [] { UIBackdropView().setBlurRadius(30); }),
        returnsNothing("transitionToStyle", [] { UIBackdropView().transitionToStyle(2010); }),
        { "contentView",
            [] {
                return !UIBackdropView().contentView();
            } },
        { "effectView",
            [] {
                return !UIBackdropView().effectView();
            } },
        { "recogniser state",
            [] {
                return UIGestureRecognizer().state() == UIGestureRecognizerState::Possible;
            } },
        { "locationInView",
            [=] {
                return UIGestureRecognizer().locationInView(view) == CGPoint();
            } },
        { "imageNamed",
            [] {
                return !UIImage::imageNamed(nullptr, nullptr);
            } },
        { "imageWithRenderingMode",
            [] {
                return !UIImage().imageWithRenderingMode(2);
            } },
        { "UIImagePNGRepresentation",
            [] {
                return !UIImagePNGRepresentation(nullptr);
            } },
        returnsNothing("setTintColor", [] { UIImageView().setTintColor(nullptr); }),
        returnsNothing("setText", [] { UILabel().setText(nullptr); }),
        returnsNothing("setTextAlignment", [] { UILabel().setTextAlignment(1); }),
        returnsNothing("setFont", [] { UILabel().setFont(nullptr); }),
        returnsNothing("setTextColor", [] { UILabel().setTextColor(nullptr); }),
        returnsNothing("setWindowLevel", [] { UIWindow().setWindowLevel(UIWindowLevelAlert); }),
        returnsNothing("makeKeyAndVisible", [] { UIWindow().makeKeyAndVisible(); }),
        { "superInitWithFrame",
            [] {
                return UIWindow::superInitWithFrame(nullptr, nobody(), CGRect()) == nullptr;
            } },
        { "superHitTest",
            [] {
                return !UIWindow().superHitTest(nobody(), {}, nullptr);
            } },
    };
}

/// The free functions.
std::vector<Operation> operationsOfTheRuntime()
{
    return {
        { "objc_getClass",
            [] {
                return objc_getClass(nullptr) == nullptr;
            } },
        { "MSHookMessageEx",
            [] {
                IMP previous = nullptr;
                MSHookMessageEx(
                    nullptr, "init", [] {}, &previous);
                return previous == nullptr;
            } },
        returnsNothing("retain", [] { retain(nullptr); }),
        returnsNothing("release", [] { release(nullptr); }),
        { "autorelease",
            [] {
                return autorelease(nullptr) == nullptr;
            } },
        returnsNothing("objc_autoreleasePoolPush", [] { objc_autoreleasePoolPop(objc_autoreleasePoolPush()); }),
        { "allocate",
            [] {
                return allocate(nobody()) == nullptr;
            } },
        { "superInit",
            [] {
                return superInit(nullptr, nobody()) == nullptr;
            } },
        { "instanceVariables",
            [] {
                return instanceVariables(nullptr, nobody()) == nullptr;
            } },
        { "notify_register_check",
            [] {
                std::int32_t token = -1;
                notify_register_check(nullptr, &token);
                return token == -1;
            } },
        { "notify_get_state",
            [] {
                return notify_get_state(-1) == 0;
            } },
        returnsNothing("notify_post", [] { notify_post(nullptr); }),
        returnsNothing("addDarwinObserver", [] { addDarwinObserver("name", nullptr); }),
    };
}

class NullHandles : public SeamTest, public ::testing::WithParamInterface<std::vector<Operation> (*)()> { };

TEST_P(NullHandles, AnswerNothingAndAskNothingOfTheHost)
{
    const std::size_t objects = device.classes->liveObjects();
    for (const Operation& operation : GetParam()()) {
        EXPECT_TRUE(operation.answersNothing()) << operation.name;
        EXPECT_TRUE(events.empty()) << operation.name;
        EXPECT_EQ(device.classes->liveObjects(), objects) << operation.name;
    }
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
}

INSTANTIATE_TEST_SUITE_P(EverySeamClass, NullHandles,
    ::testing::Values(operationsOfObjects, operationsOfServices, operationsOfViews, operationsOfTheRuntime));

TEST(WithoutADevice, EveryOperationBehavesAsOnNull)
{
    NSObject left;
    {
        sim::Device device;
        left = UIView::init();
        EXPECT_TRUE(left);
    }
    for (const auto operations :
        { operationsOfObjects, operationsOfServices, operationsOfViews, operationsOfTheRuntime }) {
        for (const Operation& operation : operations())
            EXPECT_TRUE(operation.answersNothing()) << operation.name;
    }
    EXPECT_FALSE(left.respondsToSelector("init"));
    EXPECT_FALSE(UIView::init());
    EXPECT_FALSE(NSString::stringWithUTF8String("text"));
    EXPECT_FALSE(UIScreen::mainScreen());
    EXPECT_FALSE(NSBundle::mainBundle());
    bool ran = false;
    UIView::animateWithDuration(
        0, 0, 0, [&] { ran = true; }, nullptr);
    dispatch_after(0, [&] { ran = true; });
    EXPECT_FALSE(ran);
}

/// Handles of the wrong kind are foreign values too: they are as good as null.
TEST_F(SeamTest, AHandleOnAnObjectOfAnotherKindDoesNothing)
{
    const NSString text = NSString::stringWithUTF8String("no view");
    const auto view = retained<UIBackdropView>(text.get());
    view.setFrame(CGRectMake(1, 2, 3, 4));
    view.setBlurRadius(3);
    EXPECT_EQ(view.frame(), CGRect());
    EXPECT_FALSE(view.contentView());
    EXPECT_FALSE(retained<NSDictionary>(text.get()).objectForKey("key"));
    EXPECT_TRUE(retained<NSString>(UIView::init().get()).view().empty());
}

} // namespace
} // namespace panotra
