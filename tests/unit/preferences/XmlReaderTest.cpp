/// What of an XML property list is read, as what, and what is refused.
#include "simulator/preferences/PropertyListFormats.h"
#include "tests/unit/preferences/TemporaryFolder.h"

namespace panotra::preferences {
namespace {

using namespace std::string_literals;
using testing::xmlWith;

std::string objectionToXml(const std::string& xml)
{
    return readXml(xml).objection;
}

std::string objectionToEntries(const std::string& entries)
{
    return objectionToXml(xmlWith(entries));
}

/// The value of the first key.
Value firstValue(const std::string& xml)
{
    const ReadValue read = readXml(xml);
    EXPECT_TRUE(read.value) << read.objection << ": " << xml;
    return read.value ? std::get<Dictionary>(read.value->content).at(0).value : Value();
}

std::string textOfElement(const std::string& element)
{
    return std::get<std::string>(firstValue(xmlWith("<key>k</key>" + element)).content);
}

std::string nestedArrays(std::size_t levels, const std::string& between = "")
{
    std::string opening, closing;
    for (std::size_t i = 0; i < levels; ++i) {
        opening += "<array>" + between;
        closing += "</array>";
    }
    return "<key>k</key>" + opening + closing;
}

TEST(XmlReader, RefusesWhatIsNestedTooDeeply)
{
    EXPECT_EQ(objectionToEntries(nestedArrays(deepestNesting - 1)), "");
    EXPECT_EQ(objectionToEntries(nestedArrays(deepestNesting)), "nests its values too deeply");
    EXPECT_EQ(objectionToEntries(nestedArrays(100000)), "nests its values too deeply");
}

TEST(XmlReader, CountsOnlyCollectionsThatAreOpenAsNesting)
{
    std::string wide;
    for (std::size_t i = 0; i < 2 * deepestNesting; ++i)
        wide += "<array><dict/><array/></array>";
    EXPECT_EQ(objectionToEntries("<key>k</key><array>" + wide + "</array>"), "");
    EXPECT_EQ(objectionToEntries("<!-- " + nestedArrays(deepestNesting) + " -->"), "");
    EXPECT_EQ(textOfElement("<string><![CDATA[" + nestedArrays(deepestNesting) + "]]></string>"),
        nestedArrays(deepestNesting));
    EXPECT_NE(objectionToEntries(nestedArrays(deepestNesting, "<!-- </array> -->")), "");
    EXPECT_NE(objectionToEntries(nestedArrays(deepestNesting, "<?x </array>?>")), "");
}

TEST(XmlReader, RefusesMoreValuesThanThereCanBe)
{
    const auto booleans = [](std::size_t count) {
        std::string elements;
        for (std::size_t i = 0; i < count; ++i)
            elements += "<true/>";
        return "<key>k</key><array>" + elements + "</array>";
    };
    EXPECT_EQ(objectionToEntries(booleans(mostValues - 2)), "");
    EXPECT_EQ(objectionToEntries(booleans(mostValues - 1)), "holds more than 65536 values");
}

TEST(XmlReader, SaysWhereAFileIsNoXml)
{
    EXPECT_EQ(objectionToXml("volume0 = 0.5\n"), "is no property list (line 1: syntax error)");
    EXPECT_EQ(objectionToXml("<plist>\n<dict>\n</plist>"), "is no property list (line 3: mismatched tag)");
    EXPECT_EQ(objectionToXml("<plist><dict"), "is no property list (line 1: unclosed token)");
    EXPECT_EQ(objectionToXml("<plist/>\n<plist/>"), "is no property list (line 2: junk after document element)");
    EXPECT_NE(objectionToXml("<plist><string>\xFF</string></plist>"), "");
    EXPECT_NE(objectionToXml("<plist><string>a\0b</string></plist>"s), "");
}

TEST(XmlReader, SaysWhichElementIsOutOfPlace)
{
    EXPECT_EQ(objectionToEntries("<true/>"), "is no property list (line 3: no place for the element \"true\")");
    EXPECT_EQ(objectionToEntries("<key>k</key><key>l</key>"),
        "is no property list (line 3: no place for the element \"key\")");
    EXPECT_EQ(objectionToEntries("<key>k</key>"), "is no property list (line 3: the key \"k\" has no value)");
    EXPECT_EQ(objectionToEntries("<key>k</key><number>1</number>"),
        "is no property list (line 3: the element \"number\" is not known)");
    EXPECT_EQ(objectionToEntries("<key>k</key><string><true/></string>"),
        "is no property list (line 3: no place for the element \"true\")");
    EXPECT_EQ(objectionToEntries("x<key>k</key><true/>"), "is no property list (line 3: text between elements)");
    EXPECT_EQ(objectionToXml("<plist><dict/><dict/></plist>"),
        "is no property list (line 1: no place for the element \"dict\")");
    EXPECT_EQ(
        objectionToXml("<plist><plist/></plist>"), "is no property list (line 1: no place for the element \"plist\")");
    EXPECT_EQ(objectionToXml("<plist><key>k</key></plist>"),
        "is no property list (line 1: no place for the element \"key\")");
    EXPECT_EQ(objectionToXml("<key>k</key>"), "is no property list (line 1: no place for the element \"key\")");
    EXPECT_EQ(objectionToXml("<plist/>"), "is an empty property list");
}

TEST(XmlReader, TakesAValueWithoutTheElementAroundIt)
{
    EXPECT_EQ(objectionToXml("<dict><key>k</key><true/></dict>"), "");
}

TEST(XmlReader, ReadsIntegersAsTheyAreMeant)
{
    const std::pair<const char*, std::int64_t> cases[] = { { "0", 0 }, { " -5\n", -5 }, { "+5", 5 }, { "010", 10 },
        { "09", 9 }, { "-007", -7 }, { "0x1F", 31 }, { "-0xff", -255 }, { "0x010", 16 }, { "&#49;", 1 },
        { "-9223372036854775808", std::numeric_limits<std::int64_t>::min() } };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(std::get<std::int64_t>(
                      firstValue(xmlWith("<key>k</key><integer>" + std::string(text) + "</integer>")).content),
            value)
            << text;
    const Value largest = firstValue(xmlWith("<key>k</key><integer>18446744073709551615</integer>"));
    EXPECT_EQ(std::get<std::uint64_t>(largest.content), std::numeric_limits<std::uint64_t>::max());
}

TEST(XmlReader, SaysWhichValueCannotBeKept)
{
    EXPECT_EQ(objectionToEntries("\n<key>k</key>\n<integer>99999999999999999999</integer>"),
        "holds the integer \"99999999999999999999\" (line 5), which cannot be kept as it is");
    EXPECT_EQ(objectionToEntries("<key>k</key><real>\x1B[31m" + std::string(1000, 'x') + "</real>").find('\x1B'),
        std::string::npos);
    EXPECT_EQ(objectionToEntries("<key>k</key><real>" + std::string(39, 'x') + "\xC3\xA9y</real>"),
        "holds the real \"" + std::string(39, 'x') + "\" (line 3), which cannot be kept as it is");
    EXPECT_EQ(objectionToEntries("<key>k</key><real>1\n2&#x9B;</real>"),
        "holds the real \"1\\n2\\u009b\" (line 4), which cannot be kept as it is");
    EXPECT_EQ(objectionToEntries("<key>k</key><true>no</true>"),
        "holds the true \"no\" (line 3), which cannot be kept as it is");
}

TEST(XmlReader, ReadsTextAsXmlMeansIt)
{
    EXPECT_EQ(textOfElement("<string>a &lt;&amp;&gt;&quot;&apos; b</string>"), "a <&>\"' b");
    EXPECT_EQ(textOfElement("<string>&#65;&#x1F600;</string>"), "A\xF0\x9F\x98\x80");
    EXPECT_EQ(textOfElement("<string> two\r\nlines&#13; </string>"), " two\nlines\r ");
    EXPECT_EQ(textOfElement("<string>a<!-- no -->b<![CDATA[<c>]]></string>"), "ab<c>");
    EXPECT_EQ(textOfElement("<string/>"), "");
}

TEST(XmlReader, RefusesAnEntityThatIsNone)
{
    for (const char* text : { "&lt:b", "&lt", "&", "&;", "&lT;", "&nbsp;", "&#0;", "&#xD800;", "&#x110000;", "&#;",
             "&#x;", "&#xG;", "&#1;", "a\x1B" })
        EXPECT_NE(objectionToEntries("<key>k</key><string>" + std::string(text) + "</string>"), "") << text;
    // With a document type that is described elsewhere, the name might be known there.
    EXPECT_EQ(objectionToXml("<!DOCTYPE plist PUBLIC \"a\" \"b\">\n<plist><string>&other;</string></plist>"),
        "is no property list (line 2: the entity \"other\" is not known)");
}

TEST(XmlReader, RefusesADocumentTypeWithDeclarationsOfItsOwn)
{
    EXPECT_EQ(objectionToXml("<!DOCTYPE plist [<!ENTITY e \"x\">]><plist><string>&e;</string></plist>"),
        "is no property list (line 1: a document type with declarations of its own)");
}

TEST(XmlReader, ReadsEveryEncodingThatTheFileNames)
{
    const std::string latin
        = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><dict><key>k</key><string>\xE9</string></dict>";
    EXPECT_EQ(std::get<std::string>(firstValue(latin).content), "\xC3\xA9");
    std::string wide = "\xFE\xFF";
    for (const char byte : "<dict><key>k</key><string>\xE9</string></dict>"s)
        wide += { '\0', byte };
    EXPECT_EQ(std::get<std::string>(firstValue(wide).content), "\xC3\xA9");
    EXPECT_EQ(std::get<std::string>(firstValue("\xEF\xBB\xBF<dict><key>k</key><string/></dict>").content), "");
    EXPECT_EQ(objectionToXml("<?xml version=\"1.0\" encoding=\"UTF-9\"?><dict/>"),
        "is no property list (line 1: unknown encoding)");
}

TEST(XmlReader, TheLastValueOfAKeyCountsInThePlaceOfTheFirst)
{
    const ReadValue read
        = readXml(xmlWith("<key>k</key><integer>1</integer><key>m</key><true/><key>k</key><integer>2</integer>"));
    ASSERT_TRUE(read.value);
    const auto& dictionary = std::get<Dictionary>(read.value->content);
    ASSERT_EQ(dictionary.size(), 2u);
    EXPECT_EQ(dictionary[0].key, "k");
    EXPECT_EQ(std::get<std::int64_t>(dictionary[0].value.content), 2);
    EXPECT_EQ(dictionary[1].key, "m");
}

} // namespace
} // namespace panotra::preferences
