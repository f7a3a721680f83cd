/// What a state's key tells apart, and what it does not.
#include "tests/interleavings/StateKey.h"

#include "tests/interleavings/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panotra::testing {
namespace {

TEST(StateKey, IsTheSameHoweverTheClockStands)
{
    const auto statesAfter = [](double seconds) {
        World world(nullptr);
        world.pass(seconds);
        std::vector<std::string> states { world.state() };
        world.play("press up\n");
        states.push_back(world.state());
        return states;
    };
    EXPECT_EQ(statesAfter(0), statesAfter(5));
}

TEST(StateKey, TellsApartWhatGoesOnDifferently)
{
    World world(nullptr);
    std::vector<std::string> states { world.state() };
    for (const char* const line : { "press up\n", "wait 0.05\n", "wait 0.1\n", "release up\n", "ringer muted\n",
             "route Headphone\n", "category PhoneCall\n", "touch down 4 640\n", "touch up\n", "wait 1\n",
             "pref net.qorvath.panotra volume3 float 0.5\n", "shake\n" }) {
        world.repeat(line);
        EXPECT_THAT(states, ::testing::Not(::testing::Contains(world.state()))) << line;
        states.push_back(world.state());
    }
}

} // namespace
} // namespace panotra::testing
