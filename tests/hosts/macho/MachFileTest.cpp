/// Sound and damaged files.
#include "tests/hosts/macho/MachFile.h"
#include "tests/hosts/macho/SampleLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace panotra::hosts {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

MachFile read(const std::string& file)
{
    return readMachFile(std::as_bytes(std::span(file)));
}

TEST(MachFile, TellsWhatASoundLibraryWants)
{
    const std::string bytes = SampleLibrary().bytes();
    const MachFile file = read(bytes);
    EXPECT_EQ(file.size, 0x2000u);
    ASSERT_EQ(file.segments.size(), 2u);
    EXPECT_EQ(file.segments[0].name, "__TEXT");
    EXPECT_TRUE(file.segments[0].isExecutable);
    EXPECT_FALSE(file.segments[0].isWritable);
    EXPECT_EQ(file.segments[1].address, 0x1000u);
    EXPECT_EQ(file.segments[1].contents.size(), 0x20u);
    EXPECT_TRUE(file.segments[1].isWritable);
    EXPECT_THAT(file.constructors, ElementsAre(0x1008));
    EXPECT_THAT(file.rebases, ElementsAre(0x1008, 0x1010));
    ASSERT_EQ(file.bindings.size(), 1u);
    EXPECT_EQ(file.bindings[0].symbol, "_started");
}

TEST(MachFile, PassesOverCommandsThatMayBeOverlooked)
{
    SampleLibrary library;
    library.furtherCommands = { 0x1b, 0x26 };
    EXPECT_NO_THROW(read(library.bytes()));
}

TEST(MachFile, NeedsNoRunPathsWhereTheProcessHasAllThatIsImported)
{
    SampleLibrary library;
    library.furtherCommands = { 0x8000001c };
    EXPECT_NO_THROW(read(library.bytes()));
}

struct Damage {
    std::string complaint;
    std::function<void(SampleLibrary&)> inflict;
};

void PrintTo(const Damage& damage, std::ostream* stream)
{
    *stream << damage.complaint;
}

class DamagedMachFile : public testing::TestWithParam<Damage> { };

TEST_P(DamagedMachFile, IsRefused)
{
    SampleLibrary library;
    GetParam().inflict(library);
    EXPECT_THAT([&] { read(library.bytes()); }, ThrowsMessage<MachError>(HasSubstr(GetParam().complaint)));
}

const Damage damages[] = {
    { "is no 64-bit Mach-O file",
        [](SampleLibrary& library) {
            library.magic = 0xfeedface;
        } },
    { "is for an unknown processor",
        [](SampleLibrary& library) {
            library.processor = 12;
        } },
    { "is no dynamic library",
        [](SampleLibrary& library) {
            library.type = 2;
        } },
    { "has no segments",
        [](SampleLibrary& library) {
            library.segments.clear(), library.linkCommand = 1;
        } },
    { "has a load command 52, which is not understood here",
        [](SampleLibrary& library) {
            library.furtherCommands = { 0x80000034 };
        } },
    { "a segment __DATA in an impossible place",
        [](SampleLibrary& library) {
            library.segments[1].address += 8;
        } },
    { "a segment __DATA in an impossible place",
        [](SampleLibrary& library) {
            library.segments[1].address = 0xfffffffffffff000;
        } },
    { "a segment __DATA in an impossible place",
        [](SampleLibrary& library) {
            library.segments[1].size = 0xffffffffffffffff;
        } },
    { "a segment __DATA that holds more than its size",
        [](SampleLibrary& library) {
            library.segments[1].size = 16;
        } },
    { "a segment __DATA over __TEXT",
        [](SampleLibrary& library) {
            library.segments[1].address = 0;
        } },
    { "a segment __DATA that is both code and data",
        [](SampleLibrary& library) {
            library.segments[1].protection = 7;
        } },
    { "ends in the middle of something",
        [](SampleLibrary& library) {
            library.segments[1].fileSize += 0x1000;
        } },
    { "ends in the middle of something",
        [](SampleLibrary& library) {
            library.segments[1].fileOffset = 0xffffffffffffffff;
        } },
    { "constructors outside their segment",
        [](SampleLibrary& library) {
            library.segments[1].sections[0].address = 0x1ffc;
        } },
    { "constructors outside their segment",
        [](SampleLibrary& library) {
            library.segments[1].sections[0].address = 0xff8;
        } },
    { "constructors outside their segment",
        [](SampleLibrary& library) {
            library.segments[1].sections[0].size = 12;
        } },
    { "constructors outside their segment",
        [](SampleLibrary& library) {
            library.segments[1].sections[0].size = 0xfffffffffffffff8;
        } },
    { "a section __mod_init_func, which is not understood here",
        [](SampleLibrary& library) {
            library.segments[1].sections[0].type = 0x16;
        } },
};
INSTANTIATE_TEST_SUITE_P(Table, DamagedMachFile, testing::ValuesIn(damages));

/// True for a file that was refused, false for one that was read; anything else is a crash.
bool isRefused(const std::string& file)
{
    try {
        read(file);
        return false;
    } catch (const MachError&) {
        return true;
    }
}

TEST(MachFile, IsRefusedWhereverItIsCutOff)
{
    const std::string whole = SampleLibrary().bytes();
    for (std::size_t length = 0; length < whole.size(); ++length)
        ASSERT_TRUE(isRefused(whole.substr(0, length))) << length;
    EXPECT_FALSE(isRefused(whole));
}

TEST(MachFile, SurvivesEveryDamageOfASingleByte)
{
    const std::string whole = SampleLibrary().bytes();
    std::size_t refused = 0;
    for (std::size_t place = 0; place < whole.size(); ++place) {
        // Header and commands end far before this, and the opcodes begin behind it.
        if (place >= 0x400 && place < samplePageSize + 0x20)
            continue;
        for (const char value : { '\0', '\x01', '\x7f', '\x80', '\xff' }) {
            std::string damaged = whole;
            damaged[place] = value;
            refused += isRefused(damaged) ? 1 : 0;
        }
    }
    EXPECT_GT(refused, 100u);
}

} // namespace
} // namespace panotra::hosts
