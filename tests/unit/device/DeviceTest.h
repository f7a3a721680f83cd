/// A device whose trace is kept, with objects for tests to send messages to.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/Values.h"
#include "simulator/device/View.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace panotra::sim {

class DeviceTest : public ::testing::Test {
protected:
    DeviceTest();

    /// A new object of a platform class, counted once for as long as the test lasts.
    template <typename Object, typename... Arguments> Object& make(const char* className, Arguments&&... arguments)
    {
        return *device.classes->make<Object>(className, std::forward<Arguments>(arguments)...);
    }
    View& makeView(Rect frame = {});
    BackdropView& makeBackdrop(bool autosizes);
    /// An object that knows the methods `first`, `second` and `third:`; each adds to `calls`.
    HostObject& makeRecorder();
    /// An object of the class "Holder" with one field of every name, each holding what stands beside it.
    HostObject& makeHolder(const std::vector<std::pair<std::string, HostObject*>>& fields);

    std::vector<Json> eventsOf(const std::string& name) const;
    std::vector<std::string> eventNames() const;

    Device device;
    std::vector<Json> events;
    /// What the recorders were told, with the time: "0.5 third: <name of the object>".
    static inline std::vector<std::string> calls;
};

/// Runs `body` in an animation block and leaves the animation running for a second.
template <typename Body> void animateForASecond(RunLoop& runLoop, Body body)
{
    runLoop.animate(1, 0, 0, body, nullptr);
}

} // namespace panotra::sim
