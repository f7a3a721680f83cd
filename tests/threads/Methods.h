/// The methods of the home screen that threads call, under the names that they have on the device's system.
#pragma once

#include "simulator/device/ClassTable.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/View.h"

#include <cstdint>
#include <functional>

namespace panotra::testing {

/// Whether indicator, ringer and turns go by the methods of later systems.
bool isLater();

/// A method as the runtime finds it: without the device's help, which is the main thread's alone.
template <typename Type> struct Method;
template <typename Result, typename... Arguments> struct Method<Result(Arguments...)> {
    HostObject* receiver;
    const HostSelector* selector;
    HostClass::Implementation implementation;

    Method(const char* className, const char* name)
        : receiver(sim::Device::current()->home->shared(className))
        , selector(sim::selector(name))
        , implementation(receiver->isa->find(selector))
    {
    }
    Result operator()(Arguments... arguments) const
    {
        return sim::call<Result>(implementation, receiver, selector, arguments...);
    }
};

/// One of each. What has another type on another system is called alike here.
struct Methods {
    Method<void(HostObject*)> announce { "AVSystemController", "postEffectiveVolumeNotification:" };
    Method<bool(float, HostObject*)> setVolume { "AVSystemController", "setVolumeTo:forCategory:" };
    Method<bool(float*, HostObject**, HostObject*)> activeVolume { "AVSystemController",
        "getActiveCategoryVolume:andName:fallbackCategory:" };
    Method<bool(HostObject*, std::int64_t, HostObject*)> play { "SBSoundController",
        "playSound:environments:completion:" };
    Method<void(bool)> muteRinger { isLater() ? "SBRingerControl" : "SBMediaController", "setRingerMuted:" };
    Method<void(sim::Rect)> moveStatusBar { "UIStatusBar", "setFrame:" };
    std::function<void(HostObject*)> presentIndicator;
    std::function<void(int mode, float level)> presentVolumeIndicator;
    std::function<void(int number)> presentRingerIndicator = [](int) {
    };
    std::function<void(int orientation)> turn;

    Methods();

private:
    void takeEarlierOnes();
    void takeLaterOnes();
};

} // namespace panotra::testing
