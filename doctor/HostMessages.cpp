/// Tables of names, and a line each.
#include "doctor/HostMessages.h"

#include "platform/ios/Classes.h"
#include "platform/ios/Firewall.h"
#include "platform/ios/ObjectiveC.h"
#include "platform/ios/Send.h"

namespace panotra::doctor {

using namespace ios;

namespace {

constinit ClassName UIDevice { "UIDevice" };
constinit ClassName NSThread { "NSThread" };
constinit ClassName NSNotificationCenter { "NSNotificationCenter" };

constinit Selector<id()> currentDevice { "currentDevice" };
constinit Selector<id()> systemVersionOfDevice { "systemVersion" };
constinit Selector<bool()> isMainThread { "isMainThread" };
constinit Selector<id()> defaultCenter { "defaultCenter" };
constinit Selector<void(id, SEL, id, id)> addObserverToCenter { "addObserver:selector:name:object:" };
constinit Selector<void(id)> removeObserverFromCenter { "removeObserver:" };
constinit Selector<id()> name { "name" };
constinit Selector<id()> userInfo { "userInfo" };
constinit Selector<id()> allKeys { "allKeys" };

NSObject center() noexcept
{
    return ask<NSObject>(NSNotificationCenter, defaultCenter);
}

} // namespace

NSString systemVersion() noexcept
{
    const NSObject device = ask<NSObject>(UIDevice, currentDevice);
    return NSString::checked(ask<NSObject>(device.get(), systemVersionOfDevice));
}

bool isOnMainThread() noexcept
{
    return send(NSThread, isMainThread);
}

bool hasClass(const char* className) noexcept
{
    return shielded([=] { return ::objc_getClass(className) != nullptr; });
}

const char* typeOfMethod(const char* className, const char* method, bool isOfClass) noexcept
{
    return shielded([=]() -> const char* {
        ::Class const hostClass = ::objc_getClass(className);
        if (hostClass == nullptr)
            return nullptr;
        ::SEL const selector = sel_registerName(method);
        ::Method const found
            = isOfClass ? class_getClassMethod(hostClass, selector) : class_getInstanceMethod(hostClass, selector);
        return found != nullptr ? method_getTypeEncoding(found) : nullptr;
    });
}

const char* typeOfVariable(const char* className, const char* variable) noexcept
{
    return shielded([=]() -> const char* {
        ::Class const hostClass = ::objc_getClass(className);
        ::Ivar const found = hostClass != nullptr ? class_getInstanceVariable(hostClass, variable) : nullptr;
        return found != nullptr ? ivar_getTypeEncoding(found) : nullptr;
    });
}

void addObserver(const NSObject& observer, const char* called, const NSObject& object) noexcept
{
    const NSString wanted = called != nullptr ? NSString::stringWithUTF8String(called) : NSString();
    send(center().get(), addObserverToCenter, observer.get(), selectorNamed("observe:"), wanted.get(), object.get());
}

void removeObserver(const NSObject& observer) noexcept
{
    send(center().get(), removeObserverFromCenter, observer.get());
}

NSString nameOfNotification(const NSObject& notification) noexcept
{
    return NSString::checked(ask<NSObject>(notification.get(), name));
}

NSDictionary contentsOfNotification(const NSObject& notification) noexcept
{
    return NSDictionary::checked(ask<NSObject>(notification.get(), userInfo));
}

NSObject keysOf(const NSDictionary& dictionary) noexcept
{
    return ask<NSObject>(dictionary.get(), allKeys);
}

std::size_t countOf(const NSObject& list) noexcept
{
    return send(list.get(), selectors::count);
}

NSString stringAt(const NSObject& list, std::size_t index) noexcept
{
    return NSString::checked(ask<NSObject>(list.get(), selectors::objectAtIndex, index));
}

const char* kindOf(const NSObject& value) noexcept
{
    for (ClassName* const kind : { &classes::NSString, &classes::NSNumber, &classes::NSDictionary }) {
        if (isKindOf(value.get(), *kind))
            return class_getName(toRuntime(kind->get()));
    }
    return value ? object_getClassName(toRuntime(value.get())) : "nothing";
}

} // namespace panotra::doctor
