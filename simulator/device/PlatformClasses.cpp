/// The platform's classes: who inherits from whom, and what kind of object each makes.
#include "simulator/device/PlatformClasses.h"

#include "simulator/device/ClassTable.h"
#include "simulator/device/PlatformMethods.h"
#include "simulator/device/SharedObjects.h"

namespace panotra::sim {

namespace {

template <typename Object> HostObject* make()
{
    return new Object;
}

/// Null: made as the superclass makes its own, or never made by class alone.
using Make = HostObject* (*)();

struct PlatformClass {
    const char* name;
    const char* superclass;
    Make make;
};

/// Superclasses before their subclasses.
constexpr PlatformClass platformClasses[] = {
    { "NSObject", "", make<HostObject> },

    { "NSBundle", "NSObject", nullptr },
    { "NSData", "NSObject", nullptr },
    { "NSDictionary", "NSObject", nullptr },
    { "NSNumber", "NSObject", nullptr },
    { "NSSet", "NSObject", nullptr },
    { "NSString", "NSObject", nullptr },
    { "NSUserDefaults", "NSObject", nullptr },

    { "CALayer", "NSObject", nullptr },
    { "UIColor", "NSObject", nullptr },
    { "UIEvent", "NSObject", nullptr },
    { "UIFont", "NSObject", nullptr },
    { "UIGestureRecognizer", "NSObject", nullptr },
    { "UIImage", "NSObject", nullptr },
    { "UIPanGestureRecognizer", "UIGestureRecognizer", nullptr },
    { "UIScreen", "NSObject", nullptr },
    { "UIViewPropertyAnimator", "NSObject", nullptr },
    { "_UIBackdropViewSettings", "NSObject", nullptr },

    { "UIResponder", "NSObject", nullptr },
    { "UIApplication", "UIResponder", nullptr },
    { "UIView", "UIResponder", make<View> },
    { "UIImageView", "UIView", make<ImageView> },
    { "UILabel", "UIView", make<Label> },
    { "UIStatusBar", "UIView", make<StatusBar> },
    { "UIWindow", "UIView", make<Window> },
    { "_UIBackdropView", "UIView", make<BackdropView> },
    { "_UIStatusBar", "UIView", make<StatusBar> },

    { "AVSystemController", "NSObject", nullptr },
    { "AXSpringBoardServer", "NSObject", nullptr },
    { "SBAssistantController", "NSObject", make<AssistantController> },
    { "SBHUDController", "NSObject", nullptr },
    { "SBMediaController", "NSObject", nullptr },
    { "SBUISound", "NSObject", nullptr },
    { "SBSoundController", "NSObject", nullptr },
    { "SpringBoard", "UIApplication", nullptr },
    { "VolumeControl", "NSObject", nullptr },

    { "LAActivator", "NSObject", nullptr },
    { "LAEvent", "NSObject", nullptr },

    { "ABVolumeHUDManager", "NSObject", make<VolumeHUDManager> },
    { "ABVolumeHUDVisibilityManager", "NSObject", nullptr },
    { "MeliorWindow", "UIWindow", make<MeliorWindow> },
};

/// Classes of other programs, which few phones have.
constexpr const char* absentClasses[] = { "ABVolumeHUDManager", "MeliorWindow" };

} // namespace

void addPlatformClasses(ClassTable& classes)
{
    for (const PlatformClass& row : platformClasses)
        classes.add(row.name, row.superclass).make = row.make;
    for (const char* const name : absentClasses)
        classes.setPresent(name, false);
    addViewMethods(classes);
    addServiceMethods(classes);
    addHomeScreenMethods(classes);
}

} // namespace panotra::sim
