/// Letters of ASCII alone.
#include "simulator/text/SmallLetters.h"

#include <gtest/gtest.h>

namespace panotra {
namespace {

TEST(SmallLetters, OnlyTheCapitalsOfAsciiChange)
{
    EXPECT_EQ(inSmallLetters(""), "");
    EXPECT_EQ(inSmallLetters("AZaz@[`{ 09-\xC3\x84"), "azaz@[`{ 09-\xC3\x84");
}

} // namespace
} // namespace panotra
