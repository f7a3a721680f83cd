/// Settings in memory, in words, and what UTF-8 is.
#include "simulator/preferences/Settings.h"
#include "simulator/preferences/SettingText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace panotra::preferences {
namespace {

TEST(Settings, KeepTheOrderInWhichKeysWereFirstStored)
{
    Settings settings;
    settings.apply({ "volume9", 0.5 });
    settings.apply({ "volume10", 0.5 });
    settings.apply({ "volume9", 1.0 });
    std::string order;
    for (const auto& [key, value] : settings)
        order += key + ' ';
    EXPECT_EQ(order, "volume9 volume10 ");
    EXPECT_EQ(*settings.find("volume9"), 1.0);
}

TEST(Settings, SayWhetherAChangeChangedAnything)
{
    Settings settings;
    EXPECT_FALSE(settings.apply({ "key", std::nullopt }));
    EXPECT_TRUE(settings.apply({ "key", 1 }));
    EXPECT_FALSE(settings.apply({ "key", 1 }));
    EXPECT_TRUE(settings.apply({ "key", std::nullopt }));
    EXPECT_EQ(settings.find("key"), nullptr);
}

TEST(Settings, AreIdenticalOnlyInTheSameKind)
{
    EXPECT_FALSE(isIdentical(1, 1.0));
    EXPECT_FALSE(isIdentical(1, true));
    EXPECT_FALSE(isIdentical("1", 1));
    EXPECT_FALSE(isIdentical(0.0, -0.0));
    EXPECT_TRUE(isIdentical(1, 1u));
    EXPECT_TRUE(isIdentical(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(isIdentical(std::numeric_limits<std::uint64_t>::max(), -1));
}

TEST(SettingText, ReadsIntegersOf64Bits)
{
    EXPECT_EQ(readSetting("int", "-9223372036854775808").value, std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(readSetting("int", "+9223372036854775807").value, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(readSetting("int", "18446744073709551615").value, std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(readSetting("int", "010").value, 10);
    EXPECT_TRUE(readSetting("int", "007").value->is_number_integer());
    for (const char* text : { "", "+", "-", "1.0", "1e3", "0x10", " 1", "1 ", "+-1", "--1", "18446744073709551616",
             "-9223372036854775809" })
        EXPECT_FALSE(readSetting("int", text).value) << text;
}

TEST(SettingText, ReadsNumbersAndTheWordsForWhatIsNone)
{
    EXPECT_EQ(readSetting("float", "0.5").value, 0.5);
    EXPECT_EQ(readSetting("float", "+.5e1").value, 5.0);
    EXPECT_EQ(readSetting("float", "5.").value, 5.0);
    EXPECT_EQ(readSetting("float", "1e-400").value, 0.0);
    EXPECT_EQ(readSetting("float", "-inf").value, -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(readSetting("float", "nan").value->get<double>()));
    EXPECT_TRUE(readSetting("float", "1").value->is_number_float());
    for (const char* text : { "", ".", "e5", "1e", "1e400", "0x1p3", "1,5", "+-1", " 1" })
        EXPECT_FALSE(readSetting("float", text).value) << text;
}

TEST(SettingText, ReadsBooleansAndStrings)
{
    EXPECT_EQ(readSetting("bool", "yes").value, true);
    EXPECT_EQ(readSetting("bool", "no").value, false);
    EXPECT_FALSE(readSetting("bool", "true").value);
    EXPECT_EQ(readSetting("string", "").value, "");
    EXPECT_FALSE(readSetting("string", "\xFF").value);
}

TEST(SettingText, SaysWhatItExpects)
{
    EXPECT_EQ(readSetting("bool", "1").expected, "yes or no");
    EXPECT_EQ(readSetting("date", "now").expected, "one of the types int, float, bool and string");
}

TEST(SettingText, IsReadBackAsTheSameValue)
{
    const Json values[] = { 0.1, -0.0, 1.0, 4.9406564584124654e-324, 5, true, false,
        std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<std::uint64_t>::max(), "", "two words" };
    for (const Json& value : values)
        EXPECT_TRUE(isIdentical(*readSetting(typeOf(value), textOf(value)).value, value)) << value;
}

} // namespace
} // namespace panotra::preferences
