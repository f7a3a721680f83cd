/// Property lists in memory: what is read from bytes, changed and written again.
#include "simulator/preferences/PropertyListTree.h"

#include "simulator/preferences/Settings.h"
#include "tests/unit/preferences/BinaryFile.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <limits>

namespace panotra::preferences {
namespace {

using testing::bigEndian;
using testing::binaryFileWith;
using testing::xmlWith;

PropertyListTree parsed(const std::string& bytes)
{
    auto result = PropertyListTree::parse(bytes);
    EXPECT_TRUE(result.tree) << result.objection << ": " << bytes;
    return result.tree ? std::move(*result.tree) : PropertyListTree();
}

std::string objectionTo(const std::string& bytes)
{
    auto result = PropertyListTree::parse(bytes);
    EXPECT_FALSE(result.tree);
    return result.objection;
}

Json valueIn(const std::string& element)
{
    const Settings settings = parsed(xmlWith("<key>k</key>" + element)).settings();
    const Json* value = settings.find("k");
    return value == nullptr ? Json("absent") : *value;
}

/// The file with another key set in it.
std::string rewritten(const std::string& bytes)
{
    PropertyListTree tree = parsed(bytes);
    EXPECT_TRUE(tree.apply({ "another", 0.5 }));
    return tree.serialize().bytes.value_or("");
}

TEST(PropertyListTree, ReadsNumbersBooleansAndStrings)
{
    EXPECT_TRUE(isIdentical(valueIn("<integer>5</integer>"), 5));
    EXPECT_TRUE(
        isIdentical(valueIn("<integer>-9223372036854775808</integer>"), std::numeric_limits<std::int64_t>::min()));
    EXPECT_TRUE(isIdentical(valueIn("<integer>-1</integer>"), -1));
    EXPECT_TRUE(
        isIdentical(valueIn("<integer>18446744073709551615</integer>"), std::numeric_limits<std::uint64_t>::max()));
    EXPECT_TRUE(isIdentical(valueIn("<real>0.10000000000000001</real>"), 0.1));
    EXPECT_TRUE(isIdentical(valueIn("<real>1</real>"), 1.0));
    EXPECT_TRUE(isIdentical(valueIn("<true/>"), true));
    EXPECT_TRUE(isIdentical(valueIn("<false/>"), false));
    EXPECT_TRUE(isIdentical(valueIn("<string>a &lt; b</string>"), "a < b"));
    EXPECT_TRUE(isIdentical(valueIn("<string/>"), ""));
}

TEST(PropertyListTree, ShowsAValueOfAnyOtherKindAsNull)
{
    for (const char* element :
        { "<date>2020-01-02T03:04:05Z</date>", "<data>AAEC</data>", "<array><true/></array>", "<dict/>" })
        EXPECT_EQ(valueIn(element), nullptr) << element;
}

TEST(PropertyListTree, ReadsAnXmlFileThatBeginsWithAByteOrderMark)
{
    const PropertyListTree tree = parsed("\xEF\xBB\xBF" + xmlWith("<key>k</key><true/>"));
    EXPECT_EQ(*tree.settings().find("k"), true);
}

TEST(PropertyListTree, RefusesWhatIsNoDictionary)
{
    EXPECT_EQ(objectionTo("<plist version=\"1.0\"><array/></plist>"), "is a property list but no dictionary");
    EXPECT_EQ(objectionTo("<plist version=\"1.0\"><string>x</string></plist>"), "is a property list but no dictionary");
    EXPECT_EQ(objectionTo("volume0 = 0.5\n"), "is no property list (line 1: syntax error)");
    EXPECT_EQ(objectionTo("<plist version=\"1.0\"><dict><key>k</key><true/>"),
        "is no property list (line 1: no element found)");
    EXPECT_EQ(objectionTo(""), "is empty");
    EXPECT_EQ(objectionTo(std::string(largestFileBytes + 1, ' ')), "is larger than 4 MiB");
}

TEST(PropertyListTree, WritesXmlAndReadsItBackExactly)
{
    const Json values[]
        = { 0.1, 1.0, 1e300, 4.9406564584124654e-324, double { 0.3f }, 5, -5, std::numeric_limits<std::int64_t>::min(),
              std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::uint64_t>::max(), true, false, -0.0,
              "carriage\rreturn", "", " <a & b> ", "caf\xC3\xA9 \xF0\x9F\x98\x80" };
    for (const Json& value : values) {
        PropertyListTree tree;
        EXPECT_TRUE(tree.apply({ "k", value }));
        const auto bytes = tree.serialize().bytes;
        ASSERT_TRUE(bytes) << value;
        EXPECT_TRUE(bytes->starts_with("<?xml")) << value;
        EXPECT_TRUE(isIdentical(*parsed(*bytes).settings().find("k"), value)) << value;
    }
}

TEST(PropertyListTree, WritesABinaryFileWhereXmlWouldNotGiveTheSameBack)
{
    for (const Json& value : { Json("bell\a"), Json("\xEF\xBF\xBE"), Json(std::string("a\0b", 3)) }) {
        PropertyListTree tree;
        EXPECT_TRUE(tree.apply({ "k", value }));
        const auto bytes = tree.serialize().bytes;
        ASSERT_TRUE(bytes) << value;
        EXPECT_TRUE(bytes->starts_with("bplist00")) << value;
        EXPECT_TRUE(isIdentical(*parsed(*bytes).settings().find("k"), value)) << value;
    }
}

TEST(PropertyListTree, KeepsEveryKindOfValueInARewrittenXmlFile)
{
    const std::string entries[] = {
        "<date>2020-01-02T03:04:05Z</date>",
        "<data>\n\tAAEC\n\t</data>",
        "<array>\n\t\t<integer>1</integer>\n\t\t<dict>\n\t\t\t<key>deep</key>\n\t\t\t<true/>\n\t\t</dict>\n\t</array>",
        "<integer>18446744073709551615</integer>",
        "<real>0.10000000000000001</real>",
        "<string>text</string>",
        "<dict>\n\t\t<key>CF$UID</key>\n\t\t<integer>7</integer>\n\t</dict>",
    };
    for (const std::string& entry : entries)
        EXPECT_NE(rewritten(xmlWith("<key>k</key>" + entry)).find(entry), std::string::npos) << entry;
}

TEST(PropertyListTree, KeepsEveryKindOfValueInARewrittenBinaryFile)
{
    using namespace std::string_literals;
    const std::string objects[] = {
        "\x33" + bigEndian(0x419D6F34547DF3B6, 8), // a date with a fraction of a second
        "\x43\0\1\2"s,
        "\x14" + bigEndian(0, 8) + bigEndian(~0ull, 8),
        "\x13" + bigEndian(~0ull, 8),
        "\x23" + bigEndian(0x3FB999999999999A, 8),
        "\x80\7"s,
        "\x62\xD8\x3D\xDE\0"s,
    };
    for (const std::string& object : objects) {
        const std::string bytes = rewritten(binaryFileWith(object));
        EXPECT_TRUE(bytes.starts_with("bplist00"));
        EXPECT_NE(bytes.find(object), std::string::npos);
    }
}

TEST(PropertyListTree, WritesANumberThatIsNone)
{
    const Json infinite = std::numeric_limits<double>::infinity();
    for (const Json& value :
        { infinite, Json(-infinite.get<double>()), Json(std::numeric_limits<double>::quiet_NaN()) }) {
        PropertyListTree tree;
        tree.apply({ "k", value });
        EXPECT_TRUE(isIdentical(*parsed(*tree.serialize().bytes).settings().find("k"), value)) << value;
    }
}

TEST(PropertyListTree, KeepsANulOfABinaryFile)
{
    using namespace std::string_literals;
    const std::string bytes = rewritten(binaryFileWith("\x53"s + "a\0b"s));
    EXPECT_EQ(*parsed(bytes).settings().find("k"), "a\0b"s);
    PropertyListTree tree = parsed(bytes);
    EXPECT_TRUE(tree.apply({ "a\0key"s, 1 }));
    EXPECT_TRUE(tree.apply({ "a", 2 }));
    EXPECT_EQ(*parsed(*tree.serialize().bytes).settings().find("a\0key"s), 1);
}

TEST(PropertyListTree, WritesSharedTextsOfABinaryFileOnce)
{
    std::string references;
    for (int i = 0; i < 6; ++i)
        references += testing::reference(3);
    const std::string text = "\x5F\x12" + bigEndian(1u << 20, 4) + std::string(1u << 20, 'x');
    const std::string bytes = rewritten(binaryFileWith("\xA6" + references, { text }));
    EXPECT_LT(bytes.size(), (1u << 20) + 1000);
    EXPECT_FALSE(bytes.empty());
}

TEST(PropertyListTree, SaysWhyItCannotBeWritten)
{
    PropertyListTree tree;
    tree.apply({ "k", std::string(largestFileBytes, 'x') });
    EXPECT_EQ(tree.serialize().objection, "is larger than 4 MiB");
    tree.apply({ "k", std::string(mostTextBytes, 'x') });
    EXPECT_EQ(tree.serialize().objection, "holds more than 8 MiB of text");
    tree.apply({ "k", "\xFF" });
    EXPECT_EQ(tree.serialize().objection, "holds a text that is not UTF-8");
}

TEST(PropertyListTree, WritesWhatIsTooLargeAsXmlAsABinaryFile)
{
    PropertyListTree tree;
    tree.apply({ "k", std::string(1u << 20, '&') });
    EXPECT_TRUE(tree.serialize().bytes->starts_with("bplist00"));
}

TEST(PropertyListTree, KeepsTheOrderOfKeys)
{
    PropertyListTree tree = parsed(xmlWith("<key>z</key><true/><key>a</key><true/>"));
    tree.apply({ "z", false });
    tree.apply({ "m", true });
    std::string order;
    for (const auto& [key, value] : parsed(*tree.serialize().bytes).settings())
        order += key;
    EXPECT_EQ(order, "zam");
}

TEST(PropertyListTree, SaysWhetherAChangeChangedAnything)
{
    PropertyListTree tree = parsed(xmlWith("<key>k</key><integer>1</integer>"));
    EXPECT_FALSE(tree.apply({ "k", 1 }));
    EXPECT_FALSE(tree.apply({ "absent", std::nullopt }));
    EXPECT_TRUE(tree.apply({ "k", 1.0 }));
    EXPECT_TRUE(tree.apply({ "k", std::nullopt }));
    EXPECT_TRUE(tree.settings().empty());
}

TEST(PropertyListTree, ReplacesAValueOfAnUnknownKindWhenItsKeyIsSet)
{
    PropertyListTree tree = parsed(xmlWith("<key>k</key><array/>"));
    EXPECT_TRUE(tree.apply({ "k", "text" }));
    EXPECT_EQ(*tree.settings().find("k"), "text");
}

TEST(PropertyListTree, ADuplicateKeyIsOneSettingAndItsLastValueCounts)
{
    const Settings settings
        = parsed(xmlWith("<key>k</key><integer>1</integer><key>k</key><integer>2</integer>")).settings();
    EXPECT_EQ(std::distance(settings.begin(), settings.end()), 1);
    EXPECT_EQ(*settings.find("k"), 2);
}

} // namespace
} // namespace panotra::preferences
