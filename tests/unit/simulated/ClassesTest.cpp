/// Classes of ours in the device's class table, hooks, messages to super.
#include "platform/AVSystemController.h"
#include "platform/MethodEntry.h"
#include "platform/MethodReplacement.h"
#include "platform/UIWindow.h"
#include "tests/unit/simulated/SeamTest.h"

#include <cstddef>
#include <memory>

namespace panotra {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> told;

/// A window of ours with a field, and an override that lets the left half through.
class PaneWindow : public UIWindow {
public:
    using UIWindow::UIWindow;

    struct Fields {
        UIView _rootView;
        CGFloat level = 0.5;
        bool _isOpen = true;
    };

    static const ClassDescription& description()
    {
        static const InstanceVariable variables[] = {
            instanceVariable<UIView>("_rootView", offsetof(Fields, _rootView)),
            instanceVariable<CGFloat>("level", offsetof(Fields, level)),
            instanceVariable<bool>("_isOpen", offsetof(Fields, _isOpen)),
        };
        static const Method methods[] = {
            methodEntry<&PaneWindow::hitTest>("hitTest:withEvent:"),
            methodEntry<&PaneWindow::name>("name"),
        };
        static const ClassDescription description {
            "PaneWindow",
            "UIWindow",
            variables,
            methods,
            {},
            sizeof(Fields),
            [](void* memory) { std::construct_at(static_cast<Fields*>(memory)); },
            [](id, void* memory) {
                told.push_back("dealloc");
                std::destroy_at(static_cast<Fields*>(memory));
            },
        };
        return description;
    }

    static PaneWindow make(CGRect frame)
    {
        return adopt<PaneWindow>(superInitWithFrame(allocate(description()), description(), frame));
    }
    Fields& fields() const { return *static_cast<Fields*>(instanceVariables(get(), description())); }
    UIView hitTest(CGPoint point, const NSObject& event) const
    {
        return point.x < 50 ? UIView() : superHitTest(description(), point, event);
    }
    NSString name() const { return NSString::stringWithUTF8String("pane"); }
};

class ClassesTest : public SeamTest {
protected:
    ClassesTest() { told.clear(); }
};

TEST_F(ClassesTest, AnObjectOfAClassOfOursIsWhatItsSuperclassMakes)
{
    const PaneWindow window = PaneWindow::make(CGRectMake(0, 0, 100, 200));
    EXPECT_EQ(window.frame(), CGRectMake(0, 0, 100, 200));
    EXPECT_EQ(window.get()->isa->name, "PaneWindow");
    EXPECT_TRUE(window.get()->isa->inheritsFrom("UIWindow"));
    EXPECT_EQ(objc_getClass("PaneWindow"), window.get()->isa);
    EXPECT_EQ(window.get()->references, 1u);
}

TEST_F(ClassesTest, ItsFieldsAreReadByKey)
{
    const PaneWindow window = PaneWindow::make(CGRect());
    EXPECT_FALSE(window.valueForKey("_rootView"));
    window.fields()._rootView = UIView::init();
    window.fields().level = 0.75;
    EXPECT_EQ(window.valueForKey("_rootView"), window.fields()._rootView);
    EXPECT_EQ(window.valueForKey("level").doubleValue(), 0.75);
    EXPECT_TRUE(window.valueForKey("_isOpen").boolValue());
    EXPECT_FALSE(window.valueForKey("_isShut"));
    EXPECT_THAT(device.nameOf(window.fields()._rootView.get()), ::testing::Pointee(std::string("_rootView")));
}

TEST_F(ClassesTest, ItsMethodsAreReachedBySelector)
{
    const PaneWindow window = PaneWindow::make(CGRect());
    EXPECT_TRUE(window.respondsToSelector("name"));
    EXPECT_FALSE(window.respondsToSelector("surname"));
    EXPECT_TRUE(window.respondsToSelector("setFrame:"));
    HostObject* const name = sim::send<HostObject*>(window.get(), sim::selector("name"));
    EXPECT_EQ(NSString::checked(retained<NSObject>(name)).view(), "pane");
}

TEST_F(ClassesTest, ItsOverrideIsFoundByTheHostAndReachesTheSuperclass)
{
    const PaneWindow window = PaneWindow::make(CGRectMake(0, 0, 100, 200));
    const auto hit = [&](double x) {
        HostObject* const event = nullptr;
        return sim::send<HostObject*>(window.get(), sim::selector("hitTest:withEvent:"), sim::Point { x, 10 }, event);
    };
    EXPECT_EQ(hit(40), nullptr);
    EXPECT_EQ(hit(60), window.get());
    EXPECT_EQ(hit(100), nullptr);
}

TEST_F(ClassesTest, ItsDeallocRunsWithTheLastHandleAndItsFieldsGo)
{
    const std::size_t before = device.classes->liveObjects();
    {
        const PaneWindow window = PaneWindow::make(CGRect());
        window.fields()._rootView = UIView::init();
        const PaneWindow copy = window;
    }
    EXPECT_THAT(told, ElementsAre("dealloc"));
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(ClassesTest, WithoutItsSuperclassThereIsNoObject)
{
    lack("UIWindow");
    EXPECT_FALSE(PaneWindow::make(CGRect()));
    EXPECT_EQ(objc_getClass("PaneWindow"), nullptr);
}

TEST_F(ClassesTest, TheBlockOfAnotherClassIsNotHandedOut)
{
    EXPECT_EQ(instanceVariables(UIWindow().get(), PaneWindow::description()), nullptr);
    EXPECT_EQ(instanceVariables(UIView::init().get(), PaneWindow::description()), nullptr);
}

/// What a superclass's `init` answers instead of its receiver, whose count it takes.
HostObject* answeredInstead = nullptr;

HostObject* initOfAnother(HostObject* self, const HostSelector*)
{
    sim::release(self);
    sim::retain(answeredInstead);
    return answeredInstead;
}

TEST_F(ClassesTest, ASuperclassMayRefuseToInitialiseOrAnswerAnotherObjectAndNoCountIsLostOrLeft)
{
    objc_getClass("NSObject")->methods[sim::selector("init")] = sim::implementation(initOfAnother);
    const NSString other = NSString::stringWithUTF8String("other");
    const std::size_t before = device.classes->liveObjects();
    for (HostObject* const answer : { static_cast<HostObject*>(nullptr), other.get() }) {
        answeredInstead = answer;
        {
            const auto object = adopt<NSObject>(allocate(PaneWindow::description()));
            EXPECT_EQ(superInit(object.get(), PaneWindow::description()), answer);
            EXPECT_EQ(object.get()->references, 1u) << "the caller keeps its count";
        }
        device.classes->drainAutoreleasePool();
        EXPECT_EQ(device.classes->liveObjects(), before);
        EXPECT_EQ(other.get()->references, 1u);
    }
    answeredInstead = nullptr;
}

IMP previousSetVolume = nullptr;

bool setVolumeHook(id self, SEL selector, float level, id category) noexcept
{
    told.push_back("hook");
    return reinterpret_cast<bool (*)(id, SEL, float, id)>(previousSetVolume)(self, selector, level / 2, category);
}

TEST_F(ClassesTest, AHookIsPassedByOurOwnMessagesToo)
{
    replaceMethod(objc_getClass("AVSystemController"), "setVolumeTo:forCategory:", reinterpret_cast<IMP>(setVolumeHook),
        &previousSetVolume);
    EXPECT_TRUE(
        AVSystemController::sharedAVSystemController().setVolumeTo(0.5f, NSString::stringWithUTF8String("Alarm")));
    EXPECT_THAT(told, ElementsAre("hook"));
    EXPECT_EQ(device.audio->level("Alarm"), 0.25f);
    EXPECT_THAT(eventNames(), ElementsAre("hook", "setVolume"));
}

TEST_F(ClassesTest, HookingNothingReportsNothingAndLeavesThePreviousImplementation)
{
    IMP previous = nullptr;
    replaceMethod(objc_getClass("NobodyHasHeardOfIt"), "init", reinterpret_cast<IMP>(setVolumeHook), &previous);
    replaceMethod(objc_getClass("UIView"), "unheardOf", reinterpret_cast<IMP>(setVolumeHook), &previous);
    EXPECT_EQ(previous, nullptr);
    EXPECT_TRUE(events.empty());
}

} // namespace
} // namespace panotra
