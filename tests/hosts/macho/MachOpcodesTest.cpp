/// Every opcode, in small streams over the small library's data segment.
#include "tests/hosts/macho/MachFile.h"
#include "tests/hosts/macho/SampleLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace panotra::hosts {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

Bytes bytesOf(const std::string& text)
{
    return std::as_bytes(std::span(text));
}

std::vector<std::uint64_t> rebases(const std::string& opcodes)
{
    SampleLibrary library;
    library.rebases = opcodes;
    const std::string file = library.bytes();
    return readMachFile(bytesOf(file)).rebases;
}

/// "SYMBOL+ADDEND@ADDRESS", with "?" before a symbol that may be missing.
std::vector<std::string> bindings(const SampleLibrary& library)
{
    const std::string file = library.bytes();
    std::vector<std::string> texts;
    for (const MachBinding& binding : readMachFile(bytesOf(file)).bindings) {
        texts.push_back((binding.need == ImportNeed::Optional ? "?" : "") + binding.symbol + '+'
            + std::to_string(binding.addend) + '@' + std::to_string(binding.address - samplePageSize));
    }
    return texts;
}

std::vector<std::string> bindings(const std::string& opcodes)
{
    SampleLibrary library;
    library.bindings = opcodes;
    return bindings(library);
}

TEST(MachRebaseOpcodes, FillTheirPointers)
{
    EXPECT_THAT(rebases(stream("\x11\x21\x08\x51")), ElementsAre(0x1008));
    EXPECT_THAT(rebases(stream("\x11\x21\x00\x42\x51\x30\x08\x51")), ElementsAre(0x1010, 0x1020));
    EXPECT_THAT(rebases(stream("\x11\x21\x00\x60\x03")), ElementsAre(0x1000, 0x1008, 0x1010));
    EXPECT_THAT(rebases(stream("\x11\x21\x00\x70\x10\x51")), ElementsAre(0x1000, 0x1018));
    EXPECT_THAT(rebases(stream("\x11\x21\x00\x80\x02\x08")), ElementsAre(0x1000, 0x1010));
}

TEST(MachRebaseOpcodes, EndAtTheirEndOrAtTheStreams)
{
    EXPECT_THAT(rebases(stream("\x11\x21\x08\x51\x00\xff")), ElementsAre(0x1008));
    EXPECT_THAT(rebases(""), ElementsAre());
}

TEST(MachRebaseOpcodes, GoBackwardsByNumbersThatWrapAround)
{
    EXPECT_THAT(rebases(stream("\x11\x21\x10\x51\x30\xf0\xff\xff\xff\xff\xff\xff\xff\xff\x01\x51")),
        ElementsAre(0x1010, 0x1008));
}

TEST(MachBindOpcodes, FillTheirPointers)
{
    EXPECT_THAT(bindings(stream("\x11\x40_a\0\x51\x71\x00\x90\x80\x08\x90")), ElementsAre("_a+0@0", "_a+0@16"));
    EXPECT_THAT(bindings(stream("\x11\x40_a\0\x51\x71\x00\xa0\x08\x90")), ElementsAre("_a+0@0", "_a+0@16"));
    EXPECT_THAT(bindings(stream("\x11\x40_a\0\x51\x71\x00\xb2\x90")), ElementsAre("_a+0@0", "_a+0@24"));
    EXPECT_THAT(bindings(stream("\x11\x40_a\0\x51\x71\x00\xc0\x02\x08")), ElementsAre("_a+0@0", "_a+0@16"));
}

TEST(MachBindOpcodes, KeepWhatWasSaidOfTheSymbol)
{
    EXPECT_THAT(bindings(stream("\x3e\x41_a\0\x51\x60\x7f\x71\x00\x90\x20\x82\x01\x60\x08\x40_b\0\x90")),
        ElementsAre("?_a+-1@0", "_b+8@8"));
}

TEST(MachBindOpcodes, OfTheFirstCallGoOnAfterEachEnd)
{
    SampleLibrary library;
    library.bindings = "";
    library.lazyBindings = stream("\x71\x00\x11\x40_a\0\x90\x00\x71\x08\x11\x40_b\0\x90\x00\x00\x00");
    EXPECT_THAT(bindings(library), ElementsAre("_a+0@0", "_b+0@8"));
}

TEST(MachBindOpcodes, OfSharedNamesBindToo)
{
    SampleLibrary library;
    library.weakBindings = stream("\x40_shared\0\x51\x71\x18\x90\x00\xff");
    EXPECT_THAT(bindings(library), ElementsAre("_started+0@0", "_shared+0@24"));
}

struct BadStream {
    std::string opcodes;
    std::string complaint;
};

void PrintTo(const BadStream& bad, std::ostream* stream)
{
    *stream << bad.complaint;
}

class BadMachRebases : public testing::TestWithParam<BadStream> { };
class BadMachBindings : public testing::TestWithParam<BadStream> { };

TEST_P(BadMachRebases, AreRefused)
{
    EXPECT_THAT([&] { rebases(GetParam().opcodes); }, ThrowsMessage<MachError>(HasSubstr(GetParam().complaint)));
}

TEST_P(BadMachBindings, AreRefused)
{
    EXPECT_THAT([&] { bindings(GetParam().opcodes); }, ThrowsMessage<MachError>(HasSubstr(GetParam().complaint)));
}

const BadStream badRebases[] = {
    { stream("\x11\x51"), "a pointer before it says where" },
    { stream("\x12"), "a fixup that is no pointer" },
    { stream("\x22\x00"), "a segment that it does not have" },
    { stream("\x20\x00\x51"), "in a segment that cannot be written" },
    { stream("\x21\xf9\x1f\x51"), "a pointer outside its segment" },
    { stream("\x21\x00\x60\xff\xff\xff\xff\xff\xff\xff\xff\xff\x01"), "a pointer outside its segment" },
    { stream("\x21\x00\x80\xff\xff\xff\xff\xff\xff\xff\xff\xff\x01\xf8\xff\xff\xff\xff\xff\xff\xff\xff\x01"),
        "too many pointers" },
    { stream("\x21\xff\xff\xff\xff\xff\xff\xff\xff\xff\x02"), "a number of more than 64 bits" },
    { stream("\x21\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80"), "a number of more than 64 bits" },
    { stream("\x21\x80"), "ends in the middle of something" },
    { stream("\x90"), "an unknown rebase opcode" },
};
INSTANTIATE_TEST_SUITE_P(Table, BadMachRebases, testing::ValuesIn(badRebases));

const BadStream badBindings[] = {
    { stream("\x40_a\0\x51\x90"), "a pointer before it says where" },
    { stream("\x71\x00\x90"), "binds a pointer to nothing" },
    { stream("\x40_a\0\x52"), "a fixup that is no pointer" },
    { stream("\x40_a\0\x70\x00\x90"), "in a segment that cannot be written" },
    { stream("\x40_a\0\x71\xf9\x1f\x90"), "a pointer outside its segment" },
    { stream("\x40_a"), "ends in the middle of something" },
    { stream("\x60\x80\x80\x80\x80\x80\x80\x80\x80\x80\x80\x00"), "a number of more than 64 bits" },
    { stream("\xd0"), "an unknown bind opcode" },
};
INSTANTIATE_TEST_SUITE_P(Table, BadMachBindings, testing::ValuesIn(badBindings));

} // namespace
} // namespace panotra::hosts
