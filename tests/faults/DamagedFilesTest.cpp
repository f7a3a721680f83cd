/// Property lists with every kind of small damage: what the program reads is what another reader reads, or nothing.
#include "simulator/preferences/PropertyListFormats.h"
#include "simulator/preferences/PropertyListTree.h"
#include "tests/faults/IndependentReader.h"
#include "tests/unit/preferences/BinaryFile.h"

#include <gtest/gtest.h>

#include <functional>

namespace panotra::preferences {
namespace {

using namespace std::string_literals;
using testing::bigEndian;
using testing::reference;

// The sanitizers take several times as long: they get one place in five.
constexpr int stride = PANOTRA_SANITIZED ? 5 : 1;

/// Every kind of value, in every way of writing it that somebody might choose.
const std::string xmlFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<!-- levels -->
<dict>
	<key>volume0</key>
	<real>0.30000001192092896</real>
	<key>a &amp; b</key>
	<real>-1.5e-3</real>
	<key>activeStyle</key>
	<integer>10</integer>
	<key>mask</key>
	<integer>-0x1F</integer>
	<key>large</key>
	<integer>18446744073709551615</integer>
	<key>replaceHUD</key>
	<true/>
	<key/>
	<false></false>
	<key>name</key>
	<string>caf)"
                            "\xC3\xA9"
                            R"( &lt;&#233;&#x1F600;&gt; <![CDATA[<b>]]></string>
	<key>when</key>
	<date>2020-02-29T23:59:59Z</date>
	<key>raw</key>
	<data>
	AAECAwQ=
	</data>
	<key>list</key>
	<array>
		<integer>1</integer>
		<real>inf</real>
		<dict><key>CF$UID</key><integer>7</integer></dict>
		<array/>
	</array>
</dict>
</plist>
)";

/// Every kind of object, some of them referred to twice, with references of one byte.
std::string binarySample()
{
    const std::vector<std::string> objects {
        "\xDC\1\2\3\4\5\6\7\x08\x09\x0A\x0B\x0C\x0D\x0E\x0F\x10\x11\x12\x13\x14\x15\x16\x17\x0D"s,
        "\x51"s
        "a",
        "\x51"s
        "b",
        "\x51"s
        "c",
        "\x51"s
        "d",
        "\x51"s
        "e",
        "\x51"s
        "f",
        "\x51"s
        "g",
        "\x51"s
        "h", //
        "\x51"s
        "i",
        "\x51"s
        "j",
        "\x61\0\xE9"s, "\x5F\x10\x10sixteen letters!"s, // keys 1 to 12
        "\x09"s, // 13
        "\x10\xFF"s, "\x13"s + bigEndian(~0ull, 8), "\x14"s + bigEndian(0, 8) + bigEndian(~0ull, 8),
        "\x22"s + bigEndian(0x3E99999A, 4), "\x23"s + bigEndian(0x3FB999999999999A, 8),
        "\x33"s + bigEndian(0x419D6F34547DF3B6, 8), "\x43\0\1\2"s, "\x63\xD8\x3D\xDE\0\0a"s, "\x80\7"s,
        "\xA3\x18\x0D\x18"s, // 23
        "\xD1\1\x19"s, // 24
        "\x52hi"s, // 25
    };
    std::string file = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(file.size(), 2);
        file += object;
    }
    return file + table + std::string(6, '\0') + "\2\1" + bigEndian(objects.size(), 8) + bigEndian(0, 8)
        + bigEndian(file.size(), 8);
}

struct Format {
    ReadValue (*read)(std::string_view bytes);
    std::optional<std::string> (*meaning)(const std::string& bytes);
};

constexpr Format xmlFormat { readXml, testing::meaningOfXml };
constexpr Format binaryFormat { readBinary, testing::meaningOfBinary };

class DamagedFiles : public ::testing::Test {
protected:
    void expectAgreement(const Format& format, const std::string& bytes)
    {
        const ReadValue read = format.read(bytes);
        const auto meaning = format.meaning(bytes);
        if (!read.value) {
            ASSERT_NE(read.objection, "");
            ++(meaning ? refusedHereOnly : unreadable);
            return;
        }
        ++readable;
        ASSERT_TRUE(meaning) << bytes;
        ASSERT_EQ(testing::meaningOf(*read.value), *meaning) << bytes;
        // What is read comes back from what is written of it.
        if (const auto xml = writeXml(*read.value)) {
            ASSERT_EQ(testing::meaningOf(*readXml(*xml).value), *meaning) << *xml;
        }
        const auto binary = writeBinary(*read.value);
        ASSERT_TRUE(binary);
        ASSERT_EQ(testing::meaningOf(*readBinary(*binary).value), *meaning) << bytes;
    }

    /// `damage` answers the damaged bytes for a place in the file.
    void sweep(const Format& format, const std::string& whole, const std::function<std::string(std::size_t)>& damage)
    {
        for (std::size_t at = 0; at < whole.size(); at += stride)
            ASSERT_NO_FATAL_FAILURE(expectAgreement(format, damage(at))) << "at " << at;
    }

    void sweepFlips(const Format& format, const std::string& whole)
    {
        for (int bit = 0; bit < 8; ++bit) {
            sweep(format, whole, [&](std::size_t at) {
                std::string damaged = whole;
                damaged[at] = static_cast<char>(damaged[at] ^ 1 << bit);
                return damaged;
            });
        }
    }

    void sweepTruncations(const Format& format, const std::string& whole)
    {
        sweep(format, whole, [&](std::size_t at) { return whole.substr(0, at); });
        sweep(format, whole, [&](std::size_t at) { return whole.substr(at); });
    }

    /// Each of these bytes in place of each byte, and before it.
    void sweepBytes(const Format& format, const std::string& whole, const std::string& bytes)
    {
        for (const char byte : bytes) {
            sweep(format, whole, [&](std::size_t at) { return whole.substr(0, at) + byte + whole.substr(at + 1); });
            sweep(format, whole, [&](std::size_t at) { return whole.substr(0, at) + byte + whole.substr(at); });
        }
    }

    void sweepOmissions(const Format& format, const std::string& whole)
    {
        for (std::size_t length = 1; length <= 3; ++length) {
            sweep(format, whole, [&](std::size_t at) {
                return whole.substr(0, at) + whole.substr(std::min(at + length, whole.size()));
            });
        }
    }

    int readable = 0;
    int unreadable = 0;
    int refusedHereOnly = 0; ///< what the other reader overlooks, or an encoding that it knows by more names
};

TEST_F(DamagedFiles, BothReadersUnderstandTheSamplesAlike)
{
    expectAgreement(xmlFormat, xmlFile);
    expectAgreement(binaryFormat, binarySample());
    EXPECT_EQ(readable, 2);
}

TEST_F(DamagedFiles, XmlWithOneBitTurned)
{
    sweepFlips(xmlFormat, xmlFile);
    EXPECT_LT(refusedHereOnly, 20);
    EXPECT_GT(readable, 1000 / stride);
    EXPECT_GT(unreadable, 1000 / stride);
}

TEST_F(DamagedFiles, XmlWithoutItsBeginningOrItsEnd)
{
    sweepTruncations(xmlFormat, xmlFile);
    EXPECT_LT(refusedHereOnly, 20);
    EXPECT_GT(unreadable, 1000 / stride);
}

TEST_F(DamagedFiles, XmlWithAByteReplacedOrAdded)
{
    sweepBytes(xmlFormat, xmlFile, "\0 09-;<>&/\xFF"s);
    EXPECT_LT(refusedHereOnly, 20);
    EXPECT_GT(readable, 1000 / stride);
    EXPECT_GT(unreadable, 1000 / stride);
}

TEST_F(DamagedFiles, XmlWithBytesLeftOut)
{
    sweepOmissions(xmlFormat, xmlFile);
    EXPECT_LT(refusedHereOnly, 20);
    EXPECT_GT(readable, 100 / stride);
    EXPECT_GT(unreadable, 1000 / stride);
}

TEST_F(DamagedFiles, BinaryWithOneBitTurned)
{
    sweepFlips(binaryFormat, binarySample());
    EXPECT_EQ(refusedHereOnly, 0);
    EXPECT_GT(readable, 500 / stride);
    EXPECT_GT(unreadable, 500 / stride);
}

TEST_F(DamagedFiles, BinaryWithAByteReplacedOrAdded)
{
    sweepBytes(binaryFormat, binarySample(), "\0\1\x0F\x10\x21\x5F\x7F\x83\xA1\xD1\xE0\xFF"s);
    EXPECT_EQ(refusedHereOnly, 0);
    EXPECT_GT(readable, 1000 / stride);
    EXPECT_GT(unreadable, 1000 / stride);
}

TEST_F(DamagedFiles, BinaryWithoutItsBeginningOrItsEnd)
{
    sweepTruncations(binaryFormat, binarySample());
    EXPECT_EQ(refusedHereOnly, 0);
    EXPECT_EQ(readable, 1) << "the whole is among them";
    EXPECT_GT(unreadable, 300 / stride);
}

TEST_F(DamagedFiles, BinaryWithBytesLeftOut)
{
    sweepOmissions(binaryFormat, binarySample());
    EXPECT_EQ(refusedHereOnly, 0);
    EXPECT_GT(unreadable, 300 / stride);
}

TEST_F(DamagedFiles, AreNeverTakenForTheOtherFormat)
{
    const std::string whole = binarySample();
    for (std::size_t at = 0; at < binaryMark.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 1);
        EXPECT_FALSE(PropertyListTree::parse(damaged).tree);
    }
}

} // namespace
} // namespace panotra::preferences
