/// Classes, methods, hooks and the life of objects.
#include "tests/unit/device/DeviceTest.h"

#include <cstring>

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> told;

int answerOne(HostObject*, const HostSelector*)
{
    return 1;
}

HostClass::Implementation previousOfOuter = nullptr;
HostClass::Implementation previousOfInner = nullptr;

int innerHook(HostObject* self, const HostSelector* name)
{
    told.push_back("inner");
    return call<int>(previousOfInner, self, name) + 10;
}

int outerHook(HostObject* self, const HostSelector* name)
{
    told.push_back("outer");
    return call<int>(previousOfOuter, self, name) + 100;
}

class ClassTableTest : public DeviceTest {
protected:
    ClassTableTest()
    {
        told.clear();
        base.methods[answer] = implementation(answerOne);
    }

    const HostSelector* const answer = selector("answer");
    HostClass& base = device.classes->add("Base", "NSObject");
    HostClass& derived = device.classes->add("Derived", "Base");
};

TEST_F(ClassTableTest, EqualSelectorsAreTheSameObject)
{
    EXPECT_EQ(selector("answer"), answer);
    EXPECT_NE(selector("answer:"), answer);
    EXPECT_EQ(selector("answer")->name, "answer");
}

TEST_F(ClassTableTest, AMessageFindsTheMethodOfTheClassOrOfASuperclass)
{
    EXPECT_EQ(send<int>(device.classes->instantiate(base), answer), 1);
    EXPECT_EQ(send<int>(device.classes->instantiate(derived), answer), 1);
}

TEST_F(ClassTableTest, AMessageToNothingOrOfAnUnknownNameAnswersNothing)
{
    EXPECT_EQ(send<int>(nullptr, answer), 0);
    EXPECT_EQ(send<int>(device.classes->instantiate(base), selector("unheardOf")), 0);
}

TEST_F(ClassTableTest, AHookTakesThePlaceOfTheMethodAndGetsThePreviousOne)
{
    EXPECT_TRUE(device.classes->replace(base, answer, implementation(innerHook), &previousOfInner));
    EXPECT_EQ(send<int>(device.classes->instantiate(base), answer), 11);
    EXPECT_THAT(told, ElementsAre("inner"));
    EXPECT_EQ(events,
        (std::vector<Json> { { { "t", 0.0 }, { "event", "hook" }, { "class", "Base" }, { "method", "answer" } } }));
}

TEST_F(ClassTableTest, TwoHooksOnOneMethodFormAChain)
{
    device.classes->replace(base, answer, implementation(innerHook), &previousOfInner);
    device.classes->replace(base, answer, implementation(outerHook), &previousOfOuter);
    EXPECT_EQ(send<int>(device.classes->instantiate(base), answer), 111);
    EXPECT_THAT(told, ElementsAre("outer", "inner"));
}

TEST_F(ClassTableTest, AHookOnAnInheritedMethodLeavesTheSuperclassAlone)
{
    EXPECT_TRUE(device.classes->replace(derived, answer, implementation(innerHook), &previousOfInner));
    EXPECT_EQ(send<int>(device.classes->instantiate(derived), answer), 11);
    EXPECT_EQ(send<int>(device.classes->instantiate(base), answer), 1);
}

TEST_F(ClassTableTest, AMethodThatTheClassNeitherHasNorInheritsIsNotHooked)
{
    HostClass::Implementation previous = implementation(answerOne);
    EXPECT_FALSE(device.classes->replace(base, selector("unheardOf"), implementation(innerHook), &previous));
    EXPECT_EQ(previous, implementation(answerOne));
    EXPECT_TRUE(eventsOf("hook").empty());
}

TEST_F(ClassTableTest, EveryClassOfThePlatformIsThereButTheTwoOfOtherPrograms)
{
    for (const char* const name : { "UIResponder", "SpringBoard", "AVSystemController", "SBSoundController",
             "SBMediaController", "SBHUDController", "VolumeControl", "UIStatusBar", "_UIStatusBar", "LAActivator",
             "AXSpringBoardServer", "SBAssistantController", "UIViewPropertyAnimator", "_UIBackdropView" })
        EXPECT_NE(device.classes->find(name), nullptr) << name;
    EXPECT_EQ(device.classes->find("MeliorWindow"), nullptr);
    EXPECT_EQ(device.classes->find("ABVolumeHUDManager"), nullptr);
    EXPECT_EQ(device.classes->find("NobodyHasHeardOfIt"), nullptr);
}

TEST_F(ClassTableTest, AnyClassCanBeLackingOrPresent)
{
    device.classes->setPresent("SpringBoard", false);
    device.classes->setPresent("MeliorWindow", true);
    device.classes->setPresent("NobodyHasHeardOfIt", true);
    EXPECT_EQ(device.classes->find("SpringBoard"), nullptr);
    EXPECT_NE(device.classes->find("MeliorWindow"), nullptr);
    ASSERT_NE(device.classes->find("NobodyHasHeardOfIt"), nullptr);
    EXPECT_TRUE(device.classes->find("NobodyHasHeardOfIt")->inheritsFrom("NSObject"));
    device.classes->setPresent("NobodyHasHeardOfIt", false);
    EXPECT_EQ(device.classes->find("NobodyHasHeardOfIt"), nullptr);
}

TEST_F(ClassTableTest, AStatusBarIsAViewAndAResponder)
{
    EXPECT_TRUE(device.classes->find("UIStatusBar")->inheritsFrom("UIView"));
    EXPECT_TRUE(device.classes->find("UIStatusBar")->inheritsFrom("UIResponder"));
    EXPECT_FALSE(device.classes->find("UIStatusBar")->inheritsFrom("UIWindow"));
}

TEST_F(ClassTableTest, ASubclassMakesTheKindOfObjectThatItsSuperclassMakes)
{
    HostClass& window = device.classes->add("OverlayWindow", "UIWindow");
    EXPECT_NE(dynamic_cast<Window*>(device.classes->instantiate(window)), nullptr);
    EXPECT_EQ(dynamic_cast<View*>(device.classes->instantiate(derived)), nullptr);
}

TEST_F(ClassTableTest, LivingObjectsAreCountedByClassAndSubclass)
{
    const std::size_t before = device.classes->liveObjects();
    HostObject* const one = device.classes->instantiate(base);
    HostObject* const other = device.classes->instantiate(derived);
    EXPECT_EQ(device.classes->liveObjects(), before + 2);
    EXPECT_EQ(device.classes->liveObjects("Base"), 2u);
    EXPECT_EQ(device.classes->liveObjects("Derived"), 1u);
    EXPECT_EQ(device.classes->anyInstance("Base"), one);
    release(one);
    EXPECT_EQ(device.classes->anyInstance("Base"), nullptr);
    EXPECT_EQ(device.classes->anyInstance("Derived"), other);
    release(other);
    EXPECT_EQ(device.classes->liveObjects(), before);
}

/// A registered class whose block is one flag; its dealloc counts itself and counts its object once more.
class RegisteredClassTest : public ClassTableTest {
protected:
    RegisteredClassTest()
    {
        deallocs = 0;
        registered.isRegistered = true;
        registered.instanceSize = sizeof(std::int64_t);
        registered.construct = [](void* memory) {
            const std::int64_t value = 42;
            std::memcpy(memory, &value, sizeof value);
        };
        registered.destroy = [](HostObject* self, void* memory) {
            std::int64_t value = 0;
            std::memcpy(&value, memory, sizeof value);
            EXPECT_EQ(value, 42);
            ++deallocs;
            retain(self);
            release(self);
        };
        registered.fields.push_back({ "value", 'q', 0 });
    }

    static inline int deallocs = 0;
    HostClass& registered = device.classes->add("Registered", "UIView");
};

TEST_F(RegisteredClassTest, ItsBlockIsConstructedAndItsDeallocRunsOnceWithTheLastRelease)
{
    const std::size_t before = device.classes->liveObjects();
    HostObject* const object = device.classes->instantiate(registered);
    EXPECT_NE(dynamic_cast<View*>(object), nullptr);
    retain(object);
    release(object);
    EXPECT_EQ(deallocs, 0);
    release(object);
    EXPECT_EQ(deallocs, 1);
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(RegisteredClassTest, AnAutoreleasedObjectGoesWhenThePoolIsDrained)
{
    HostObject* const object = device.classes->instantiate(registered);
    EXPECT_EQ(device.classes->autorelease(object), object);
    EXPECT_EQ(deallocs, 0);
    device.classes->drainAutoreleasePool();
    EXPECT_EQ(deallocs, 1);
    EXPECT_EQ(device.classes->autorelease(nullptr), nullptr);
}

TEST_F(RegisteredClassTest, ScalarsAreReadByKeyAndUnknownKeysAreNot)
{
    HostObject* const object = device.classes->instantiate(registered);
    EXPECT_EQ(device.classes->scalarForKey(object, "value"), 42);
    EXPECT_TRUE(device.classes->scalarForKey(object, "values").is_discarded());
    EXPECT_TRUE(device.classes->scalarForKey(nullptr, "value").is_discarded());
    EXPECT_EQ(device.classes->objectForKey(object, "value"), nullptr);
}

TEST(ProcessEnd, ObjectsThatAreLeftGoWithoutADealloc)
{
    static int deallocs = 0;
    {
        Device device;
        HostClass& registered = device.classes->add("Registered", "UIView");
        registered.isRegistered = true;
        registered.construct = [](void*) {
        };
        registered.destroy = [](HostObject*, void*) {
            ++deallocs;
        };
        auto* const parent = static_cast<View*>(device.classes->instantiate(registered));
        auto* const child = static_cast<View*>(device.classes->instantiate(registered));
        parent->addSubview(*child);
        parent->layerObject();
        device.runLoop->perform(child, selector("description"), parent, 10);
        device.runLoop->animate(
            1, 0, 0, [&] { child->setAlpha(0); }, [](bool) { ++deallocs; });
        EXPECT_EQ(Device::current(), &device);
    }
    EXPECT_EQ(deallocs, 0);
    EXPECT_EQ(Device::current(), nullptr);
}

using NamesTest = DeviceTest;

TEST_F(NamesTest, AnObjectIsNamedAfterTheFieldThatHoldsIt)
{
    View& view = makeView();
    View& other = makeView();
    makeHolder({ { "_rootView", &view }, { "_window", nullptr } });
    EXPECT_THAT(device.nameOf(&view), ::testing::Pointee(std::string("_rootView")));
    EXPECT_EQ(device.nameOf(&other), nullptr);
    EXPECT_EQ(device.nameOf(nullptr), nullptr);
    EXPECT_EQ(device.classes->heldInField("_rootView"), &view);
    EXPECT_EQ(device.classes->heldInField("_window"), nullptr);
}

TEST_F(NamesTest, ANameStaysWhenTheFieldIsCleared)
{
    View& parent = makeView();
    View& view = makeView();
    parent.addSubview(view);
    HostObject& holder = makeHolder({ { "_volumeView3", &view } });
    // Nobody has asked for the name yet, but the view leaves the tree before its field is cleared.
    view.removeFromSuperview();
    std::memset(holder.instanceVariables.get(), 0, sizeof(HostObject*));
    EXPECT_EQ(device.classes->heldInField("_volumeView3"), nullptr);
    EXPECT_THAT(device.nameOf(&view), ::testing::Pointee(std::string("_volumeView3")));
}

TEST_F(NamesTest, AHolderThatGoesLeavesItsNamesBehind)
{
    View& view = makeView();
    release(&makeHolder({ { "_volumeView", &view } }));
    EXPECT_THAT(device.nameOf(&view), ::testing::Pointee(std::string("_volumeView")));
}

TEST_F(NamesTest, ATurnOfTheRunLoopNamesWhatFieldsHold)
{
    View& view = makeView();
    HostObject& holder = makeHolder({ { "_containerView", &view } });
    device.runLoop->turn();
    std::memset(holder.instanceVariables.get(), 0, sizeof(HostObject*));
    EXPECT_THAT(device.nameOf(&view), ::testing::Pointee(std::string("_containerView")));
}

} // namespace
} // namespace panotra::sim
