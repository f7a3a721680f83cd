/// `ios`: which systems there are, and where the command may stand.
#include "simulator/scenario/Grammar.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace panotra::sim {
namespace {

std::vector<std::string> complaintsAbout(const std::string& text)
{
    std::vector<std::string> lines;
    for (const auto& mistake : parseScenario(text).mistakes)
        lines.push_back(std::to_string(mistake.line) + ": " + mistake.message);
    return lines;
}

using Complaints = std::vector<std::string>;

TEST(SystemCommand, TakesTheSystemsFrom9To16)
{
    for (const char* const system : { "9", "10", "11", "12", "13", "14", "15", "16", "+16", "016" })
        EXPECT_EQ(complaintsAbout(std::string("ios ") + system), Complaints()) << system;
    for (const std::string system : { "8", "17", "0", "-9", "9.0", "nine", "4294967305" })
        EXPECT_EQ(complaintsAbout("ios " + system),
            (Complaints { "1: found \"" + system + "\" for SYSTEM, expected a whole number from 9 to 16" }));
    EXPECT_EQ(
        complaintsAbout("ios nil"), (Complaints { "1: found nil for SYSTEM, expected a whole number from 9 to 16" }));
    EXPECT_EQ(complaintsAbout("ios"), (Complaints { "1: found nothing after ios, expected ios SYSTEM" }));
    EXPECT_EQ(complaintsAbout("ios 9 10"), (Complaints { "1: found 2 words after ios, expected ios SYSTEM" }));
}

TEST(SystemCommand, StandsOnceBeforeWhatIsLackingAndBeforeTheLoad)
{
    EXPECT_EQ(complaintsAbout("process a.b\nscreen 320 480 1\nios 13\nlack SpringBoard\nhave MeliorWindow\nload"),
        Complaints());
    EXPECT_EQ(
        complaintsAbout("ios 13\nios 13"), (Complaints { "2: found a second ios, expected only the first (line 1)" }));
    EXPECT_EQ(complaintsAbout("lack A\nhave B\nios 13"),
        (Complaints { "3: found ios after lack or have (line 1), expected it before them" }));
    EXPECT_EQ(complaintsAbout("have B\nios 13"),
        (Complaints { "2: found ios after lack or have (line 1), expected it before them" }));
    EXPECT_EQ(
        complaintsAbout("load\nios 13"), (Complaints { "2: found ios after load (line 1), expected it before load" }));
    EXPECT_EQ(complaintsAbout("lack A\nload\nios 13"),
        (Complaints { "3: found ios after load (line 2), expected it before load" }));
}

TEST(SystemCommand, IsSuggestedToWhoMistypesIt)
{
    EXPECT_EQ(complaintsAbout("ioss 13"), (Complaints { "1: found \"ioss\", expected a command (did you mean ios?)" }));
}

} // namespace
} // namespace panotra::sim
