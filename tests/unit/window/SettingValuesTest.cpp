/// Each setting, as the library takes it.
#include "simulator/window/SettingValues.h"
#include "simulator/preferences/Conversions.h"
#include "tests/unit/window/SessionFixture.h"

#include <limits>

namespace panotra::sim {
namespace {

class SettingValuesTest : public testing::SessionFixture {
protected:
    /// What the library holds.
    double global(const MixerSetting& row) const { return preferences::numberOf(library.globals().at(row.valueName)); }
};

const MixerSetting& row(const std::string& key)
{
    return *std::ranges::find(mixerSettings, key, [](const MixerSetting& each) { return std::string(each.key); });
}

TEST_F(SettingValuesTest, WhereNothingIsStoredTheTableKnowsWhatTheMixerTakes)
{
    writeElsewhere("replaceHUD", false); // what the session would choose
    start();
    for (const MixerSetting& each : mixerSettings)
        EXPECT_EQ(valueOf(*session, each), global(each)) << each.key;
}

TEST_F(SettingValuesTest, AChosenValueIsWhatTheLibraryThenHolds)
{
    start();
    for (const MixerSetting& each : mixerSettings) {
        for (const double value : { each.kind == SettingKind::Range ? 0.75 * each.most : 1.0,
                 each.kind == SettingKind::Range ? each.least : 0.0 }) {
            setValue(*session, each, value);
            EXPECT_FLOAT_EQ(static_cast<float>(valueOf(*session, each)), static_cast<float>(global(each))) << each.key;
            EXPECT_NEAR(global(each), value, each.step) << each.key;
        }
    }
    setValue(*session, row("mixerSkin"), 3);
    setValue(*session, row("dismissDelay"), 99);
    EXPECT_EQ(global(row("mixerSkin")), 3);
    EXPECT_EQ(global(row("dismissDelay")), 10) << "the end of its range";
}

TEST_F(SettingValuesTest, WhatIsNotFiniteCountsAsAbsent)
{
    for (const Json& value : { Json(std::numeric_limits<double>::quiet_NaN()), Json("1e999"), Json("-1e999") }) {
        writeElsewhere("scale", value);
        EXPECT_EQ(valueOf(start(), row("scale")), 0.875) << value;
        session.reset();
    }
}

TEST(SettingValues, StepsOfARangeAreRoundNumbers)
{
    const MixerSetting& scale = row("scale");
    EXPECT_EQ(valueAtFraction(scale, 0), 0.5);
    EXPECT_EQ(valueAtFraction(scale, 1), 1.25);
    EXPECT_EQ(valueAtFraction(scale, -7), 0.5);
    EXPECT_EQ(valueAtFraction(scale, 0.52), 0.9);
    EXPECT_EQ(valueAtFraction(scale, fractionOf(scale, 0.875)), 0.875);
    EXPECT_EQ(textOfValue(scale, 0.875), "0.875");
    EXPECT_EQ(textOfValue(row("dismissDelay"), 2.5), "2.5");
}

TEST(OfferedTest, ASizeIsOfferedUpToWhatTheScreenHolds)
{
    const MixerSetting& size = mixerSetting("scale");
    EXPECT_DOUBLE_EQ(offered(size, { 375, 667, 2 }).most, 1.15);
    EXPECT_DOUBLE_EQ(offered(size, { 320, 568, 2 }).most, 1.05);
    EXPECT_DOUBLE_EQ(offered(size, { 414, 736, 3 }).most, size.most);
    EXPECT_DOUBLE_EQ(offered(size, { 100, 100, 2 }).most, size.least);
    EXPECT_EQ(offered(mixerSetting("dismissDelay"), { 100, 100, 2 }).most, 10);
}

} // namespace
} // namespace panotra::sim
