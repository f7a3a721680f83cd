/// The table of events, and that it is obeyed.
#include "tests/unit/device/DeviceTest.h"

#include "simulator/device/TraceEvents.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace panotra::sim {
namespace {

using TraceEventsTest = DeviceTest;

TEST_F(TraceEventsTest, AnEventHasTheFieldsOfItsRow)
{
    device.trace("overlay", [] { return Json { { "class", "C" }, { "action", "hide" } }; });
    device.trace("overlay", [] { return Json { { "class", "C" }, { "action", "hide" }, { "value", true } }; });
    EXPECT_EQ(events.size(), 2u);
    EXPECT_DEATH(device.trace("post", [] { return Json { { "nom", "n" } }; }), "areFieldsOf");
    EXPECT_DEATH(device.trace("post"), "areFieldsOf");
    EXPECT_DEATH(device.trace("launched", [] { return Json { { "name", "n" } }; }), "areFieldsOf");
}

TEST(TraceEvents, HaveNamesOfTheirOwn)
{
    std::set<std::string_view> names;
    for (const TraceEvent& event : traceEvents)
        EXPECT_TRUE(names.insert(event.name).second) << event.name;
}

TEST(TraceEvents, HaveExamplesWithTheirFieldsInTheirOrder)
{
    for (const TraceEvent& event : traceEvents) {
        const auto example = Json::parse('{' + std::string(event.example) + '}', nullptr, false);
        ASSERT_TRUE(example.is_object()) << event.name;
        auto field = example.items().begin();
        std::istringstream words { std::string(event.fields) };
        for (std::string word; words >> word;) {
            const bool mayBeAbsent = word.ends_with('?');
            if (mayBeAbsent)
                word.pop_back();
            if (field != example.items().end() && field.key() == word)
                ++field;
            else
                EXPECT_TRUE(mayBeAbsent) << event.name << ' ' << word;
        }
        EXPECT_TRUE(field == example.items().end()) << event.name << " has more";
    }
}

} // namespace
} // namespace panotra::sim
