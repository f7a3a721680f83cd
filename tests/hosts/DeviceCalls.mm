/// The device's calls as messages.
#include "tests/hosts/DeviceCalls.h"

#include "tests/hosts/Hostility.h"
#include "tests/hosts/Peers.h"

#include <objc/message.h>
#include <objc/runtime.h>

#include <array>
#include <map>
#include <string_view>
#include <utility>

namespace panotra::hosts {

namespace {

/// How a value of the device's type crosses into a message and back.
template <typename T> struct Crossing {
    using Foreign = T;
    static T out(T value) { return value; }
    static T in(T value) { return value; }
};
template <> struct Crossing<bool> {
    using Foreign = BOOL;
    static BOOL out(bool value) { return value ? YES : NO; }
    static bool in(BOOL value) { return value != NO; }
};
template <> struct Crossing<HostObject*> {
    using Foreign = id;
    static id out(HostObject* object) { return hostObjectFor(object); }
    static HostObject* in(id object) { return deviceObjectFor(object); }
};

template <typename... Arguments> struct MessageOf;

/// A pool for each message, as the platform's events have one; what is answered is the device's by then.
template <typename Result, typename... Arguments> struct MessageOf<Result(Arguments...)> {
    static Result send(HostObject* self, const HostSelector* name, Arguments... arguments)
    {
        NSAutoreleasePool* const pool = [NSAutoreleasePool new];
        const id receiver = hostObjectFor(self);
        const SEL selector = sel_registerName(name->name.c_str());
        using Method = typename Crossing<Result>::Foreign (*)(id, SEL, typename Crossing<Arguments>::Foreign...);
        const auto method = reinterpret_cast<Method>(objc_msg_lookup(receiver, selector));
        const Result result = Crossing<Result>::in(method(receiver, selector, Crossing<Arguments>::out(arguments)...));
        [pool drain];
        return result;
    }
};

template <typename... Arguments> struct MessageOf<void(Arguments...)> {
    static void send(HostObject* self, const HostSelector* name, Arguments... arguments)
    {
        NSAutoreleasePool* const pool = [NSAutoreleasePool new];
        const id receiver = hostObjectFor(self);
        const SEL selector = sel_registerName(name->name.c_str());
        using Method = void (*)(id, SEL, typename Crossing<Arguments>::Foreign...);
        reinterpret_cast<Method>(objc_msg_lookup(receiver, selector))(
            receiver, selector, Crossing<Arguments>::out(arguments)...);
        [pool drain];
    }
};

/// The out-parameter is an object of the caller's own kind on either side.
bool askActiveCategoryVolume(
    HostObject* self, const HostSelector* name, float* level, HostObject** category, HostObject* fallback)
{
    NSAutoreleasePool* const pool = [NSAutoreleasePool new];
    const id receiver = hostObjectFor(self);
    const SEL selector = sel_registerName(name->name.c_str());
    using Method = BOOL (*)(id, SEL, float*, id*, id);
    id answered = category == nullptr ? nil : hostObjectFor(*category);
    const BOOL result = reinterpret_cast<Method>(objc_msg_lookup(receiver, selector))(
        receiver, selector, level, category == nullptr ? nullptr : &answered, hostObjectFor(fallback));
    if (category != nullptr && result != NO)
        *category = deviceObjectFor(answered);
    [pool drain];
    return result != NO;
}

bool sendGetActiveCategoryVolume(
    HostObject* self, const HostSelector* name, float* level, HostObject** category, HostObject* fallback)
{
    bool result = false;
    callFromOutside(name->name, [&] { result = askActiveCategoryVolume(self, name, level, category, fallback); });
    return result;
}

template <typename Type> HostClass::Implementation message()
{
    return sim::implementation(MessageOf<Type>::send);
}

struct TypedMessage {
    std::string_view encoding;
    HostClass::Implementation message;
};

/// The methods of classes that come with a library: what the device performs, hit-tests, tells of drags and asks of
/// listeners.
const TypedMessage typedMessages[] = {
    { "v@:", message<void()>() },
    { "v@:@", message<void(HostObject*)>() },
    { "v@:@@@", message<void(HostObject*, HostObject*, HostObject*)>() },
    { "@@:@@", message<HostObject*(HostObject*, HostObject*)>() },
    { "@@:@@^d", message<HostObject*(HostObject*, HostObject*, double*)>() },
    { "@@:{CGPoint=dd}@", message<HostObject*(sim::Point, HostObject*)>() },
};

/// The same as a call of a hooked method: from wherever the outside calls.
template <typename Type> struct CallOf;
template <typename Result, typename... Arguments> struct CallOf<Result(Arguments...)> {
    static Result send(HostObject* self, const HostSelector* name, Arguments... arguments)
    {
        Result result {};
        callFromOutside(name->name, [&] { result = MessageOf<Result(Arguments...)>::send(self, name, arguments...); });
        return result;
    }
};
template <typename... Arguments> struct CallOf<void(Arguments...)> {
    static void send(HostObject* self, const HostSelector* name, Arguments... arguments)
    {
        callFromOutside(name->name, [&] { MessageOf<void(Arguments...)>::send(self, name, arguments...); });
    }
};

template <typename Type> HostClass::Implementation call()
{
    return sim::implementation(CallOf<Type>::send);
}

struct DeviceCall {
    const char* className;
    const char* selector;
    HostClass::Implementation message;
};

const DeviceCall deviceCalls[] = {
    { "UIResponder", "motionBegan:withEvent:", call<void(std::int64_t, HostObject*)>() },
    { "SpringBoard", "applicationDidFinishLaunching:", call<void(HostObject*)>() },
    { "AVSystemController", "postEffectiveVolumeNotification:", call<void(HostObject*)>() },
    { "AVSystemController",
        "getActiveCategoryVolume:andName:fallbackCategory:", sim::implementation(sendGetActiveCategoryVolume) },
    { "AVSystemController", "setVolumeTo:forCategory:", call<bool(float, HostObject*)>() },
    { "SBSoundController", "playSound:environments:completion:", call<bool(HostObject*, std::int64_t, HostObject*)>() },
    { "SBMediaController", "setRingerMuted:", call<void(bool)>() },
    { "SBHUDController", "presentHUDView:autoDismissWithDelay:", call<void(HostObject*, double)>() },
    { "SBHUDController", "reorientHUDIfNeeded:", call<void(bool)>() },
    { "VolumeControl", "_presentVolumeHUDWithMode:volume:", call<void(std::int32_t, float)>() },
    { "UIStatusBar", "setFrame:", call<void(sim::Rect)>() },
    { "_UIStatusBar", "setFrame:", call<void(sim::Rect)>() },
};

/// What came with later systems, and what a class inherits there that it has of its own in other processes.
const DeviceCall laterDeviceCalls[] = {
    { "SBRingerControl", "setRingerMuted:", call<void(bool)>() },
    { "SBRingerControl", "activateRingerHUDFromMuteSwitch:", call<void(std::int32_t)>() },
    { "SBRingerControl",
        "activateRingerHUD:withInitialVolume:fromSource:", call<void(std::int32_t, float, std::uint64_t)>() },
    { "SBHUDController", "_presentHUD:animated:", call<void(HostObject*, bool)>() },
    { "SpringBoard",
        "noteInterfaceOrientationChanged:duration:logMessage:", call<void(std::int64_t, double, HostObject*)>() },
    { "SBVolumeControl", "_presentVolumeHUDWithVolume:", call<void(float)>() },
    { "UIView", "setFrame:", call<void(sim::Rect)>() },
};

using MethodKey = std::pair<std::string, std::string>;

std::map<MethodKey, HostClass::Implementation>& routed()
{
    static std::map<MethodKey, HostClass::Implementation> all;
    return all;
}

/// Methods that the process has not are left out.
void route(const DeviceCall& call)
{
    HostClass& hostClass = device().classes->platformClass(call.className);
    const auto method = hostClass.methods.find(sim::selector(call.selector));
    if (method != hostClass.methods.end())
        routed()[{ call.className, call.selector }] = std::exchange(method->second, call.message);
}

} // namespace

HostClass::Implementation messageOfType(const char* encoding)
{
    for (const TypedMessage& each : typedMessages) {
        if (each.encoding == encoding)
            return each.message;
    }
    return nullptr;
}

void routeDeviceCallsThroughMessages()
{
    for (const DeviceCall& call : deviceCalls)
        route(call);
    if (!device().system)
        return;
    for (const DeviceCall& call : laterDeviceCalls) {
        if (device().classes->find(call.className) != nullptr)
            route(call);
    }
}

HostClass::Implementation ownImplementation(const char* className, SEL selector)
{
    const auto place = routed().find({ className, sel_getName(selector) });
    if (place != routed().end())
        return place->second;
    return device().classes->platformClass(className).find(sim::selector(sel_getName(selector)));
}

} // namespace panotra::hosts
