/// The table of events, and that it is obeyed.
#include "tests/unit/device/DeviceTest.h"

#include "simulator/device/EventFields.h"
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
    device.trace("overlay", [](EventFields& fields) { fields.add("class", "C", "action", "hide"); });
    device.trace("overlay", [](EventFields& fields) { fields.add("class", "C", "action", "hide", "value", true); });
    EXPECT_EQ(events.size(), 2u);
    const auto nom = [](EventFields& fields) {
        fields.add("nom", "n");
    };
    const auto turned = [](EventFields& fields) {
        fields.add("object", nullptr, "selector", "s");
    };
    EXPECT_DEATH(device.trace("post", nom), "does not have there");
    EXPECT_DEATH(device.trace("post"), "is missing");
    EXPECT_DEATH(device.trace("launched", nom), "does not have there");
    EXPECT_DEATH(device.trace("cancel", turned), "does not have there");
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
