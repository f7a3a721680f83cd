/// Hosts that answer, and not as expected.
#include "tests/hosts/MixerHostTest.h"

#include "simulator/systems/Systems.h"
#include "tests/hosts/Blocks.h"
#include "tests/hosts/Peers.h"
#include "tests/hosts/Raising.h"
#include "tests/hosts/classes/SystemClasses.h"

#include <array>

/// Scenes in an order, which a set of the platform's has not.
@interface ScenesInOrder : NSObject {
@public
    NSArray* _scenes;
}
- (NSArray*)allObjects;
@end

@implementation ScenesInOrder
- (NSArray*)allObjects
{
    return _scenes;
}
@end

namespace panotra::testing {

namespace {

constexpr int landscape = 3;

class OtherAnswers : public MixerHostTest {
protected:
    /// Of the groups and the sliders.
    std::vector<std::array<double, 4>> frames()
    {
        std::vector<std::array<double, 4>> all;
        const auto add = [&](const std::string& field) {
            const sim::Rect frame = view(field)->frame();
            all.push_back({ frame.x, frame.y, frame.width, frame.height });
        };
        for (int group = 0; group < 3; ++group)
            add("_groupView" + std::to_string(group));
        for (int slot = 0; slot < 12; ++slot)
            add("_volumeView" + std::to_string(slot));
        return all;
    }

    /// A panel as usual, then one whose content view has no size before the next layout. Answers the usual frames.
    std::vector<std::array<double, 4>> showPanelAsUsualAndLate();
};

bool isLaidOut = false;
bool laysOutWhenAsked = true;
IMP frameBefore = nullptr;

/// A content view has no size before the next layout.
DeviceRect frameOfALateContentView(id self, SEL selector)
{
    const auto* const view = hosts::peerAs<sim::View>(self);
    const auto* const backdrop = dynamic_cast<const sim::BackdropView*>(view->superview);
    if (!isLaidOut && backdrop != nullptr && backdrop->content == view)
        return {};
    return reinterpret_cast<DeviceRect (*)(id, SEL)>(frameBefore)(self, selector);
}

void layOut(id, SEL)
{
    isLaidOut = laysOutWhenAsked;
}

std::vector<std::array<double, 4>> OtherAnswers::showPanelAsUsualAndLate()
{
    launch();
    show(panel);
    auto usual = frames();
    dismiss();
    frameBefore = hook("UIView", "frame", reinterpret_cast<IMP>(frameOfALateContentView));
    hook("UIView", "layoutIfNeeded", reinterpret_cast<IMP>(layOut));
    show(panel);
    return usual;
}

id nothing(id, SEL)
{
    return nil;
}

id nothingFor(id, SEL, id)
{
    return nil;
}

int timesToRun = 1;
int animationCount = 0;

void animateAtOnce(Class, SEL, double, double, unsigned long, void* animations, void* completion)
{
    ++animationCount;
    for (int time = 0; time < timesToRun; ++time) {
        hosts::functionOfBlock(animations)();
        if (completion != nullptr)
            hosts::functionOfBlock(completion)();
    }
}

struct OnTheNewestHost : HostTest {
    OnTheNewestHost()
        : HostTest(systems::newest)
    {
    }
};

ScenesInOrder* connectedScenesInOrder = nil;

id answerConnectedScenes(id, SEL)
{
    return connectedScenesInOrder;
}

id mainScreenOfTheHost(id, SEL)
{
    return hosts::hostObjectFor(hosts::device().home->mainScreen());
}

id anotherScreen(id, SEL)
{
    static const id screen = [NSObject new];
    return screen;
}

/// A scene of a class of its own, which answers `screen` for its screen.
id makeScene(const char* superclass, const char* name, IMP screen)
{
    const Class made = objc_allocateClassPair(hosts::classNamed(superclass), name, 0);
    class_addMethod(made, sel_registerName("screen"), screen, "@@:");
    objc_registerClassPair(made);
    const id scene = NSAllocateObject(made, 0, nullptr);
    hosts::attachNewPeer(scene);
    return scene;
}

int dismissals = 0;

void countDismissal(id, SEL)
{
    ++dismissals;
}

} // namespace

TEST_F(OtherAnswers, AContentViewThatIsSizedAtTheNextLayoutIsLaidOutFirst)
{
    const auto usual = showPanelAsUsualAndLate();
    EXPECT_TRUE(isLaidOut);
    EXPECT_EQ(frames(), usual);
}

TEST_F(OtherAnswers, AContentViewThatIsNeverSizedCountsAsItsBackdrop)
{
    laysOutWhenAsked = false;
    const auto usual = showPanelAsUsualAndLate();
    EXPECT_FALSE(isLaidOut);
    EXPECT_EQ(frames(), usual);
}

TEST_F(OtherAnswers, ABannerBesideAStatusBarThatIsNotThereStandsAsBesideAHiddenOne)
{
    launch();
    device.screen->orientation = landscape;
    device.screen->statusBarHidden = true;
    show(banner);
    const double beside = view("_containerView")->center.x;
    dismiss();
    device.screen->statusBarHidden = false;
    hook("UIApplication", "statusBar", reinterpret_cast<IMP>(nothing));
    show(banner);
    EXPECT_EQ(view("_containerView")->center.x, beside);
}

TEST_F(OtherAnswers, WhatAHostRunsMoreThanOnceIsDoneOnce)
{
    launch();
    show(panel); // the first layout is another than all that follow
    dismiss();
    replaceClassMethod(
        "UIView", "animateWithDuration:delay:options:animations:completion:", reinterpret_cast<IMP>(animateAtOnce));
    std::vector<int> counts;
    for (const int times : { 1, 2 }) {
        timesToRun = times;
        animationCount = 0;
        show(panel);
        dismiss();
        counts.push_back(animationCount);
    }
    EXPECT_GT(counts[0], 2);
    EXPECT_EQ(counts[1], counts[0]);
}

TEST_F(OtherAnswers, WhereNothingCanBeAnimatedEverythingIsDoneAtOnce)
{
    launch();
    hosts::raiseWhere([](std::string_view asked) {
        return asked == "+[UIView animateWithDuration:delay:options:animations:completion:]";
    });
    show(panel);
    EXPECT_GT(hosts::raised(), 0u);
    EXPECT_EQ(view("_containerView")->alpha, 1.0);
    dismiss();
    EXPECT_EQ(held("_window"), nullptr);
    hosts::raiseWhere({});
}

TEST_F(OtherAnswers, ABannerStandsSoTooWhereTheQuestionForTheStatusBarRaises)
{
    launch();
    device.screen->orientation = landscape;
    device.screen->statusBarHidden = true;
    show(banner);
    const double beside = view("_containerView")->center.x;
    dismiss();
    device.screen->statusBarHidden = false;
    hosts::raiseWhere([](std::string_view asked) { return asked == "-[SpringBoard statusBar]"; });
    show(banner);
    EXPECT_EQ(hosts::raised(), 1u);
    hosts::raiseWhere({});
    EXPECT_EQ(view("_containerView")->center.x, beside);
}

TEST_F(OtherAnswers, AListenerWithoutABundleHasNoIconRatherThanOneOfTheProcess)
{
    const Class metaclass = object_getClass([NSBundle class]);
    const Method method = class_getInstanceMethod(metaclass, @selector(bundleWithPath:));
    class_replaceMethod(
        metaclass, @selector(bundleWithPath:), reinterpret_cast<IMP>(nothingFor), method_getTypeEncoding(method));
    launch();
    events.clear();
    device.home->askActivator("icon", "net.qorvath.panotra.presentmixer");
    ASSERT_EQ(countOf("answer"), 1u);
    EXPECT_TRUE(events.back()["value"].is_null());
    show(banner);
}

TEST_F(OnTheNewestHost, TheWindowJoinsTheFirstWindowSceneOfTheMainScreen)
{
    HostObject* const expected = device.home->windowScene();
    connectedScenesInOrder = [ScenesInOrder new];
    connectedScenesInOrder->_scenes = [[NSArray alloc]
        initWithObjects:makeScene("UIScene", "SceneOfNoWindows", reinterpret_cast<IMP>(mainScreenOfTheHost)),
        makeScene("UIWindowScene", "SceneOfAnotherScreen", reinterpret_cast<IMP>(anotherScreen)),
        hosts::hostObjectFor(expected),
        makeScene("UIWindowScene", "SecondSceneOfTheScreen", reinterpret_cast<IMP>(mainScreenOfTheHost)), nil];
    launch();
    hook("UIApplication", "connectedScenes", reinterpret_cast<IMP>(answerConnectedScenes));
    device.home->sendActivatorEvent("net.qorvath.panotra.presentmixer");
    pass(1);
    const auto* const window = dynamic_cast<const sim::Window*>(device.home->window());
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->scene, expected);
    EXPECT_EQ(countOf("windowShown"), 1u);
}

/// What `AXSpringBoardServer` is since iOS 13.
TEST_F(OtherAnswers, AnAssistantThatCannotBeOpenedIsLeftAloneAltogether)
{
    const Class server = objc_allocateClassPair([NSObject class], "ServerWithoutOpening", 0);
    class_addMethod(server, sel_registerName("isSiriVisible"), reinterpret_cast<IMP>(nothing), "B@:");
    class_addMethod(server, sel_registerName("dismissSiri"), reinterpret_cast<IMP>(countDismissal), "v@:");
    objc_registerClassPair(server);
    static id made = [server new];
    const auto answer = +[](id, SEL) -> id {
        return made;
    };
    class_replaceMethod(object_getClass(objc_lookUpClass("AXSpringBoardServer")), sel_registerName("server"),
        reinterpret_cast<IMP>(answer), "@@:");
    launch();
    show(panel);
    device.home->pan(10, 1, 30);
    device.home->pan(10, 3, 60);
    pass();
    EXPECT_EQ(dismissals, 0);
    EXPECT_EQ(countOf("assistant"), 0u);
}

} // namespace panotra::testing
