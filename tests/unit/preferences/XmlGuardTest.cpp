/// What the guard refuses of XML, and what it must let pass.
#include "simulator/preferences/PropertyListGuard.h"
#include "tests/unit/preferences/TemporaryFolder.h"

namespace panotra::preferences {
namespace {

using testing::xmlWith;

std::string nested(std::size_t levels, const std::string& between = "")
{
    std::string opening, closing;
    for (std::size_t i = 0; i < levels; ++i) {
        opening += "<array>" + between;
        closing += "</array>";
    }
    return "<key>k</key>" + opening + closing;
}

void expectPassed(const std::string& entries)
{
    EXPECT_FALSE(objectionTo(xmlWith(entries))) << entries;
}
void expectRefused(const std::string& entries)
{
    EXPECT_TRUE(objectionTo(xmlWith(entries))) << entries;
}

TEST(XmlGuard, RefusesAnEmptyFileAndAHugeOne)
{
    EXPECT_EQ(objectionTo(""), "is empty");
    EXPECT_EQ(objectionTo(std::string(largestFileBytes + 1, ' ')), "is larger than 4 MiB");
}

TEST(XmlGuard, RefusesWhatIsNestedTooDeeply)
{
    expectPassed(nested(deepestNesting - 1));
    expectRefused(nested(deepestNesting));
    expectRefused(nested(100000));
}

TEST(XmlGuard, CountsOnlyTagsAsNesting)
{
    std::string wide;
    for (std::size_t i = 0; i < 2 * deepestNesting; ++i)
        wide += "<array><dict/><array/></array>";
    expectPassed(wide);
    expectPassed("<!-- " + nested(deepestNesting) + " -->");
    expectPassed("<key>k</key><string><![CDATA[" + nested(deepestNesting) + "]]></string>");
    expectPassed("<key>k</key><string a=\"" + nested(deepestNesting) + "\"></string>");
}

TEST(XmlGuard, IsNotFooledByClosingTagsThatAreNone)
{
    expectRefused(nested(deepestNesting, "<!-- </array> -->"));
    expectRefused(nested(deepestNesting, "<![CDATA[</array>]]>"));
    expectRefused(nested(deepestNesting, "<?x </array>?>"));
}

TEST(XmlGuard, SkipsADocumentTypeWithDeclarationsOfItsOwn)
{
    EXPECT_FALSE(objectionTo("<!DOCTYPE plist [<!ELEMENT array (x)>]><plist><dict/></plist>"));
}

TEST(XmlGuard, RefusesBytesThatAreNotUtf8)
{
    expectRefused("<key>k</key><string>\xFF</string>");
}

TEST(XmlGuard, RefusesATagThatDoesNotEnd)
{
    EXPECT_TRUE(objectionTo("<plist><dict"));
    EXPECT_TRUE(objectionTo("<plist a=\">"));
}

TEST(XmlGuard, PassesIntegersOf64BitsOnly)
{
    for (const char* text : { "0", " -5\n", "+5", "18446744073709551615", "-9223372036854775808", "0x1F", "-0xff" })
        expectPassed("<integer>" + std::string(text) + "</integer>");
    for (const char* text : { "", " ", "x", "1x", "1.5", "18446744073709551616", "-9223372036854775809", "&#49;" })
        expectRefused("<integer>" + std::string(text) + "</integer>");
    expectRefused("<integer/>");
}

TEST(XmlGuard, PassesRealsThatAreNumbers)
{
    for (const char* text : { "0.1", "1", "-1e300", " 2 ", "nan", "+infinity", "-inf" })
        expectPassed("<real>" + std::string(text) + "</real>");
    for (const char* text : { "", "x", "1,5", "1 2" })
        expectRefused("<real>" + std::string(text) + "</real>");
}

TEST(XmlGuard, PassesDatesToTheSecond)
{
    expectPassed("<date>2020-01-02T03:04:05Z</date>");
    for (const char* text : { "", "yesterday", "2020-01-02", "2020-01-02T03:04:05.5Z", "2020-01-02T03:04:05+01:00" })
        expectRefused("<date>" + std::string(text) + "</date>");
}

TEST(XmlGuard, PassesDataInBase64)
{
    expectPassed("<data>\n\tAAEC/+8=\n\t</data>");
    expectPassed("<data/>");
    expectRefused("<data>#</data>");
}

TEST(XmlGuard, SaysWhichValueItIsAbout)
{
    EXPECT_EQ(objectionTo(xmlWith("<key>k</key><integer>99999999999999999999</integer>")),
        "holds the integer \"99999999999999999999\", which cannot be kept as it is");
}

} // namespace
} // namespace panotra::preferences
