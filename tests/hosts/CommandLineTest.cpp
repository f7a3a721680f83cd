/// `panotra-objc` as a person runs it, with libraries that cannot be loaded.
#include "tests/command/CommandLine.h"

#include <gmock/gmock.h>

#include <elf.h>

#include <cstring>

namespace panotra::testing {
namespace {

using ::testing::MatchesRegex;
using ::testing::StartsWith;

class HostCommandLine : public CommandLine {
protected:
    HostCommandLine() { std::filesystem::copy_file(PANOTRA_NATIVE_LIBRARY, folder / "lib.so"); }

    /// The tables of that kind begin so far behind the end that the sum of place and size is small again.
    void moveTablesOut(Elf64_Word kind) const
    {
        std::string library = read("lib.so");
        Elf64_Ehdr header;
        std::memcpy(&header, library.data(), sizeof header);
        for (std::size_t i = 0; i < header.e_shnum; ++i) {
            char* const place = library.data() + header.e_shoff + i * sizeof(Elf64_Shdr);
            Elf64_Shdr table;
            std::memcpy(&table, place, sizeof table);
            if (table.sh_type == kind)
                table.sh_offset = ~Elf64_Off { 7 };
            std::memcpy(place, &table, sizeof table);
        }
        write("lib.so", library);
    }

    void expectRefused(const std::string& library, const std::string& beginning) const
    {
        const Ended ended = run("play good --library " + library);
        EXPECT_EQ(ended.status, 3);
        EXPECT_EQ(ended.output, "load\n");
        EXPECT_THAT(ended.errors, StartsWith("panotra: " + beginning));
        EXPECT_THAT(ended.errors, MatchesRegex("[^\n]*\n"));
    }
};

TEST_F(HostCommandLine, PlaysWithTheLibraryThatIsNamed)
{
    const Ended ended = run("play good --library lib.so");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(ended.output, run("play good").output);
}

TEST_F(HostCommandLine, ALibraryThatIsNotThereIsAFileThatFailed)
{
    expectRefused("missing.so", "missing.so: ");
    expectRefused("/no/such/lib.so", "/no/such/lib.so: ");
}

TEST_F(HostCommandLine, AFileThatIsNoLibraryIsAFileThatFailed)
{
    expectRefused("good", "./good: ");
    expectRefused(".", ".: ");
}

TEST_F(HostCommandLine, ALibraryThatIsCutOffIsAFileThatFailed)
{
    const std::uintmax_t whole = std::filesystem::file_size(folder / "lib.so");
    for (const std::uintmax_t size : { whole - 1, whole / 2, std::uintmax_t { 5000 }, std::uintmax_t { 10 } }) {
        std::filesystem::resize_file(folder / "lib.so", size);
        expectRefused("lib.so", "lib.so: ends in the middle of something\n");
    }
}

TEST_F(HostCommandLine, ALibraryWhoseTablesAreOutsideItIsAFileThatFailed)
{
    for (const Elf64_Word kind : { Elf64_Word { SHT_SYMTAB }, Elf64_Word { SHT_STRTAB } }) {
        std::filesystem::copy_file(
            PANOTRA_NATIVE_LIBRARY, folder / "lib.so", std::filesystem::copy_options::overwrite_existing);
        moveTablesOut(kind);
        expectRefused("lib.so", "lib.so: ends in the middle of something\n");
    }
}

TEST_F(HostCommandLine, ALibraryWithoutItsNamesIsAFileThatFailed)
{
    const Ended ended = runScript("strip lib.so && \"$panotra\" play good --library lib.so");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.errors, "panotra: lib.so: its process-wide values are not to be found\n");
}

TEST_F(HostCommandLine, AWrongCommandLineSaysSoAsPanotraDoes)
{
    const Ended ended = run("play good --libary lib.so");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.errors,
        "panotra: found \"--libary\", expected an option of panotra-objc play (did you mean --library?)\n");
}

TEST_F(HostCommandLine, ATraceDoesNotReplaceTheLibrary)
{
    const Ended ended = run("play good --library lib.so --trace ./lib.so");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.errors, "panotra: ./lib.so: the trace would overwrite the library\n");
    EXPECT_EQ(run("play good --library lib.so").status, 0);
}

} // namespace
} // namespace panotra::testing
