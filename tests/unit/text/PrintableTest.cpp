/// Text from outside on one line.
#include "simulator/text/Printable.h"

#include <gtest/gtest.h>

namespace panotra {
namespace {

TEST(Printable, EscapesWhateverCouldDriveATerminalOrEndALine)
{
    EXPECT_EQ(printable("plain caf\xC3\xA9 \xF0\x9F\x98\x80"), "plain caf\xC3\xA9 \xF0\x9F\x98\x80");
    EXPECT_EQ(printable("\x1B[31m\n\r\t\x7F"), "\\x1b[31m\\x0a\\x0d\\x09\\x7f");
    EXPECT_EQ(printable(std::string_view("a\0b", 3)), "a\\x00b");
    EXPECT_EQ(printable("\xC2\x9B"
                        "31m"),
        "\\xc2\\x9b"
        "31m");
    EXPECT_EQ(printable("\xFF\xC3"), "\\xff\\xc3");
    EXPECT_EQ(printable("\xE2\x80\xA8"), "\\xe2\\x80\\xa8");
}

TEST(Printable, QuotesPutEveryTextOnOneLine)
{
    EXPECT_EQ(inQuotes("a\"b\n"), R"("a\"b\n")");
    EXPECT_EQ(inQuotes("\\ \b\f\r\t"), R"("\\ \b\f\r\t")");
    EXPECT_EQ(inQuotes("\xFF"), "\"\xEF\xBF\xBD\"");
    EXPECT_EQ(inQuotes("\x7F\xC2\x9B\xE2\x80\xA9\x1B"), R"("\u007f\u009b\u2029\u001b")");
}

} // namespace
} // namespace panotra
