/// The mixer's own classes in the runtime: every field by its key, every method by its selector, each class once.
#include "tests/hosts/Crossings.h"
#include "tests/hosts/HostTest.h"
#include "tests/support/KnownFacts.h"

#include <algorithm>
#include <cstdlib>

namespace panotra::testing {

namespace {

struct OwnClass {
    const char* name;
    const char* superclass;
    std::vector<std::string> fields;
    std::vector<const char*> methods;
    std::vector<const char*> classMethods;
};

std::vector<std::string> fieldsOfTheController()
{
    std::vector<std::string> fields { "_window", "_rootView", "_boundsWidth", "_boundsHeight", "_iphone4Width",
        "_iphone4Height", "_containerView", "_rootBackdropView", "_blurBackdropView", "_groupView0", "_groupView1",
        "_groupView2", "_groupLabel0", "_groupLabel1", "_groupLabel2" };
    for (std::size_t slot = 0; slot < knownSlotCount; ++slot)
        fields.push_back("_volumeView" + std::to_string(slot));
    fields.emplace_back("_volume");
    return fields;
}

const OwnClass ownClasses[] = {
    { "PNOController", "NSObject", fieldsOfTheController(),
        { "init", "createUI", "destroyHUDWindow", "releaseObjects",
            "setVolumeLevel:forCategory:andRoute:", "getVolumeLevelForCategory:andRoute:", "pickedRoute",
            "saveVolume:forKey:", "getVolumeForKey:", "saveVolumeLevelsToDisk", "importVolumeLevelsToRam",
            "mixerSkinOptions", "rootViewTransform", "layoutSubviews", "animateForCategory:andRoute:",
            "autoAnimateView:", "resetAnimation:", "resetTransforms", "returnViewFromTouchedView:" },
        { "sharedInstance" } },
    { "PNOHelperController", "NSObject", { "_projectName", "_packageName", "_bundle" },
        { "init",
            "activator:requiresLocalizedGroupForListenerName:", "activator:requiresLocalizedTitleForListenerName:",
            "activator:requiresLocalizedDescriptionForListenerName:",
            "activator:requiresSmallIconDataForListenerName:scale:", "activator:receiveEvent:forListenerName:" },
        { "sharedInstance" } },
    { "PNOVolumeView", "UIView",
        { "_backdropView", "_volumeView", "_imageView", "_label0", "_label1", "_volumePanRecognizer", "_canGoToZero",
            "volume" },
        { "initWithName:andTag:canGoToZero:", "initWithImage:andTag:canGoToZero:", "setFrame:andLevel:",
            "setFrame2:andLevel:", "setVolumeLevel:", "volume", "setVolume:", "handleVolumeViewPan:" },
        {} },
    { "PNOWindow", "UIWindow", {}, { "hitTest:withEvent:" }, {} },
};

/// The instance variables that the class itself has, but for its tail, which is of no type.
std::vector<std::string> fieldsOf(Class hostClass)
{
    unsigned count = 0;
    Ivar* const variables = class_copyIvarList(hostClass, &count);
    std::vector<std::string> names;
    for (unsigned i = 0; i < count; ++i) {
        if (ivar_getTypeEncoding(variables[i])[0] != '?')
            names.emplace_back(ivar_getName(variables[i]));
    }
    std::free(variables);
    return names;
}

/// The class has the method of itself, not from its superclass.
bool hasOwn(Class hostClass, const char* selector)
{
    const Method method = class_getInstanceMethod(hostClass, sel_registerName(selector));
    return method != nullptr
        && method != class_getInstanceMethod(class_getSuperclass(hostClass), sel_registerName(selector));
}

/// What a field holds, as the runtime knows it, is what its key answers.
void expectReadable(id object, const char* name)
{
    SCOPED_TRACE(name);
    const Ivar variable = class_getInstanceVariable(object_getClass(object), name);
    ASSERT_NE(variable, nullptr);
    const id value = [object valueForKey:[NSString stringWithUTF8String:name]];
    const char* const memory = reinterpret_cast<const char*>(object) + ivar_getOffset(variable);
    switch (ivar_getTypeEncoding(variable)[0]) {
    case '@':
        EXPECT_EQ(value, *reinterpret_cast<const id*>(memory));
        break;
    case 'd':
        EXPECT_EQ([value doubleValue], *reinterpret_cast<const double*>(memory));
        break;
    case 'f':
        EXPECT_EQ([value floatValue], *reinterpret_cast<const float*>(memory));
        break;
    case 'B':
        EXPECT_EQ([value boolValue], *reinterpret_cast<const bool*>(memory));
        break;
    default:
        ADD_FAILURE() << "a field of the type " << ivar_getTypeEncoding(variable);
    }
}

class OwnClasses : public HostTest {
protected:
    void shake()
    {
        device.home->notify("net.qorvath.panotra.uikitshaken");
        pass(100);
    }
    /// From here on each class is in use.
    void show()
    {
        shake();
        ASSERT_TRUE(isShown());
    }

    static id shared(const char* className)
    {
        return [objc_lookUpClass(className) performSelector:@selector(sharedInstance)];
    }
    static id controller() { return shared("PNOController"); }
};

} // namespace

TEST_F(OwnClasses, AreDerivedAndHaveTheirFieldsInOrderAndTheirMethodsBySelector)
{
    launch();
    show();
    for (const OwnClass& each : ownClasses) {
        SCOPED_TRACE(each.name);
        const Class hostClass = objc_lookUpClass(each.name);
        ASSERT_NE(hostClass, Nil);
        EXPECT_STREQ(class_getName(class_getSuperclass(hostClass)), each.superclass);
        EXPECT_EQ(fieldsOf(hostClass), each.fields);
        for (const char* const selector : each.methods)
            EXPECT_TRUE(hasOwn(hostClass, selector)) << selector;
        for (const char* const selector : each.classMethods)
            EXPECT_TRUE(hasOwn(object_getClass(hostClass), selector)) << selector;
    }
}

TEST_F(OwnClasses, EveryFieldIsReadByItsKey)
{
    launch();
    show();
    const id slider = [controller() valueForKey:@"_volumeView3"];
    const id window = [controller() valueForKey:@"_window"];
    for (const id object : { controller(), shared("PNOHelperController"), slider, window }) {
        SCOPED_TRACE(class_getName(object_getClass(object)));
        for (const std::string& name : fieldsOf(object_getClass(object)))
            expectReadable(object, name.c_str());
    }
}

TEST_F(OwnClasses, FieldsHoldWhatIsOnTheScreen)
{
    launch();
    show();
    EXPECT_EQ([controller() valueForKey:@"_window"], hosts::hostObjectFor(device.home->window()));
    const id slider = [controller() valueForKey:@"_volumeView3"];
    EXPECT_STREQ(class_getName(object_getClass(slider)), "PNOVolumeView");
    EXPECT_FLOAT_EQ([[slider valueForKey:@"volume"] floatValue], 0.5f);
    EXPECT_TRUE([[slider valueForKey:@"_label1"] isKindOfClass:objc_lookUpClass("UILabel")]);
    EXPECT_STREQ(class_getName(object_getClass([controller() valueForKey:@"_window"])), "PNOWindow");
    const id helper = shared("PNOHelperController");
    EXPECT_STREQ([[helper valueForKey:@"_projectName"] UTF8String], "Panotra");
    EXPECT_STREQ([[helper valueForKey:@"_packageName"] UTF8String], "net.qorvath.panotra");
    EXPECT_TRUE([[helper valueForKey:@"_bundle"] isKindOfClass:[NSBundle class]]);
}

TEST_F(OwnClasses, AreRegisteredOnceHoweverOftenTheMixerIsBuilt)
{
    hosts::recordCrossings(true);
    launch();
    for (int time = 0; time < 3; ++time) {
        show();
        shake();
        ASSERT_FALSE(isShown());
    }
    hosts::recordCrossings(false);
    EXPECT_EQ(std::ranges::count(hosts::crossings(), "objc_allocateClassPair"), std::ssize(ownClasses));
    EXPECT_EQ(std::ranges::count(hosts::crossings(), "objc_registerClassPair"), std::ssize(ownClasses));
}

} // namespace panotra::testing
