/// Objects, services and the runtime on null.
#include "platform/AVSystemController.h"
#include "platform/LAActivator.h"
#include "platform/MethodReplacement.h"
#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/Notify.h"
#include "platform/SpringBoard.h"
#include "platform/UIEvent.h"
#include "platform/UIScreen.h"
#include "platform/VolumeOverlays.h"
#include "tests/seam/NullOperations.h"

namespace panotra {

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

std::vector<Operation> operationsOfObjects()
{
    const NSObject object;
    return {
        operation("isEqual", [=] { return !object.isEqual(object); }),
        operation("respondsToSelector", [=] { return !object.respondsToSelector("init"); }),
        operation("valueForKey", [=] { return !object.valueForKey("_window"); }),
        operation("boolValue", [=] { return !object.boolValue(); }),
        operation("floatValue", [=] { return object.floatValue() == 0; }),
        operation("doubleValue", [=] { return object.doubleValue() == 0; }),
        operation("integerValue", [=] { return object.integerValue() == 0; }),
        operation("unsignedShortValue", [=] { return object.unsignedShortValue() == 0; }),
        operation("performSelector", [=] { object.performSelector("init", object, 0); }),
        operation("performSelector of nothing", [=] { object.performSelector(nullptr, object, 0); }),
        operation("stringWithUTF8String", [] { return !NSString::stringWithUTF8String(nullptr); }),
        operation("NSString::constant", [] { return !NSString::constant(nullptr); }),
        operation("NSString::checked", [=] { return !NSString::checked(object); }),
        operation("view", [] { return NSString().view().empty(); }),
        operation("isEqualToString", [] { return !NSString().isEqualToString(""); }),
        operation("NSDictionary::checked", [=] { return !NSDictionary::checked(object); }),
        operation("NSDictionary objectForKey", [] { return !NSDictionary().objectForKey(nullptr); }),
        operation("initWithSuiteName", [] { return !NSUserDefaults::initWithSuiteName(nullptr); }),
        operation("synchronize", [] { NSUserDefaults().synchronize(); }),
        operation("NSUserDefaults objectForKey", [] { return !NSUserDefaults().objectForKey(nullptr); }),
        operation("setObject", [] { NSUserDefaults().setObject(nullptr, nullptr); }),
        operation("bundleWithPath", [] { return !NSBundle::bundleWithPath(nullptr); }),
        operation("bundleIdentifier", [] { return !NSBundle().bundleIdentifier(); }),
    };
}

std::vector<Operation> operationsOfServices()
{
    return {
        operation("setVolumeTo", [] { return !AVSystemController().setVolumeTo(0.5f, nullptr); }),
        operation("getVolume",
            [] {
                float level = 0.25f;
                return !AVSystemController().getVolume(&level, nullptr) && level == 0.25f;
            }),
        operation("attributeForKey",
            [] { return !AVSystemController().attributeForKey(AVController_ActiveAudioRouteAttribute); }),
        operation("registerListener", [] { LAActivator().registerListener(nullptr, "name"); }),
        operation("setHandled", [] { LAEvent().setHandled(true); }),
        operation("activeInterfaceOrientation", [] { return UIApplication().activeInterfaceOrientation() == 0; }),
        operation("statusBar", [] { return !UIApplication().statusBar(); }),
        operation("connectedWindowScene", [] { return !UIApplication().connectedWindowScene(); }),
        operation("volumeControl", [] { return !UIApplication().volumeControl(); }),
        operation("statusBarForEmbeddedDisplay", [] { return !SpringBoard().statusBarForEmbeddedDisplay(); }),
        operation("activeAudioRoute", [] { return !SBAVSystemControllerCache().activeAudioRoute(); }),
        operation("windowRotationDuration", [] { return SpringBoard().windowRotationDuration() == 0; }),
        operation("isSpringBoardStatusBarHidden", [] { return !SpringBoard().isSpringBoardStatusBarHidden(); }),
        operation("isSiriVisible", [] { return !AXSpringBoardServer().isSiriVisible(); }),
        operation("openSiri", [] { AXSpringBoardServer().openSiri(); }),
        operation("dismissSiri", [] { AXSpringBoardServer().dismissSiri(); }),
        operation("assistant window", [] { return !SBAssistantController().window(); }),
        operation("event type", [] { return UIEvent().type() == 0; }),
        operation("soundType", [] { return SBSound().soundType() == 0; }),
        operation("firstSubview", [] { return !MeliorWindow().firstSubview(); }),
        operation("hideImmediatelyIfPossible", [] { ABVolumeHUDVisibilityManager().hideImmediatelyIfPossible(); }),
        operation("visibilityManager", [] { return !ABVolumeHUDManager().visibilityManager(); }),
        operation("targetView", [] { return !ABVolumeHUDManager().targetView(); }),
        operation("screen bounds", [] { return UIScreen().bounds() == CGRect(); }),
        operation("scale", [] { return UIScreen().scale() == 0; }),
        operation("realDisplayBounds", [] { return UIScreen().realDisplayBounds() == CGRect(); }),
        operation("referenceBounds", [] { return UIScreen().referenceBounds() == CGRect(); }),
    };
}

std::vector<Operation> operationsOfTheRuntime()
{
    return {
        operation("objc_getClass", [] { return objc_getClass(nullptr) == nullptr; }),
        operation("replaceMethod of nothing",
            [] {
                IMP previous = nullptr;
                replaceMethod(
                    objc_getClass("NSObject"), nullptr, [] {}, &previous);
                return previous == nullptr;
            }),
        operation("replaceMethod",
            [] {
                IMP previous = nullptr;
                replaceMethod(
                    nullptr, "init", [] {}, &previous);
                return previous == nullptr;
            }),
        operation("hasMethod", [] { return !hasMethod(nullptr, "init"); }),
        operation("retain", [] { retain(nullptr); }),
        operation("release", [] { release(nullptr); }),
        operation("autorelease", [] { return autorelease(nullptr) == nullptr; }),
        operation("objc_autoreleasePoolPush", [] { objc_autoreleasePoolPop(objc_autoreleasePoolPush()); }),
        operation("allocate", [] { return allocate(nobody()) == nullptr; }),
        operation("superInit", [] { return superInit(nullptr, nobody()) == nullptr; }),
        operation("instanceVariables", [] { return instanceVariables(nullptr, nobody()) == nullptr; }),
        operation("notify_register_check",
            [] {
                std::int32_t token = -1;
                notify_register_check(nullptr, &token);
                return token == -1;
            }),
        operation("notify_get_state", [] { return notify_get_state(-1) == 0; }),
        operation("notify_post", [] { notify_post(nullptr); }),
        operation("addDarwinObserver", [] { addDarwinObserver("name", nullptr); }),
        operation("addDarwinObserver without a name", [] { addDarwinObserver(nullptr, []() noexcept {}); }),
    };
}

} // namespace panotra
