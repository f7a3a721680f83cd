/// Hosts that refuse: levels, keys, objects, bundles and names that are not to be had.
#include "tests/hosts/MixerHostTest.h"

#include "tests/hosts/Peers.h"
#include "tests/hosts/classes/UIKit.h"

#include <cstdlib>
#include <ostream>

namespace panotra::testing {

namespace {

class RefusingHost : public MixerHostTest {
protected:
    /// Everything that the mixer has a part in.
    void liveOn()
    {
        device.preferences->set("net.qorvath.panotra", "replaceHUD", true);
        device.home->notify("net.qorvath.panotra.settingschanged");
        for (const int style : { panel, banner }) {
            device.preferences->set("net.qorvath.panotra", "activeStyle", style);
            device.home->notify("net.qorvath.panotra.settingschanged");
            explicitChange(0.75f);
            device.home->announce("Audio/Video", "RouteChange", 0.25f);
            device.home->setRingerMuted(true);
            device.home->playSound(1);
            device.home->announceChange("Ringtone", 0.5f); // of the sound's own making: swallowed
            turnTo(3);
            turnTo(1);
            device.home->pan(0, 1, 30);
            device.home->pan(0, 3, 30);
            device.touches->down(100, 100);
            device.touches->up();
            device.home->askActivator("icon", "net.qorvath.panotra.presentmixer");
            device.home->sendActivatorEvent("net.qorvath.panotra.presentdismissmixer");
            pass(1);
            device.home->notify("net.qorvath.panotra.uikitshaken");
            pass(100);
            device.home->notify("com.apple.springboard.screenchanged");
            pass(100);
        }
        EXPECT_EQ(countOf("launched"), 1u);
        EXPECT_EQ(countOf("announced"), 4u);
        EXPECT_EQ(countOf("ringer"), 2u);
        EXPECT_EQ(countOf("sound"), 2u);
        EXPECT_EQ(countOf("reoriented"), 4u);
    }
    void expectNothingLeft()
    {
        device.classes->drainAutoreleasePool();
        for (const char* const name : { "PNOVolumeView", "PNOWindow", "UILabel", "UIPanGestureRecognizer" })
            EXPECT_EQ(device.classes->liveObjects(name), 0u) << name;
    }
};

// Levels.

BOOL answerNoWithALevel(id, SEL, float* level, id)
{
    *level = 0.9f;
    return NO;
}

} // namespace

TEST_F(RefusingHost, ALevelThatTheHostDoesNotVouchForSeedsZero)
{
    hook("AVSystemController", "getVolume:forCategory:", reinterpret_cast<IMP>(answerNoWithALevel));
    for (int slot = 0; slot < 12; ++slot)
        device.preferences->unset("net.qorvath.panotra", "volume" + std::to_string(slot));
    launch();
    show(panel);
    for (int slot = 0; slot < 12; ++slot)
        EXPECT_EQ(device.classes->scalarForKey(held("_volumeView" + std::to_string(slot)), "volume"), 0.0) << slot;
    EXPECT_EQ(part<sim::Label>(7, "_label1")->text, "0%");
}

// Keys.

namespace {

struct GetterCase {
    const char* name;
    const char* types; ///< of the method `_mode`
    bool isRead;
};

void PrintTo(const GetterCase& getter, std::ostream* stream)
{
    *stream << getter.types;
}

int modesRead = 0;

long long readMode(id, SEL)
{
    ++modesRead;
    return 1;
}

class GetterOfAKey : public RefusingHost, public ::testing::WithParamInterface<GetterCase> { };

} // namespace

TEST_P(GetterOfAKey, IsReadOnlyIfItAnswersANumberWithoutBeingTold)
{
    class_addMethod(objc_lookUpClass("VolumeControl"), sel_registerName("_mode"), reinterpret_cast<IMP>(readMode),
        GetParam().types);
    launch();
    show(panel);
    explicitChange(0.03125f);
    // In mode 0, which is what a key that cannot be read gives, any level is focused; in mode 1 none so low is.
    EXPECT_EQ(modesRead, GetParam().isRead ? 2 : 0);
    EXPECT_EQ(view("_volumeView0")->transform.a, GetParam().isRead ? 1.0 : 1.05);
}

INSTANTIATE_TEST_SUITE_P(Refusing, GetterOfAKey,
    ::testing::Values(GetterCase { "Number", "q@:", true }, GetterCase { "WithAnArgument", "q@:q", false },
        GetterCase { "WithAnObject", "q@:@", false },
        GetterCase { "Structure", "{CGRect={CGPoint=dd}{CGSize=dd}}@:", false },
        GetterCase { "Union", "(Either=qd)@:", false }, GetterCase { "Pointer", "^v@:", false },
        GetterCase { "Text", "*@:", false }, GetterCase { "ClassObject", "#@:", false },
        GetterCase { "Selector", ":@:", false }, GetterCase { "Nothing", "v@:", false }),
    [](const auto& suite) { return suite.param.name; });

// Objects.

namespace {

/// Which class's objects are refused, and what is answered instead.
std::string refusedClass;
id answeredObject = nil;
int refusals = 0;
IMP initOfNSObject = nullptr;
IMP initWithFrameOfUIView = nullptr;

bool isRefused(id object)
{
    return class_getName(object_getClass(object)) == refusedClass;
}

/// As every initialiser: the receiver's count is taken, and one of the answer is given.
id refuse(id object)
{
    ++refusals;
    [object release];
    return [answeredObject retain];
}

id initOrRefuse(id self, SEL selector)
{
    if (isRefused(self))
        return refuse(self);
    return reinterpret_cast<id (*)(id, SEL)>(initOfNSObject)(self, selector);
}

id initWithFrameOrRefuse(id self, SEL selector, DeviceRect frame)
{
    if (isRefused(self))
        return refuse(self);
    return reinterpret_cast<id (*)(id, SEL, DeviceRect)>(initWithFrameOfUIView)(self, selector, frame);
}

struct Superclass {
    const char* refused;
    bool answersAnother;
};

void PrintTo(const Superclass& superclass, std::ostream* stream)
{
    *stream << superclass.refused << (superclass.answersAnother ? ": another" : ": none");
}

class RefusingSuperclass : public RefusingHost, public ::testing::WithParamInterface<Superclass> {
protected:
    RefusingSuperclass()
    {
        initOfNSObject = hook("NSObject", "init", reinterpret_cast<IMP>(initOrRefuse));
        initWithFrameOfUIView = hook("UIView", "initWithFrame:", reinterpret_cast<IMP>(initWithFrameOrRefuse));
        refusedClass = GetParam().refused;
        if (GetParam().answersAnother)
            answeredObject = refusedClass == "PNOWindow"
                ? [[objc_lookUpClass("UIWindow") alloc] initWithFrame:DeviceRect { 0, 0, 375, 667 }]
                : [NSObject new];
    }
    ~RefusingSuperclass() override { refusedClass.clear(); }
};

} // namespace

TEST_P(RefusingSuperclass, IsLivedWith)
{
    const NSUInteger counted = [answeredObject retainCount];
    launch();
    liveOn();
    EXPECT_GT(refusals, 0);
    expectNothingLeft();
    const std::string name = GetParam().refused;
    if (name == "PNOController") {
        EXPECT_EQ(countOf("windowShown"), 0u);
        EXPECT_EQ(device.classes->liveObjects(name), 0u);
    } else {
        EXPECT_EQ(countOf("listener"), name == "PNOHelperController" && !GetParam().answersAnother ? 0u : 3u);
    }
    if (name == "PNOVolumeView" || name == "PNOWindow") {
        EXPECT_EQ([answeredObject retainCount], counted) << "no count of it is kept or lost";
    }
}

INSTANTIATE_TEST_SUITE_P(Refusing, RefusingSuperclass,
    ::testing::Values(Superclass { "PNOController", false }, Superclass { "PNOController", true },
        Superclass { "PNOHelperController", false }, Superclass { "PNOHelperController", true },
        Superclass { "PNOVolumeView", false }, Superclass { "PNOVolumeView", true }, Superclass { "PNOWindow", false },
        Superclass { "PNOWindow", true }),
    [](const auto& suite) {
        return std::string(suite.param.refused) + (suite.param.answersAnother ? "Another" : "None");
    });

namespace {

IMP deallocOfUIView = nullptr;
int slidersSpokenTo = 0;

/// A superclass may send messages to its object while that goes.
void speakAndDealloc(id self, SEL selector)
{
    if (std::string(class_getName(object_getClass(self))) == "PNOVolumeView") {
        ++slidersSpokenTo;
        const auto message = [self](const char* name) {
            return class_getMethodImplementation(object_getClass(self), sel_registerName(name));
        };
        using SetLevel = void (*)(id, SEL, double);
        using SetFrame = void (*)(id, SEL, DeviceRect, double);
        reinterpret_cast<SetLevel>(message("setVolumeLevel:"))(self, sel_registerName("setVolumeLevel:"), 0.25);
        reinterpret_cast<SetFrame>(message("setFrame:andLevel:"))(
            self, sel_registerName("setFrame:andLevel:"), DeviceRect { 0, 0, 100, 50 }, 0.25);
        EXPECT_EQ([self valueForKey:@"_label1"], nil);
    }
    reinterpret_cast<void (*)(id, SEL)>(deallocOfUIView)(self, selector);
}

} // namespace

TEST_F(RefusingHost, AnObjectThatIsSpokenToAsItGoesHasNothingLeftToTouch)
{
    launch();
    show(panel);
    deallocOfUIView = hook("UIView", "dealloc", reinterpret_cast<IMP>(speakAndDealloc));
    dismiss();
    EXPECT_EQ(slidersSpokenTo, 12);
    EXPECT_EQ(device.preferences->all()["net.qorvath.panotra"]["volume3"], 0.5);
    expectNothingLeft();
}

// The bundle and its pictures.

namespace {

std::vector<std::pair<std::string, void*>> imagesAsked;
IMP imageNamedUnwatched = nullptr;

id watchImageNamed(Class self, SEL selector, id name, id bundle)
{
    imagesAsked.emplace_back([name UTF8String], bundle);
    return reinterpret_cast<id (*)(Class, SEL, id, id)>(imageNamedUnwatched)(self, selector, name, bundle);
}

id noBundle(Class, SEL, id)
{
    return nil;
}

const char* const listenerNames[] = { "net.qorvath.panotra.presentmixer", "net.qorvath.panotra.dismissmixer",
    "net.qorvath.panotra.presentdismissmixer" };

class Pictures : public RefusingHost {
protected:
    Pictures()
    {
        imageNamedUnwatched
            = replaceClassMethod("UIImage", "imageNamed:inBundle:", reinterpret_cast<IMP>(watchImageNamed));
    }
    std::vector<sim::Json> iconsAnswered()
    {
        events.clear();
        for (const char* const name : listenerNames)
            device.home->askActivator("icon", name);
        std::vector<sim::Json> values;
        for (const sim::Json& event : events) {
            if (event["event"] == "answer")
                values.push_back(event["value"]);
        }
        return values;
    }
};

} // namespace

TEST_F(Pictures, TheIconOfEveryListenerIsThePngOfThePictureOfTheBundle)
{
    launch();
    imagesAsked.clear();
    const auto icons = iconsAnswered();
    ASSERT_EQ(icons.size(), 3u);
    ASSERT_EQ(imagesAsked.size(), 3u);
    for (std::size_t i = 0; i < icons.size(); ++i) {
        EXPECT_GT(icons[i], 0);
        EXPECT_EQ(imagesAsked[i].first, "settingsIcon");
        EXPECT_NE(imagesAsked[i].second, nullptr);
        EXPECT_EQ(imagesAsked[i].second, imagesAsked[0].second) << "one bundle, kept";
    }
    device.home->askActivator("icon", "net.qorvath.panotra.unheardof");
    EXPECT_EQ(imagesAsked.size(), 3u);
}

TEST_F(Pictures, WithoutTheBundleNoOtherIsLookedIntoAndEverythingElseIsAsItWas)
{
    replaceClassMethod("NSBundle", "bundleWithPath:", reinterpret_cast<IMP>(noBundle));
    launch();
    EXPECT_EQ(iconsAnswered(), std::vector<sim::Json>(3));
    show(banner);
    ASSERT_TRUE(isShown());
    for (int slot = 0; slot < 12; ++slot) {
        ASSERT_NE(part<sim::ImageView>(slot, "_imageView"), nullptr);
        EXPECT_EQ(part<sim::ImageView>(slot, "_imageView")->image, nullptr);
        EXPECT_EQ(part<sim::Label>(slot, "_label1")->text, "50%");
    }
    EXPECT_TRUE(imagesAsked.empty()) << "without a bundle the platform would look into the process's own";
    dismiss();
    expectNothingLeft();
}

// The other overlay.

TEST_F(RefusingHost, OnlyTheFirstSubviewOfTheOtherOverlayIsDriven)
{
    device.classes->setPresent("MeliorWindow", true);
    launch();
    auto& overlay = dynamic_cast<sim::View&>(*device.home->shared("MeliorWindow"));
    auto* const second = device.classes->make<sim::View>("UIView");
    overlay.addSubview(*second);
    sim::release(second);
    for (const bool replaces : { true, false }) {
        device.preferences->set("net.qorvath.panotra", "replaceHUD", replaces);
        device.home->notify("net.qorvath.panotra.settingschanged");
        second->hidden = !replaces;
        device.home->announce("Alarm", "Anything", 0.5f);
        EXPECT_EQ(overlay.subviews[0]->hidden, replaces);
        EXPECT_EQ(second->hidden, !replaces);
    }
}

// Names.

namespace {

class TakenClassName : public RefusingHost, public ::testing::WithParamInterface<const char*> { };

} // namespace

TEST_P(TakenClassName, IsLeftToItsOwnerAndTheHomeScreenLivesOn)
{
    const Class owners = objc_allocateClassPair([NSObject class], GetParam(), 0);
    ASSERT_NE(owners, Nil);
    objc_registerClassPair(owners);
    device.classes->setPresent(GetParam(), true);
    const std::size_t size = class_getInstanceSize(owners);
    launch();
    liveOn();
    expectNothingLeft();
    EXPECT_EQ(objc_lookUpClass(GetParam()), owners);
    EXPECT_EQ(class_getInstanceSize(owners), size);
    for (const Class each : { owners, object_getClass(owners) }) {
        unsigned count = 0;
        std::free(class_copyMethodList(each, &count));
        EXPECT_EQ(count, 0u);
    }
    const std::string name = GetParam();
    const bool isShowable = name != "PNOController" && name != "PNOWindow";
    EXPECT_EQ(countOf("windowShown") > 0, isShowable);
    EXPECT_EQ(countOf("listener"), name == "PNOHelperController" ? 0u : 3u);
}

INSTANTIATE_TEST_SUITE_P(Refusing, TakenClassName,
    ::testing::Values("PNOController", "PNOHelperController", "PNOVolumeView", "PNOWindow"),
    [](const auto& suite) { return std::string(suite.param); });

} // namespace panotra::testing
