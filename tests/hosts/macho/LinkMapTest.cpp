/// The linker's map.
#include "tests/hosts/macho/LinkMap.h"

#include <gtest/gtest.h>

namespace panotra::hosts {
namespace {

TEST(MachLinkMap, HoldsTheNamesOfItsSymbols)
{
    const LinkMap map = readLinkMap("# Path: Panotra.dylib\n"
                                    "# Object files:\n[  0] linker synthesized\n"
                                    "# Sections:\n0x00001BC0\t0x0000B54C\t__TEXT\t__text\n"
                                    "# Symbols:\n# Address\tSize    \tFile  Name\n"
                                    "0x00001BC0\t0x00000010\t[  3] _first\n"
                                    "0x00011A68\t0x00000050\t[ 52] -[Class method] of it\n");
    EXPECT_EQ(map, (LinkMap { { "_first", 0x1bc0 }, { "-[Class method] of it", 0x11a68 } }));
}

TEST(MachLinkMap, LeavesOutWhatWasNotLinked)
{
    const LinkMap map = readLinkMap("# Symbols:\n0x00000010\t0x00000010\t[  1] _here\n"
                                    "# Dead Stripped Symbols:\n<<dead>>\t0x0000000A\t[  2] _gone\n"
                                    "0x00000020\t0x0000000A\t[  2] _goneToo\n");
    EXPECT_EQ(map, (LinkMap { { "_here", 0x10 } }));
}

TEST(MachLinkMap, PassesOverLinesThatItDoesNotUnderstand)
{
    EXPECT_TRUE(readLinkMap("").empty());
    EXPECT_TRUE(readLinkMap("# Symbols:\n0x\n0x] \n0xZZ\t0x1\t[  1] _name\n12\t0x1\t[  1] _name\n").empty());
}

} // namespace
} // namespace panotra::hosts
