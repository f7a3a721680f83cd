/// Some days of the year, and days with which somebody meddles.
#include "tests/endurance/Year.h"

#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace panotra::testing {
namespace {

TEST(Year, HasDaysOnWhichEveryLevelIsRightAndNothingIsLeft)
{
    const YearLived lived = liveAYear({ .days = 6 });
    EXPECT_EQ(lived.complaint.value_or(""), "");
    EXPECT_EQ(lived.events, 1800u);
    EXPECT_GT(lived.showings, 100u);
    EXPECT_GT(lived.drags, 100u);
}

TEST(Year, NoticesALevelThatSomebodyChanges)
{
    const YearLived lived = liveAYear({ .days = 3, .plant = [](sim::Device& device, unsigned day) {
                                           if (day == 1)
                                               device.preferences->set("net.qorvath.panotra", "volume8", 0.99);
                                       } });
    ASSERT_TRUE(lived.complaint.has_value());
    EXPECT_TRUE(lived.complaint->starts_with("day 2, ")) << *lived.complaint;
}

TEST(Year, NoticesAnObjectThatIsLeftOver)
{
    const YearLived lived = liveAYear({ .days = 5, .plant = [](sim::Device& device, unsigned day) {
                                           if (day == 3)
                                               device.classes->instantiate(*device.classes->find("UILabel"));
                                       } });
    EXPECT_EQ(lived.days, 4u);
    EXPECT_THAT(lived.complaint.value_or(""), ::testing::HasSubstr("left over: UILabel"));
}

TEST(Year, NoticesThatObjectsGrowMoreAndMore)
{
    const YearLived lived = liveAYear({ .days = 20, .eventsADay = 10, .plant = [](sim::Device& device, unsigned) {
                                           device.classes->instantiate(*device.classes->find("UIView"));
                                       } });
    EXPECT_LT(lived.days, 20u);
    EXPECT_THAT(lived.complaint.value_or(""), ::testing::HasSubstr("objects at midnight"));
}

} // namespace
} // namespace panotra::testing
