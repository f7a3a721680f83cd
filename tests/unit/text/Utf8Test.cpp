/// What is UTF-8, and where it ends to be.
#include "simulator/text/Utf8.h"

#include <gtest/gtest.h>

namespace panotra {
namespace {

TEST(Utf8, TakesEveryWellFormedCharacter)
{
    for (const char* text :
        { "", "plain", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF" })
        EXPECT_TRUE(isUtf8(text)) << text;
    EXPECT_TRUE(isUtf8(std::string_view("\0", 1)));
}

TEST(Utf8, RefusesEverythingElse)
{
    for (const char* text : { "\x80", "\xC3", "a\xFF", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80",
             "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xE2\x82", "\xE2\x28\xA1" })
        EXPECT_FALSE(isUtf8(text)) << text;
}

TEST(Utf8, TellsWhereTheFirstByteStandsThatIsPartOfNoCharacter)
{
    EXPECT_EQ(firstMalformedByte("caf\xC3\xA9"), std::nullopt);
    EXPECT_EQ(firstMalformedByte("caf\xC3\xA9\xFF!"), 5u);
    EXPECT_EQ(firstMalformedByte("ab\xE2\x82"), 2u) << "a character that is cut off";
}

} // namespace
} // namespace panotra
