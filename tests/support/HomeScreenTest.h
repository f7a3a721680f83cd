/// A home screen with the mixer's library in it, for tests that drive the host and watch what it is asked to do.
///
/// Time is virtual. When a test ends, the mixer is dismissed and everything that should be gone must be gone.
#pragma once

#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/Device.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

namespace panotra::testing {

inline constexpr const char* ownDomain = "net.qorvath.panotra";
inline constexpr const char* siblingDomain = "net.qorvath.brevane2";

class HomeScreenTest : public ::testing::Test {
protected:
    HomeScreenTest();
    void TearDown() override;

    /// Writes a key as another process would; the library is told by reloadSettings().
    void store(const char* key, const sim::Json& value) { device.preferences->set(ownDomain, key, value); }
    /// What is stored under a key of the mixer's domain; null if nothing is.
    sim::Json stored(const std::string& key) const;
    /// Stores every one of the twelve levels.
    void storeLevels(double level);

    void load();
    /// Loads the library and finishes launching.
    void launch();
    void reloadSettings();
    void announce(const char* category, const char* reason, float level);
    /// Lets `seconds` pass; zero only turns the run loop.
    void pass(double seconds = 0);

    /// Starts watching anew.
    void forgetEvents() { events.clear(); }
    std::vector<sim::Json> eventsOf(const std::string& name) const;
    std::size_t countOf(const std::string& name) const { return eventsOf(name).size(); }
    /// The names of the events watched, in order, those in `names` only.
    std::vector<std::string> order(const std::vector<std::string>& names) const;

    float systemLevel(const char* category) const;
    static NSString text(const char* characters) { return NSString::stringWithUTF8String(characters); }
    static PNOController controller() { return PNOController::sharedInstance(); }
    PNOVolumeView slider(SlotNumber slot) const { return controller().volumeView(slot); }
    /// What a slider's percentage says; empty if it was never drawn.
    std::string shownText(SlotNumber slot) const;
    /// How much a slider is enlarged: the first element of its transform.
    double swelling(SlotNumber slot) const;

    sim::Device device;
    sim::Library library = sim::loadedLibrary();
    std::vector<sim::Json> events;
};

} // namespace panotra::testing
