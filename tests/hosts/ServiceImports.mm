/// The hooking framework, Darwin notifications and the main queue, over the device.
#include "simulator/device/DarwinNotifications.h"
#include "simulator/device/RunLoop.h"
#include "tests/hosts/Blocks.h"
#include "tests/hosts/Crossings.h"
#include "tests/hosts/Imports.h"
#include "tests/hosts/Peers.h"
#include "tests/hosts/Values.h"

#include <objc/runtime.h>

using namespace panotra;
using hosts::noteCrossing;

// The runtime's own: what is cached of a class and of those below it is made anew.
extern "C" void __objc_update_dispatch_table_for_class(Class);

namespace {

constexpr double nanosecondsPerSecond = 1e9;
constexpr std::uint32_t statusOk = 0;

using NotificationCallback
    = void (*)(void* center, void* observer, const void* name, const void* object, const void* userInfo);

/// Stands for the one notification centre there is.
int darwinNotifyCenter;

hosts::HookingFramework framework = hosts::HookingFramework::AddsMethods;

/// The device reports the hook, and goes on sending the message.
void tellDevice(Class hostClass, SEL selector)
{
    HostClass& known = hosts::deviceClassOf(hostClass);
    const HostSelector* const name = sim::selector(sel_getName(selector));
    hosts::device().classes->replace(known, name, known.find(name), nullptr);
}

} // namespace

void hosts::chooseHookingFramework(HookingFramework kind)
{
    framework = kind;
}

extern "C" {

/// The previous implementation is known before the
/// replacement can run.
void __wrap_MSHookMessageEx(Class hostClass, SEL selector, IMP replacement, IMP* previous)
{
    noteCrossing("MSHookMessageEx");
    const Method method = class_getInstanceMethod(hostClass, selector);
    if (method == nullptr)
        return;
    if (previous != nullptr)
        *previous = method_getImplementation(method);
    const bool isAdded = framework == hosts::HookingFramework::AddsMethods
        && class_addMethod(hostClass, selector, replacement, method_getTypeEncoding(method));
    if (!isAdded)
        method_setImplementation(method, replacement);
    for (Class changed = hostClass; changed != Nil; changed = class_getSuperclass(changed))
        __objc_update_dispatch_table_for_class(changed);
    tellDevice(hostClass, selector);
}

// Darwin notifications.

std::uint32_t __wrap_notify_register_check(const char* name, int* token)
{
    noteCrossing("notify_register_check");
    *token = hosts::device().darwin->registerCheck(name);
    return statusOk;
}

std::uint32_t __wrap_notify_get_state(int token, std::uint64_t* state)
{
    noteCrossing("notify_get_state");
    *state = hosts::device().darwin->stateOf(token);
    return statusOk;
}

std::uint32_t __wrap_notify_post(const char* name)
{
    noteCrossing("notify_post");
    hosts::device().darwin->post(name);
    return statusOk;
}

void* __wrap_CFNotificationCenterGetDarwinNotifyCenter()
{
    noteCrossing("CFNotificationCenterGetDarwinNotifyCenter");
    return &darwinNotifyCenter;
}

void __wrap_CFNotificationCenterAddObserver(void* center, void* observer, NotificationCallback callback,
    const void* name, const void* object, std::intptr_t suspensionBehavior)
{
    noteCrossing("CFNotificationCenterAddObserver");
    const auto text = hosts::textOf(static_cast<id>(const_cast<void*>(name)));
    if (!text)
        return;
    hosts::noteObservation({ center, observer, *text, object, suspensionBehavior });
    // For the life of the process, as the observation: whoever asked for it may let go of the name.
    const void* const kept = [static_cast<id>(const_cast<void*>(name)) retain];
    hosts::device().darwin->addObserver(*text, [=] { callback(center, observer, kept, object, nullptr); });
}

int __wrap_pthread_main_np()
{
    noteCrossing("pthread_main_np");
    return hosts::device().isMainThread() ? 1 : 0;
}

// The main queue. Time does not pass between asking for one and handing it over, so that the delay alone tells
// when.

std::uint64_t __wrap_dispatch_time(std::uint64_t, std::int64_t nanoseconds)
{
    noteCrossing("dispatch_time");
    return static_cast<std::uint64_t>(nanoseconds);
}

void __wrap_dispatch_async_f(void*, void* context, void (*work)(void* context))
{
    noteCrossing("dispatch_async_f");
    hosts::device().runLoop->post([=] { work(context); });
}

void __wrap_dispatch_after(std::uint64_t nanoseconds, void*, void* block)
{
    noteCrossing("dispatch_after");
    hosts::device().runLoop->dispatch(
        static_cast<double>(nanoseconds) / nanosecondsPerSecond, hosts::functionOfBlock(block));
}

/// Only its address is asked for.
int _dispatch_main_q;

} // extern "C"
