/// Libraries that are loaded and run.
#include "tests/hosts/macho/MachImage.h"
#include "tests/hosts/macho/SampleLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace panotra::hosts {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

int startCount = 0;

void started()
{
    ++startCount;
}

void* resolve(std::string_view name)
{
    return name == "started" ? reinterpret_cast<void*>(started) : nullptr;
}

class MachImageTest : public testing::Test {
protected:
    MachImageTest()
        : m_folder(
            std::filesystem::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name())
        , m_file((m_folder / "Sample.dylib").string())
    {
        std::filesystem::create_directories(m_folder);
        write("Sample.map",
            "# Symbols:\n0x00000800\t0x8\t[  1] _start\n0x00001000\t0x20\t[  1] _data\n0x00002000\t0x1\t[  1] "
            "_after\n");
        startCount = 0;
    }
    ~MachImageTest() override { std::filesystem::remove_all(m_folder); }

    void write(const std::string& name, const std::string& contents)
    {
        std::ofstream(m_folder / name, std::ios::binary) << contents;
    }

    std::unique_ptr<LibraryImage> open(const SampleLibrary& library)
    {
        write("Sample.dylib", library.bytes());
        return openMachImage(m_file, resolve);
    }

    void expectRefused(const SampleLibrary& library, const std::string& complaint)
    {
        EXPECT_THAT([&] { open(library); }, ThrowsMessage<std::runtime_error>(m_file + ": " + complaint));
        EXPECT_EQ(startCount, 0);
    }

    std::filesystem::path m_folder;
    std::string m_file;
};

std::uint64_t numberAt(const void* place, std::size_t index)
{
    std::uint64_t number = 0;
    std::memcpy(&number, static_cast<const char*>(place) + index * sizeof number, sizeof number);
    return number;
}

/// How the process may use the page of this address, as the kernel writes it.
std::string protectionOf(const void* place)
{
    std::ifstream maps("/proc/self/maps");
    const auto wanted = reinterpret_cast<std::uintptr_t>(place);
    for (std::string line; std::getline(maps, line);) {
        std::istringstream fields(line);
        std::uintptr_t start = 0;
        std::uintptr_t end = 0;
        char dash = 0;
        std::string protection;
        fields >> std::hex >> start >> dash >> end >> protection;
        if (wanted >= start && wanted < end)
            return protection;
    }
    return "";
}

TEST_F(MachImageTest, HasRunItsConstructorOnceWhenItIsThere)
{
    open({});
    EXPECT_EQ(startCount, 1);
}

TEST_F(MachImageTest, HasItsPointersFilled)
{
    const auto image = open({});
    const void* const data = image->symbol("data", 40);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(numberAt(data, 0), reinterpret_cast<std::uintptr_t>(started));
    EXPECT_EQ(numberAt(data, 1), reinterpret_cast<std::uintptr_t>(image->symbol("start", 8)));
    EXPECT_EQ(numberAt(data, 2), reinterpret_cast<std::uintptr_t>(data) + 24);
    EXPECT_EQ(numberAt(data, 3), 42u);
    EXPECT_EQ(numberAt(data, 4), 0u) << "what the file does not fill";
}

TEST_F(MachImageTest, KnowsNoOtherNames)
{
    const auto image = open({});
    EXPECT_EQ(image->symbol("nothing", 1), nullptr);
    EXPECT_EQ(image->symbol("after", 1), nullptr) << "a name outside the library";
}

TEST_F(MachImageTest, KnowsNoValuesThatReachBeyondIt)
{
    const auto image = open({});
    EXPECT_NE(image->symbol("data", samplePageSize), nullptr);
    EXPECT_EQ(image->symbol("data", samplePageSize + 1), nullptr);
}

TEST_F(MachImageTest, IsProtectedAsItAsksFor)
{
    const auto image = open({});
    EXPECT_EQ(protectionOf(image->symbol("start", 8)), "r-xp");
    EXPECT_EQ(protectionOf(image->symbol("data", 40)), "rw-p");
}

TEST_F(MachImageTest, CountsTheAddendIn)
{
    SampleLibrary library;
    library.weakBindings = stream("\x40_started\0\x51\x60\x05\x71\x18\x90");
    EXPECT_EQ(numberAt(open(library)->symbol("data", 40), 3), reinterpret_cast<std::uintptr_t>(started) + 5);
}

TEST_F(MachImageTest, MayLackWhatItSaysItMayLack)
{
    SampleLibrary library;
    library.weakBindings = stream("\x41_absent\0\x51\x71\x18\x90");
    EXPECT_EQ(numberAt(open(library)->symbol("data", 40), 3), 0u);
}

TEST_F(MachImageTest, IsRefusedWithWhatItLacks)
{
    SampleLibrary library;
    library.lazyBindings = stream("\x71\x18\x11\x40_absent\0\x90");
    expectRefused(library, "imports _absent, which is not here");
}

TEST_F(MachImageTest, IsRefusedWithANameThatIsNotOfC)
{
    SampleLibrary library;
    library.lazyBindings = stream("\x71\x18\x11\x40$x\0\x90");
    expectRefused(library, "imports $x, which is no C name");
}

TEST_F(MachImageTest, IsRefusedOnAnotherProcessor)
{
    SampleLibrary library;
    library.processor ^= 0x01000007 ^ 0x0100000c;
    expectRefused(library, "is for another processor");
}

TEST_F(MachImageTest, IsRefusedWithAConstructorThatIsNotItsOwn)
{
    SampleLibrary library;
    library.rebases = "";
    expectRefused(library, "has a constructor outside its code");
}

TEST_F(MachImageTest, IsRefusedWithAConstructorAmongItsData)
{
    SampleLibrary library;
    library.contents[samplePageSize + 9] = 0x10;
    expectRefused(library, "has a constructor outside its code");
}

TEST_F(MachImageTest, RunsNoConstructorIfOneCannotRun)
{
    SampleLibrary library;
    library.segments[1].sections[0].size = 16; // the second points among the data
    expectRefused(library, "has a constructor outside its code");
}

TEST_F(MachImageTest, IsRefusedWhenDamaged)
{
    SampleLibrary library;
    library.segments[1].protection = 7;
    expectRefused(library, "has a segment __DATA that is both code and data");
}

TEST_F(MachImageTest, IsRefusedWithoutItsMap)
{
    std::filesystem::remove(m_folder / "Sample.map");
    write("Sample.dylib", SampleLibrary().bytes());
    EXPECT_THAT([&] { openMachImage(m_file, resolve); }, ThrowsMessage<std::runtime_error>(HasSubstr("Sample.map: ")));
    EXPECT_EQ(startCount, 0);
}

TEST_F(MachImageTest, IsKnownByItsBeginning)
{
    write("Sample.dylib", SampleLibrary().bytes());
    EXPECT_TRUE(isMachFile(m_file));
    EXPECT_FALSE(isMachFile((m_folder / "Sample.map").string()));
    EXPECT_FALSE(isMachFile((m_folder / "absent").string()));
}

} // namespace
} // namespace panotra::hosts
