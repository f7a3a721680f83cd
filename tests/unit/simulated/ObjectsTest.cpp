/// Handles and counts, conversions, strings, dictionaries, preferences.
#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/SpringBoard.h"
#include "platform/UIView.h"
#include "tests/unit/simulated/SeamTest.h"

#include <cmath>
#include <limits>

namespace panotra {
namespace {

class ObjectsTest : public SeamTest {
protected:
    NSObject number(sim::Json value)
    {
        return adopt<NSObject>(device.classes->make<sim::Number>("NSNumber", std::move(value)));
    }
};

TEST_F(ObjectsTest, HandlesCountWhatTheyHold)
{
    const std::size_t before = device.classes->liveObjects();
    {
        const UIView view = UIView::init();
        EXPECT_EQ(view.get()->references, 1u);
        const UIView copy = view;
        EXPECT_EQ(view.get()->references, 2u);
        UIView moved = copy;
        const UIView target = std::move(moved);
        EXPECT_EQ(view.get()->references, 3u);
        EXPECT_EQ(target, view);
    }
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(ObjectsTest, AnAutoreleasedObjectLivesUntilTheTurnEnds)
{
    const std::size_t before = device.classes->liveObjects();
    id const object = autorelease(UIView::init().leak());
    EXPECT_EQ(object->references, 1u);
    device.runLoop->turn();
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(ObjectsTest, AnInnerPoolTakesOnlyWhatWasAutoreleasedInsideIt)
{
    const std::size_t before = device.classes->liveObjects();
    autorelease(UIView::init().leak());
    {
        const AutoreleasePool pool;
        autorelease(UIView::init().leak());
        {
            const AutoreleasePool inner;
            autorelease(UIView::init().leak());
            EXPECT_EQ(device.classes->liveObjects(), before + 3);
        }
        EXPECT_EQ(device.classes->liveObjects(), before + 2);
    }
    EXPECT_EQ(device.classes->liveObjects(), before + 1);
    device.runLoop->turn();
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(ObjectsTest, StringsAreEqualByTextOtherObjectsByIdentity)
{
    const NSString one = NSString::stringWithUTF8String("Speaker");
    EXPECT_TRUE(one.isEqual(NSString::stringWithUTF8String("Speaker")));
    EXPECT_FALSE(one.isEqual(NSString::stringWithUTF8String("speaker")));
    EXPECT_FALSE(one.isEqual(nullptr));
    const UIView view = UIView::init();
    EXPECT_TRUE(view.isEqual(view));
    EXPECT_FALSE(view.isEqual(UIView::init()));
    EXPECT_TRUE(one.isEqualToString("Speaker"));
}

TEST_F(ObjectsTest, ACheckedValueIsOfItsKindOrNull)
{
    const NSString text = NSString::stringWithUTF8String("text");
    EXPECT_EQ(NSString::checked(text), text);
    EXPECT_FALSE(NSString::checked(number(1)));
    EXPECT_FALSE(NSDictionary::checked(text));
}

TEST_F(ObjectsTest, ADictionaryAnswersItsKeys)
{
    auto* const dictionary = device.classes->make<sim::Dictionary>("NSDictionary");
    dictionary->adopt("AudioVolume", device.classes->make<sim::Number>("NSNumber", 0.25));
    const auto handle = adopt<NSDictionary>(dictionary);
    EXPECT_EQ(NSDictionary::checked(handle), handle);
    EXPECT_EQ(handle.objectForKey(NSString::constant("AudioVolume")).floatValue(), 0.25f);
    EXPECT_FALSE(handle.objectForKey(NSString::constant("AudioCategory")));
    EXPECT_FALSE(handle.objectForKey(nullptr));
}

TEST_F(ObjectsTest, NumbersConvertToEveryType)
{
    EXPECT_EQ(number(-3.75).integerValue(), -3);
    EXPECT_EQ(number(3.75).doubleValue(), 3.75);
    EXPECT_EQ(number(0.1).floatValue(), 0.1f);
    EXPECT_TRUE(number(0.25).boolValue());
    EXPECT_FALSE(number(0).boolValue());
    EXPECT_EQ(number(true).integerValue(), 1);
    EXPECT_EQ(number(65537).unsignedShortValue(), 1);
    EXPECT_EQ(number(-1).unsignedShortValue(), 65535);
    EXPECT_EQ(number(std::numeric_limits<std::int64_t>::max()).integerValue(), 9223372036854775807);
    EXPECT_EQ(number(18446744073709551616.0 + 4096).integerValue(), 4096);
    EXPECT_EQ(number(-18446744073709551616.0 - 4096).integerValue(), -4096);
    EXPECT_EQ(number(std::numeric_limits<double>::infinity()).integerValue(), 0);
    EXPECT_EQ(number(std::nan("")).integerValue(), 0);
    EXPECT_EQ(NSNumber::numberWithFloat(0.1f).doubleValue(), double { 0.1f });
}

TEST_F(ObjectsTest, StringsConvertByWhatTheyBeginWith)
{
    EXPECT_EQ(NSString::stringWithUTF8String(" 12.5abc").doubleValue(), 12.5);
    EXPECT_EQ(NSString::stringWithUTF8String("12.5").integerValue(), 12);
    EXPECT_TRUE(NSString::stringWithUTF8String("Yes").boolValue());
    EXPECT_FALSE(NSString::stringWithUTF8String("no").boolValue());
    EXPECT_EQ(NSString::stringWithUTF8String("nothing").floatValue(), 0.0f);
}

TEST_F(ObjectsTest, OtherObjectsConvertToZero)
{
    const UIView view = UIView::init();
    EXPECT_FALSE(view.boolValue());
    EXPECT_EQ(view.integerValue(), 0);
    EXPECT_EQ(view.unsignedShortValue(), 0);
    EXPECT_EQ(view.doubleValue(), 0);
}

TEST_F(ObjectsTest, TheVolumeButtonsAreReadByKey)
{
    const VolumeControl control = VolumeControl::sharedVolumeControl();
    device.home->volumeMode = 9007199254740993;
    device.home->volumeUpIsDown = true;
    EXPECT_EQ(control.valueForKey("_mode").integerValue(), 9007199254740993);
    EXPECT_TRUE(control.valueForKey("_volumeUpButtonIsDown").boolValue());
    EXPECT_FALSE(control.valueForKey("_volumeDownButtonIsDown").boolValue());
    EXPECT_FALSE(control.valueForKey("_volumeSidewaysButtonIsDown"));
    lack("VolumeControl");
    EXPECT_FALSE(VolumeControl::sharedVolumeControl());
    EXPECT_EQ(VolumeControl::sharedVolumeControl().valueForKey("_mode").integerValue(), 0);
}

TEST_F(ObjectsTest, OnlyTheMainBundleHasTheProcessesIdentifier)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    EXPECT_EQ(NSBundle::mainBundle().bundleIdentifier().view(), "com.apple.mobilesafari");
    const NSBundle folder = NSBundle::bundleWithPath("/Library/PreferenceBundles/Panotra.bundle");
    EXPECT_TRUE(folder);
    EXPECT_FALSE(folder.bundleIdentifier());
}

TEST_F(ObjectsTest, PreferencesKeepTheKindOfTheirValues)
{
    device.preferences->set("domain", "number", 3);
    device.preferences->set("domain", "flag", true);
    device.preferences->set("domain", "text", "07");
    const NSUserDefaults defaults = NSUserDefaults::initWithSuiteName(NSString::stringWithUTF8String("domain"));
    defaults.synchronize();
    const auto read = [&](const char* key) {
        return defaults.objectForKey(NSString::stringWithUTF8String(key));
    };
    EXPECT_EQ(read("number").integerValue(), 3);
    EXPECT_TRUE(read("flag").boolValue());
    EXPECT_EQ(read("text").integerValue(), 7);
    EXPECT_TRUE(NSString::checked(read("text")));
    EXPECT_FALSE(NSString::checked(read("flag")));
    EXPECT_FALSE(read("absent"));
}

TEST_F(ObjectsTest, ASetLevelIsSeenAtOnceAndStoredWhenTheHandleGoes)
{
    {
        const NSUserDefaults defaults = NSUserDefaults::initWithSuiteName(NSString::stringWithUTF8String("domain"));
        defaults.synchronize();
        const NSString key = NSString::stringWithUTF8String("volume0");
        defaults.setObject(NSNumber::numberWithFloat(0.1f), key);
        EXPECT_EQ(defaults.objectForKey(key).floatValue(), 0.1f);
        EXPECT_FALSE(device.preferences->all().contains("domain"));
    }
    EXPECT_EQ(device.preferences->all()["domain"]["volume0"], double { 0.1f });
    EXPECT_THAT(eventNames(), ::testing::ElementsAre("synchronize", "write"));
}

TEST_F(ObjectsTest, APerformGoesThroughTheMethodTableAndKeepsItsTargetAlive)
{
    static int count = 0;
    count = 0;
    HostClass& isa = device.classes->add("Told", "NSObject");
    isa.methods[sim::selector("tell:")] = sim::implementation(
        +[](HostObject*, const HostSelector*, HostObject* object) { count += object != nullptr; });
    {
        const auto target = adopt<NSObject>(device.classes->instantiate(isa));
        target.performSelector("tell:", UIView::init(), 1);
        target.performSelector("tell:", nullptr, 1);
        target.performSelector("tell:", target, 2);
        NSObject::cancelPreviousPerformRequests(target, "tell:", target);
    }
    device.runLoop->wait(3);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(device.classes->liveObjects("Told"), 0u);
}

} // namespace
} // namespace panotra
