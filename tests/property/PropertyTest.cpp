/// A few thousand random scenarios, after each command of which the invariants are looked at.
#include "tests/property/Invariants.h"
#include "tests/property/RandomScenario.h"

#include <gtest/gtest.h>

#include <vector>

namespace panotra::testing {
namespace {

constexpr std::uint64_t scenariosPerBatch = 300;

// Each build plays scenarios of its own: what a seed shows of the mixer it shows in either. The sanitizers take each
// several times as long, and get fewer.
constexpr std::uint64_t firstBatch = PANOTRA_SANITIZED ? 8 : 0;
constexpr std::uint64_t endOfBatches = PANOTRA_SANITIZED ? 10 : 8;

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = text.find('\n', begin);
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

std::string textOf(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

/// Leaves out every line without which the scenario still fails, so that what remains is what matters.
std::string reduced(const std::string& failing)
{
    std::vector<std::string> lines = linesOf(failing);
    for (std::size_t i = lines.size(); i-- > 0;) {
        auto shorter = lines;
        shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(i));
        if (lines[i] != "load" && firstViolation(textOf(shorter)))
            lines = shorter;
    }
    return textOf(lines);
}

struct Batch : ::testing::TestWithParam<std::uint64_t> { };

TEST_P(Batch, WhateverHappensTheInvariantsHold)
{
    const std::uint64_t first = GetParam() * scenariosPerBatch;
    for (std::uint64_t seed = first; seed < first + scenariosPerBatch; ++seed) {
        const std::string scenario = randomScenario(seed);
        if (const auto violation = firstViolation(scenario)) {
            const std::string remaining = reduced(scenario);
            FAIL() << "seed " << seed << ": " << *violation << "\nreduced to\n"
                   << remaining << "which ends in: " << firstViolation(remaining).value_or("nothing") << "\n";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Batch, ::testing::Range(firstBatch, endOfBatches));

TEST(RandomScenario, TheSameSeedGivesTheSameScenario)
{
    EXPECT_EQ(randomScenario(7), randomScenario(7));
    EXPECT_NE(randomScenario(7), randomScenario(8));
}

} // namespace
} // namespace panotra::testing
