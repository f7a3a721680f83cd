/// Files made to cost: each is read or set aside, in little time and within 200 MB.
#include "simulator/device/Preferences.h"
#include "simulator/preferences/PropertyListFile.h"
#include "tests/unit/preferences/BinaryFile.h"
#include "tests/unit/preferences/ChildProcess.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

#include <sys/resource.h>

namespace panotra::preferences {
namespace {

using testing::bigEndian;
using testing::reference;
using testing::xmlWith;

// Each took less than half a second where it was measured. Other machines are slower, and the sanitizers take their
// share.
constexpr rlim_t mostSeconds = PANOTRA_SANITIZED ? 5 : 2;
constexpr long mostKilobytes = PANOTRA_SANITIZED ? 1000000 : 200000;

// Lengths that are nothing but lengths. No buffer of the readers or of Expat, and none of their rules, lies between an
// eighth of them and the whole, so the sanitizers see in an eighth whatever they would see in the whole.
constexpr std::size_t share = PANOTRA_SANITIZED ? 8 : 1;
constexpr std::size_t aboutTheLimit = (largestFileBytes - 2000) / share;

/// Doubled instead of added to one by one, which takes unoptimised code longer than the readers take.
std::string repeated(std::string_view text, std::size_t times)
{
    const std::size_t length = text.size() * times;
    std::string result(times > 0 ? text : "");
    result.reserve(length);
    while (result.size() < length)
        result.append(result, 0, length - result.size());
    return result;
}

std::string filled(std::string_view text)
{
    return repeated(text, aboutTheLimit / text.size());
}

/// A binary file of many object numbers that share a few places: the numbers after `objects` are all at the last one.
std::string withSharedPlaces(const std::vector<std::string>& objects, std::size_t numbers)
{
    std::string file = "bplist00";
    std::string table;
    std::size_t last = 0;
    for (const std::string& object : objects) {
        last = file.size();
        table += bigEndian(last, 4);
        file += object;
    }
    for (std::size_t number = objects.size(); number < numbers; ++number)
        table += bigEndian(last, 4);
    return file + table + std::string(6, '\0') + "\4\4" + bigEndian(numbers, 8) + bigEndian(0, 8)
        + bigEndian(file.size(), 8);
}

/// The marker of something with more elements than fit into it.
std::string counted(char marker, std::size_t count)
{
    return marker + ("\x12" + bigEndian(count, 4));
}

/// A dictionary of so many entries with the same key and the same value.
std::string sharing(std::size_t entries, const std::string& key, const std::string& value)
{
    return testing::binaryFile(
        { counted('\xDF', entries) + repeated(reference(1), entries) + repeated(reference(2), entries), key, value });
}

/// An array of the others, which are all one array of as many texts.
std::string arraysAtOnePlace(std::size_t numbers)
{
    std::string references;
    for (std::size_t number = 3; number < numbers; ++number)
        references += reference(number);
    return withSharedPlaces({ "\xD1" + reference(1) + reference(2), "\x51k", counted('\xAF', numbers - 3) + references,
                                counted('\xAF', numbers) + repeated(reference(1), numbers) },
        numbers);
}

struct CostlyFile {
    std::string name;
    std::function<std::string()> bytes;
};

class CostlyFiles : public ::testing::TestWithParam<CostlyFile> { };

/// Lets a process do that within the limits; the status is its own.
int statusWithinLimits(const std::function<void()>& work)
{
    testing::ChildProcess process([&] {
        const rlimit seconds { mostSeconds, mostSeconds };
        ::setrlimit(RLIMIT_CPU, &seconds);
        work();
        rusage used {};
        ::getrusage(RUSAGE_SELF, &used);
        ::_exit(used.ru_maxrss > mostKilobytes ? 2 : 0);
    });
    return process.wait();
}

/// As a home screen uses a domain.
void useDomainIn(const testing::TemporaryFolder& folder)
{
    sim::Device device { folder.path().string() };
    const std::unique_ptr<sim::PreferenceHandle> handle(device.preferences->open("domain"));
    handle->synchronize();
    handle->setFloat("volume0", 0.5f);
    device.preferences->all();
}

TEST_P(CostlyFiles, IsReadChangedAndListedWithinTheLimits)
{
    const testing::TemporaryFolder folder;
    const auto path = folder / "domain.plist";
    testing::writeBytes(path, GetParam().bytes());
    EXPECT_LE(std::filesystem::file_size(path), largestFileBytes) << "too large to be looked at";
    EXPECT_EQ(statusWithinLimits([&] { useDomainIn(folder); }), 0)
        << "-1: it took too long; 2: it took too much memory";
    // One or the other; nothing is lost.
    const std::set<std::string> names = folder.names();
    const bool isRead
        = testing::readBytes(path).find("volume0") != std::string::npos && !names.contains("domain.plist.unreadable-1");
    const bool isSetAside = names.contains("domain.plist.unreadable-1");
    EXPECT_TRUE(isRead || isSetAside);
    RecordProperty("outcome", isRead ? "read" : "set aside");
}

const CostlyFile costlyFiles[] = {
    { "ArraysAtOnePlace",
        [] {
            return arraysAtOnePlace(44000);
        } },
    { "MoreArraysAtOnePlace",
        [] {
            return arraysAtOnePlace(330000);
        } },
    { "ManyEmptyArraysAtOnePlace",
        [] {
            constexpr std::size_t numbers = 60000;
            std::string references;
            for (std::size_t number = 3; number < numbers; ++number)
                references += reference(number);
            return withSharedPlaces(
                { "\xD1" + reference(1) + reference(2), "\x51k", counted('\xAF', numbers - 3) + references, "\xA0" },
                numbers);
        } },
    { "KeysThatShareAText",
        [] {
            return sharing(20000, "\x51k", counted('\x5F', 200000) + std::string(200000, 'x'));
        } },
    { "EntriesThatShareAKey",
        [] {
            return sharing(20000, counted('\x5F', 200000) + std::string(200000, 'x'), "\x09");
        } },
    { "KeysThatShareData",
        [] {
            return sharing(20000, "\x51k", counted('\x4F', 200000) + std::string(200000, 'x'));
        } },
    { "KeysThatShareWideText",
        [] {
            return sharing(20000, "\x51k", counted('\x6F', 100000) + repeated("\x20\xAC", 100000));
        } },
    { "TheMostEntriesOfOneKey",
        [] {
            return sharing(60000, "\x51k", "\x09");
        } },
    { "OneLargeText",
        [] {
            return testing::binaryFileWith(counted('\x6F', 2000000 / share) + repeated("\x20\xAC", 2000000 / share));
        } },
    { "AnArrayOfMillions",
        [] {
            return testing::binaryFileWith(counted('\xAF', 1000000) + repeated(reference(1), 1000000));
        } },
    { "ATowerOfWideArrays",
        [] {
            std::vector<std::string> objects { "\xD1" + reference(1) + reference(2), "\x51k" };
            for (std::size_t level = 0; level < 100; ++level)
                objects.push_back("\xAE" + repeated(reference(objects.size() + 1), 14));
            objects.push_back("\x09");
            return testing::binaryFile(objects);
        } },
    { "ManyKeysInABinaryFile",
        [] {
            constexpr std::size_t entries = 60000;
            std::string keys;
            std::vector<std::string> objects { "" };
            for (std::size_t i = 1; i <= entries; ++i) {
                keys += reference(i);
                objects.push_back("\x58"
                    + bigEndian(
                        0x6161616161616161 + i % 16 + (i / 16 % 16 << 8) + (i / 256 % 16 << 16) + (i / 4096 << 24), 8));
            }
            objects[0] = counted('\xDF', entries) + keys + keys;
            return testing::binaryFile(objects);
        } },
    { "ManyEntities",
        [] {
            return xmlWith("<key>k</key><string>" + repeated("&amp;", 700000 / share) + "</string>");
        } },
    { "ManyCharacterReferences",
        [] {
            return xmlWith("<key>k</key><string>" + filled("&#65;") + "</string>");
        } },
    { "ManyLines",
        [] {
            return xmlWith("<key>k</key><string>" + filled("\n") + "</string>");
        } },
    { "ManyComments",
        [] {
            return xmlWith(filled("<!---->"));
        } },
    { "ManySections",
        [] {
            return xmlWith("<key>k</key><string>" + filled("<![CDATA[]]>") + "</string>");
        } },
    { "ManyValues",
        [] {
            return xmlWith("<key>k</key><array>" + filled("<true/>") + "</array>");
        } },
    { "TheMostValues",
        [] {
            return xmlWith("<key>k</key><array>" + repeated("<string/>", 60000) + "</array>");
        } },
    { "ManyKeys",
        [] {
            std::string entries;
            for (std::size_t i = 0; i < 60000; ++i)
                entries += "<key>" + std::to_string(i) + "</key><integer>1</integer>";
            return xmlWith(entries);
        } },
    { "OneKeyManyTimes",
        [] {
            return xmlWith(repeated("<key>k</key><true/>", 60000));
        } },
    { "DeepArrays",
        [] {
            return xmlWith("<key>k</key>" + filled("<array>"));
        } },
    { "ManyOpeningBrackets",
        [] {
            return filled("<");
        } },
    { "ACommentWithoutEnd",
        [] {
            return "<plist><!--" + filled("- ");
        } },
    { "ASectionWithoutEnd",
        [] {
            return "<plist><string><![CDATA[" + filled("]");
        } },
    { "ManyAttributes",
        [] {
            std::string attributes;
            for (std::size_t i = 0; attributes.size() < aboutTheLimit; ++i)
                attributes += " a" + std::to_string(i) + "=\"\"";
            return xmlWith("<key>k</key><true" + attributes + "/>");
        } },
    { "OneLongAttribute",
        [] {
            return xmlWith("<key>k</key><true a=\"" + filled("&amp;") + "\"/>");
        } },
    { "EntitiesOfEntities",
        [] {
            std::string entities = "<!ENTITY e0 \"x\">";
            for (int i = 1; i < 60; ++i)
                entities += "<!ENTITY e" + std::to_string(i) + " \"" + repeated("&e" + std::to_string(i - 1) + ";", 10)
                    + "\">";
            return "<!DOCTYPE plist [" + entities + "]><plist><dict><key>&e59;</key><true/></dict></plist>";
        } },
    { "AttributesOfTheDocumentType",
        [] {
            std::string attributes;
            for (std::size_t i = 0; i < 50000; ++i)
                attributes += " a" + std::to_string(i) + " CDATA \"\"";
            return "<!DOCTYPE plist [<!ATTLIST true" + attributes + ">]><plist><dict><key>k</key><array>"
                + repeated("<true/>", 50000) + "</array></dict></plist>";
        } },
    { "AContentModelThatNests",
        [] {
            return "<!DOCTYPE plist [<!ELEMENT plist " + filled("(") + ">]><plist/>";
        } },
    { "ALongInteger",
        [] {
            return xmlWith("<key>k</key><integer>" + filled("0") + "1</integer>");
        } },
    { "ALongReal",
        [] {
            return xmlWith("<key>k</key><real>0." + filled("7") + "</real>");
        } },
    { "ALongExponent",
        [] {
            return xmlWith("<key>k</key><real>1e" + filled("0") + "</real>");
        } },
    { "LongData",
        [] {
            return xmlWith("<key>k</key><data>" + filled("AAAA") + "</data>");
        } },
    { "DataOfBlanks",
        [] {
            return xmlWith("<key>k</key><data>" + filled(" \n") + "</data>");
        } },
    { "ALongValueThatIsNone",
        [] {
            return xmlWith("<key>k</key><integer>" + filled("x") + "</integer>");
        } },
};

/// Files that nobody made to cost: what a file of their size may have to take.
const char* const honestFiles[] = { "ManyKeys", "ManyKeysInABinaryFile", "OneLargeText", "LongData", "TheMostValues" };

/// What a use of a file with these contents takes of the processor, in seconds: the least of some tries, as others take
/// their share of the machine.
double secondsFor(const std::string& bytes)
{
    constexpr int tries = 4;
    double least = 1000;
    for (int i = 0; i < tries; ++i) {
        const testing::TemporaryFolder folder;
        testing::writeBytes(folder / "domain.plist", bytes);
        const std::clock_t begin = std::clock();
        useDomainIn(folder);
        least = std::min(least, static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    return least;
}

/// Times of the processor: taken by `make faults`, and not where other tests run beside it.
TEST(CostlyFilesTogether, TakeNoMoreThanTwiceWhatAFileOfTheirSizeMust)
{
    const auto isHonest = [](const CostlyFile& file) {
        return std::ranges::find(honestFiles, file.name) != std::end(honestFiles);
    };
    double secondsOfAByte = 0;
    double secondsOfAllValues = 0;
    for (const CostlyFile& file : costlyFiles) {
        if (!isHonest(file))
            continue;
        const std::string bytes = file.bytes();
        const double seconds = secondsFor(bytes);
        secondsOfAByte = std::max(secondsOfAByte, seconds / static_cast<double>(bytes.size()));
        if (file.name == "TheMostValues")
            secondsOfAllValues = seconds;
    }
    std::string dearest;
    double most = 0;
    for (const CostlyFile& file : costlyFiles) {
        const std::string bytes = file.bytes();
        // A small file that refers to its few objects again and again stands for as many values as a file may have.
        constexpr std::size_t small = 100000;
        const double must
            = bytes.size() < small ? secondsOfAllValues : secondsOfAByte * static_cast<double>(bytes.size());
        const double ratio = secondsFor(bytes) / must;
        if (ratio > most) {
            most = ratio;
            dearest = file.name;
        }
        EXPECT_LE(ratio, 2) << file.name;
    }
    std::printf("the dearest file, %s, takes %.2f times what one of its size must\n", dearest.c_str(), most);
}

INSTANTIATE_TEST_SUITE_P(
    Each, CostlyFiles, ::testing::ValuesIn(costlyFiles), [](const auto& suite) { return suite.param.name; });

} // namespace
} // namespace panotra::preferences
