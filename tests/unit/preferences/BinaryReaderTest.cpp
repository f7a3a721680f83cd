/// What of a binary property list is read, and what is refused.
#include "simulator/preferences/PropertyListFormats.h"
#include "tests/unit/preferences/BinaryFile.h"

#include <gtest/gtest.h>

namespace panotra::preferences {
namespace {

using namespace std::string_literals;
using testing::bigEndian;
using testing::binaryFile;
using testing::binaryFileWith;
using testing::reference;

std::string objectionToBinary(const std::string& bytes)
{
    return readBinary(bytes).objection;
}

void expectPassed(const std::string& object)
{
    EXPECT_EQ(objectionToBinary(binaryFileWith(object)), "");
}
void expectRefused(const std::string& object)
{
    EXPECT_NE(objectionToBinary(binaryFileWith(object)), "");
}

/// Arrays of `width` times the next one each, and a boolean at the end.
std::string tower(std::size_t levels, std::size_t width)
{
    std::vector<std::string> arrays;
    for (std::size_t level = 1; level < levels; ++level) {
        std::string array(1, static_cast<char>(0xA0 + width));
        for (std::size_t i = 0; i < width; ++i)
            array += reference(2 + level);
        arrays.push_back(std::move(array));
    }
    arrays.push_back("\x09");
    const std::string first = arrays.front();
    arrays.erase(arrays.begin());
    return binaryFileWith(first, arrays);
}

TEST(BinaryReader, PassesTheKindsOfValueThatPreferencesHave)
{
    expectPassed("\x08"); // false
    expectPassed("\x10\xFF"s); // integers of 1 to 8 bytes
    expectPassed("\x13" + bigEndian(~0ull, 8));
    expectPassed("\x14" + bigEndian(0, 8) + bigEndian(~0ull, 8)); // beyond the signed range
    expectPassed("\x22" + bigEndian(0x3E99999A, 4)); // reals
    expectPassed("\x23" + bigEndian(0x3FB999999999999A, 8));
    expectPassed("\x33" + bigEndian(0x419D6F34547DF3B6, 8)); // a date
    expectPassed("\x43\0\1\2"s); // data
    expectPassed("\x52hi"); // text
    expectPassed("\x62\xD8\x3D\xDE\0"s);
    expectPassed("\x80\7"s); // a UID
    expectPassed("\xA0");
    expectPassed("\xD0");
}

TEST(BinaryReader, TakesACountThatFollowsAsAnInteger)
{
    expectPassed("\x5F\x10\x14twenty characters :)");
    expectRefused("\x5F\x10\xFFtoo short");
    expectRefused("\x5F\x51x");
    expectRefused("\x5F\x13" + bigEndian(~0ull, 8) + "x");
    expectRefused("\xAF\x13" + bigEndian(0x4000000000000001, 8) + reference(1));
    expectRefused("\x6F\x13" + bigEndian(0x8000000000000000, 8) + "x");
}

TEST(BinaryReader, RefusesWhatWouldComeBackDifferent)
{
    expectRefused("\x00"s); // null
    expectRefused("\x0F"); // filler
    expectRefused("\x14" + std::string(16, '\1')); // an integer of 128 bits
    expectRefused("\x21\x3C\0"s); // a real of 2 bytes
    expectRefused("\x52\xFF\xFE"); // text that is not ASCII where it should be
    expectRefused("\x61\xD8\0"s); // half a surrogate pair
    expectRefused("\x61\xDC\0"s);
    expectRefused("\x62\xD8\0\0a"s);
    expectRefused("\xC0"); // a set
    expectRefused("\x70");
}

TEST(BinaryReader, RefusesWhatIsNestedTooDeeply)
{
    EXPECT_EQ(objectionToBinary(tower(deepestNesting, 1)), "");
    EXPECT_EQ(objectionToBinary(tower(deepestNesting + 1, 1)), "nests its values too deeply");
    EXPECT_EQ(objectionToBinary(tower(100000, 1)), "nests its values too deeply");
}

TEST(BinaryReader, CountsASharedValueAtEveryDepthAtWhichItStands)
{
    // A tower of arrays is met at once, and again at the end of another one; each alone would do.
    const std::size_t height = deepestNesting * 2 / 3;
    const auto file = [&](std::size_t endOfSecond) {
        std::vector<std::string> objects { "\xA2" + reference(1) + reference(height + 1) };
        for (std::size_t i = 1; i < 2 * height; ++i)
            objects.push_back("\xA1" + reference(i == height ? 2 * height : i + 1));
        objects.back() = "\xA1" + reference(endOfSecond);
        objects.push_back("\x09");
        return binaryFile(objects);
    };
    EXPECT_EQ(objectionToBinary(file(2 * height)), "");
    EXPECT_EQ(objectionToBinary(file(1)), "nests its values too deeply");
}

TEST(BinaryReader, TakesANulForACharacterLikeAnyOther)
{
    const ReadValue read
        = readBinary(binaryFile({ "\xD1" + reference(1) + reference(2), "\x53k\0y"s, "\x62\0\0\0\xE9"s }));
    ASSERT_TRUE(read.value);
    const Entry& entry = std::get<Dictionary>(read.value->content).at(0);
    EXPECT_EQ(entry.key, "k\0y"s);
    EXPECT_EQ(std::get<std::string>(entry.value.content), "\0\xC3\xA9"s);
}

TEST(BinaryReader, RefusesAKeyThatIsNoText)
{
    EXPECT_EQ(
        objectionToBinary(binaryFile({ "\xD1" + reference(1) + reference(1), "\x09" })), "has a key that is no text");
}

TEST(BinaryReader, TheLastValueOfAKeyCounts)
{
    const ReadValue read = readBinary(
        binaryFile({ "\xD3" + reference(1) + reference(2) + reference(1) + reference(3) + reference(3) + reference(4),
            "\x51k", "\x51m", "\x08", "\x09" }));
    ASSERT_TRUE(read.value);
    const auto& dictionary = std::get<Dictionary>(read.value->content);
    ASSERT_EQ(dictionary.size(), 2u);
    EXPECT_EQ(dictionary[0].key, "k");
    EXPECT_TRUE(std::get<bool>(dictionary[0].value.content));
}

TEST(BinaryReader, RefusesATableThatDoesNotFillItsPlace)
{
    const std::string whole = binaryFileWith("\x09");
    std::string fewer = whole;
    fewer[whole.size() - 32 + 15] = 2; // the number of objects
    EXPECT_EQ(objectionToBinary(fewer), "is no property list");
    EXPECT_EQ(objectionToBinary(whole.substr(0, whole.size() - 32) + "    " + whole.substr(whole.size() - 32)),
        "is no property list");
}

TEST(BinaryReader, RefusesAnObjectWithinTheMark)
{
    std::string file = binaryFileWith("\x09");
    file.replace(file.size() - 32 - 4, 4, bigEndian(0, 4));
    EXPECT_EQ(objectionToBinary(file), "is no property list");
}

TEST(BinaryReader, RefusesTextThatUnfoldsToTooMuch)
{
    const std::string text = "\x5F\x12" + bigEndian(1u << 20, 4) + std::string(1u << 20, 'x');
    const auto withElements = [&](std::size_t count) {
        std::string array(1, static_cast<char>(0xA0 + count));
        for (std::size_t i = 0; i < count; ++i)
            array += reference(3);
        return binaryFileWith(array, { text });
    };
    EXPECT_EQ(objectionToBinary(withElements(7)), "");
    EXPECT_EQ(objectionToBinary(withElements(9)), "holds more than 8 MiB of text");
}

TEST(BinaryReader, RefusesAFewSharedValuesThatUnfoldToMillions)
{
    EXPECT_EQ(objectionToBinary(tower(7, 4)), "");
    EXPECT_EQ(objectionToBinary(tower(12, 4)), "holds more than 65536 values");
    EXPECT_EQ(objectionToBinary(tower(100, 14)), "holds more than 65536 values");
}

TEST(BinaryReader, RefusesACollectionThatHoldsItself)
{
    EXPECT_EQ(objectionToBinary(binaryFile({ "\xA1" + reference(0) })), "holds a collection that holds itself");
    EXPECT_NE(objectionToBinary(binaryFileWith("\xA1" + reference(3), { "\xA1" + reference(2) })), "");
}

TEST(BinaryReader, RefusesReferencesAndObjectsOutsideTheFile)
{
    expectRefused("\xA1" + reference(99));
    expectRefused("\x4E" + std::string(3, 'x'));
    std::string broken = binaryFileWith("\x09");
    broken.replace(broken.size() - 32 - 4, 4, bigEndian(0x7FFFFFFF, 4)); // the last object's place
    EXPECT_NE(objectionToBinary(broken), "");
}

TEST(BinaryReader, RefusesEveryFileThatWasCutShort)
{
    const std::string whole = binaryFileWith("\x52hi");
    for (std::size_t length = 8; length < whole.size(); ++length)
        EXPECT_NE(objectionToBinary(whole.substr(0, length)), "") << length;
}

TEST(BinaryReader, SurvivesEveryDamageOfASingleByte)
{
    const std::string whole = binaryFileWith("\xA2" + reference(1) + reference(3), { "\x52hi" });
    std::size_t refused = 0;
    for (std::size_t at = 8; at < whole.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string damaged = whole;
            damaged[at] = static_cast<char>(byte);
            refused += !objectionToBinary(damaged).empty();
        }
    }
    EXPECT_GT(refused, whole.size());
}

} // namespace
} // namespace panotra::preferences
