/// What is allowed though it looks wrong, each shown by a scenario.
#include "tests/interleavings/World.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace panotra::testing {
namespace {

/// A scenario that shows what is allowed shows it in its `expect` lines, and is a way to the state that the table
/// means.
class Allowed : public ::testing::TestWithParam<std::size_t> { };

TEST_P(Allowed, IsShownByItsScenario)
{
    const Allowance& allowance = allowances()[GetParam()];
    std::ifstream file(std::filesystem::path(PANOTRA_ALLOWED) / (std::string(allowance.scenario) + ".scenario"));
    const std::string text { std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>() };
    ASSERT_TRUE(text.starts_with(beginning)) << allowance.scenario;
    World world(nullptr);
    const sim::Scenario rest = sim::parseScenario(text);
    ASSERT_TRUE(rest.mistakes.empty());
    const sim::Scenario begun = sim::parseScenario(beginning);
    for (std::size_t i = begun.commands.size(); i < rest.commands.size(); ++i)
        world.play(std::string(rest.commands[i].source) + "\n");
    EXPECT_TRUE(world.expectationsHeld()) << allowance.scenario;
    EXPECT_THAT(world.end(), ::testing::Contains(GetParam())) << allowance.name;
    EXPECT_EQ(world.violation().value_or(""), "");
}

INSTANTIATE_TEST_SUITE_P(Each, Allowed, ::testing::Range(std::size_t { 0 }, allowances().size()));

} // namespace
} // namespace panotra::testing
