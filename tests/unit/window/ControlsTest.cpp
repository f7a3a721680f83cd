/// The table of controls: complete, without two meanings of one key, and every line one that the player takes.
#include "simulator/window/Controls.h"
#include "simulator/window/WindowKeys.h"
#include "tests/unit/window/SessionFixture.h"

#include <set>

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::HasSubstr;
using ControlsTest = testing::SessionFixture;

TEST_F(ControlsTest, EveryKeyMeansOneThing)
{
    std::set<std::string> keys { "Escape" };
    for (const WindowKey& key : windowKeys()) {
        EXPECT_TRUE(keys.insert(key.key).second) << key.key;
        EXPECT_EQ(findWindowKey(key.key), &key);
        EXPECT_EQ(&keyOf(key.act), &key);
    }
    for (const Control& control : allControls()) {
        EXPECT_TRUE(keys.insert(control.key).second) << control.key;
        EXPECT_EQ(findControl(control.key), &control);
        EXPECT_STRNE(control.label, "");
        EXPECT_STRNE(control.cap, "");
    }
    EXPECT_EQ(findControl("Z"), nullptr);
}

TEST_F(ControlsTest, ControlsOfAGroupStandTogether)
{
    std::set<std::string> before;
    std::string group;
    for (const Control& control : allControls()) {
        if (group == control.group)
            continue;
        group = control.group;
        EXPECT_TRUE(before.insert(group).second) << group;
    }
}

TEST_F(ControlsTest, EveryControlCanBeUsedTwice)
{
    start();
    Phone phone(session->device());
    for (int round = 0; round < 2; ++round) {
        for (const Control& control : allControls()) {
            const Lines lines = control.press(phone);
            EXPECT_TRUE(!lines.empty() || round > 0) << control.label; // taking out what is not heard is no line
            session->playAll(lines);
            if (control.release != nullptr) {
                EXPECT_TRUE(control.isOn(phone)) << control.label;
                session->playAll(control.release(phone));
                EXPECT_FALSE(control.isOn(phone)) << control.label;
            }
            session->advance(700ms);
        }
    }
    for (const char* const event : { "ringer", "handled", "sound", "statusBarFrame" })
        EXPECT_THAT(traced, HasSubstr(std::string("\"event\":\"") + event + '"'));
}

} // namespace
} // namespace panotra::sim
