/// A shallow search, and plants that it must find.
#include "tests/interleavings/Explorer.h"

#include "model/ProcessValues.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace panotra::testing {
namespace {

using ::testing::HasSubstr;

TEST(Interleavings, OfTwoEventsAndPausesHoldToTheRules)
{
    const Found found = explore({ .depth = 2, .processes = 1 });
    EXPECT_EQ(found.violation.value_or(""), "") << found.scenario;
    EXPECT_EQ(found.depth, 2u);
    EXPECT_GT(found.states, 100u);
}

TEST(Interleavings, FindTheSameWithOneProcessAndWithSeveral)
{
    const Found alone = explore({ .depth = 1, .processes = 1 });
    const Found together = explore({ .depth = 1, .processes = 3 });
    EXPECT_EQ(alone.states, together.states);
    EXPECT_EQ(alone.transitions, together.transitions);
}

// A tear-down that keeps the window if a dismissal is still waiting: it takes a dismissal on demand before the timer's
// to see that.
HostClass::Implementation soundTearDown = nullptr;

void tearDownAndLeak(HostObject* self, const HostSelector* name)
{
    sim::Device& device = *sim::Device::current();
    HostObject* const window = device.classes->heldInField("_window");
    if (device.runLoop->pendingCount() != 0)
        sim::retain(window);
    sim::call<void>(soundTearDown, self, name);
}

void plantLeak(sim::Device& device)
{
    HostClass* const controller = device.classes->find("PNOController");
    ASSERT_NE(controller, nullptr);
    ASSERT_TRUE(device.classes->replace(
        *controller, sim::selector("releaseObjects"), sim::implementation(tearDownAndLeak), &soundTearDown));
}

TEST(Interleavings, FindAWindowThatLeaksInOneOrderOfEvents)
{
    const Found found = explore({ .depth = 2, .processes = 1, .plant = plantLeak });
    ASSERT_TRUE(found.violation.has_value());
    EXPECT_THAT(*found.violation, HasSubstr("windows alive"));
    const sim::Scenario scenario = sim::parseScenario(found.scenario);
    EXPECT_TRUE(scenario.mistakes.empty());
    // Nothing but what it takes: something that shows the mixer, and something that dismisses it.
    const std::string lines = found.scenario.substr(std::string(beginning).size());
    EXPECT_LE(std::ranges::count(lines, '\n'), 4) << lines;
}

/// A ringer that is not given back: what is put on the queue for it never comes.
void plantForgottenRinger(sim::Device&)
{
    processValues.isAppCallNotification = true;
}

TEST(Interleavings, FindARingerThatIsNotGivenBack)
{
    const Found found = explore({ .depth = 1, .processes = 1, .plant = plantForgottenRinger });
    ASSERT_TRUE(found.violation.has_value());
    EXPECT_THAT(*found.violation, HasSubstr("the ringer that was borrowed for a sound is given back"));
    EXPECT_EQ(found.scenario, std::string(beginning) + "sound 1\n");
}

} // namespace
} // namespace panotra::testing
