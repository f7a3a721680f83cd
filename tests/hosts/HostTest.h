/// A process of Objective-C objects with the library's file in it, for tests that do what no scenario can.
///
/// A library is loaded once a process, so that each test wants a process of its own, as ctest gives it.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/Touches.h"
#include "tests/hosts/HostLibrary.h"
#include "tests/hosts/classes/SpringBoard.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <objc/runtime.h>

#include <optional>
#include <string>
#include <vector>

namespace panotra::testing {

class HostTest : public ::testing::Test {
protected:
    /// `system`: the process has the shape of that system, 9 to 16.
    explicit HostTest(std::optional<int> system = std::nullopt);

    /// The library comes into the process.
    void load();
    /// The same, and the home screen has launched.
    void launch();
    /// Lets the run loop turn, and `seconds` pass.
    void pass(double seconds = 0);

    static AVSystemController* audio() { return [AVSystemController sharedAVSystemController]; }
    /// Sends the audio service's own announcement, as the audio service does.
    void announce(id announcement);

    std::size_t countOf(const std::string& event) const;
    /// The mixer is on the screen.
    bool isShown() { return device.home->window() != nullptr; }

    sim::Device device;
    sim::Library library = hosts::chosenLibrary();
    std::vector<sim::Json> events;
};

/// Another library's hook, as the hooking framework installs it.
IMP hook(const char* className, const char* selector, IMP replacement);

/// What a test about the class of that name is called.
std::string testNameOfClass(const ::testing::TestParamInfo<const char*>& info);

} // namespace panotra::testing
