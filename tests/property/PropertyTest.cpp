/// A few thousand random scenarios, after each command of which the invariants are looked at.
#include "tests/property/Invariants.h"
#include "tests/property/RandomScenario.h"
#include "tests/property/Reduction.h"

#include <gtest/gtest.h>

#include <string>

namespace panotra::testing {
namespace {

constexpr std::uint64_t scenariosPerBatch = 300;

// Each build plays scenarios of its own: what a seed shows of the mixer it shows in either. The sanitizers take each
// several times as long, and get fewer.
constexpr std::uint64_t firstBatch = PANOTRA_SANITIZED ? 8 : 0;
constexpr std::uint64_t endOfBatches = PANOTRA_SANITIZED ? 10 : 8;

bool fails(const std::string& scenario)
{
    return scenario.find("load\n") != scenario.npos && firstViolation(scenario);
}

struct Batch : ::testing::TestWithParam<std::uint64_t> { };

TEST_P(Batch, WhateverHappensTheInvariantsHold)
{
    const std::uint64_t first = GetParam() * scenariosPerBatch;
    for (std::uint64_t seed = first; seed < first + scenariosPerBatch; ++seed) {
        const std::string scenario = randomScenario(seed);
        if (const auto violation = firstViolation(scenario)) {
            const std::string remaining = reduced(scenario, fails);
            FAIL() << "seed " << seed << ": " << *violation << "\nreduced to\n"
                   << remaining << "which ends in: " << firstViolation(remaining).value_or("nothing") << "\n";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Batch, ::testing::Range(firstBatch, endOfBatches));

TEST(Reduction, LeavesTheLinesThatMatter)
{
    const auto bothMatter = [](const std::string& scenario) {
        return scenario.find("b\n") != std::string::npos && scenario.find("d\n") != std::string::npos;
    };
    EXPECT_EQ(reduced("a\nb\nc\nd\ne\n", bothMatter), "b\nd\n");
}

TEST(RandomScenario, TheSameSeedGivesTheSameScenario)
{
    EXPECT_EQ(randomScenario(7), randomScenario(7));
    EXPECT_NE(randomScenario(7), randomScenario(8));
}

} // namespace
} // namespace panotra::testing
