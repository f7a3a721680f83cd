/// One property list on disk that several handles read and change.
#include "simulator/preferences/PropertyListFile.h"

#include "tests/unit/preferences/BinaryFile.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <sys/stat.h>

#include <array>
#include <cstdio>

namespace panotra::preferences {
namespace {

using testing::binaryFileWith;
using testing::readBytes;
using testing::writeBytes;
using testing::xmlWith;

class PropertyListFileTest : public ::testing::Test {
protected:
    PropertyListFile open()
    {
        return PropertyListFile(path, [this](const std::string& line) { warnings.push_back(line); });
    }

    Json read(const std::string& key)
    {
        PropertyListFile file = open();
        EXPECT_TRUE(file.read(Damaged::Leave));
        const Json* value = file.settings().find(key);
        return value == nullptr ? Json("absent") : *value;
    }

    Saved save(const std::string& key, Json value)
    {
        PropertyListFile file = open();
        file.set(key, std::move(value));
        return file.save();
    }

    /// When the file was replaced last, and as what; two files that are the same here were never replaced.
    std::tuple<ino_t, time_t, long> stamp() const
    {
        struct stat status { };
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return { status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec };
    }

    mode_t mode() const
    {
        struct stat status { };
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    testing::TemporaryFolder folder;
    std::filesystem::path path = folder / "net.qorvath.panotra.plist";
    std::vector<std::string> warnings;
};

TEST_F(PropertyListFileTest, AFileThatDoesNotExistIsEmpty)
{
    PropertyListFile file = open();
    EXPECT_TRUE(file.read(Damaged::SetAside));
    EXPECT_TRUE(file.settings().empty());
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(PropertyListFileTest, WhatIsSavedIsReadByOthers)
{
    EXPECT_EQ(save("volume0", 0.625), Saved::Replaced);
    EXPECT_EQ(read("volume0"), 0.625);
    EXPECT_TRUE(warnings.empty());
}

TEST_F(PropertyListFileTest, WhatIsSetIsSeenAtOnceAndReachesTheFileWithTheSave)
{
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(*file.settings().find("volume0"), 0.5);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(file.save(), Saved::Replaced);
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(PropertyListFileTest, ASaveKeepsWhatOthersSetMeanwhile)
{
    PropertyListFile one = open();
    PropertyListFile other = open();
    one.read(Damaged::Leave);
    other.read(Damaged::Leave);
    one.set("volume0", 0.25);
    other.set("volume1", 0.75);
    EXPECT_EQ(one.save(), Saved::Replaced);
    EXPECT_EQ(other.save(), Saved::Replaced);
    EXPECT_EQ(read("volume0"), 0.25);
    EXPECT_EQ(read("volume1"), 0.75);
}

TEST_F(PropertyListFileTest, ASaveDoesNotBringBackWhatOthersRemoved)
{
    save("volume0", 0.25);
    PropertyListFile file = open();
    file.read(Damaged::Leave);
    PropertyListFile other = open();
    other.unset("volume0");
    EXPECT_EQ(other.save(), Saved::Replaced);
    file.set("volume1", 0.75);
    EXPECT_EQ(file.save(), Saved::Replaced);
    EXPECT_EQ(read("volume0"), "absent");
    EXPECT_EQ(file.settings().find("volume0"), nullptr);
}

TEST_F(PropertyListFileTest, ASaveDoesNotRepeatWhatWasSavedBefore)
{
    PropertyListFile file = open();
    file.set("volume0", 0.25);
    file.save();
    save("volume0", 0.75);
    file.set("volume1", 0.5);
    file.save();
    EXPECT_EQ(read("volume0"), 0.75);
}

TEST_F(PropertyListFileTest, SeveralKeysAreOneReplacement)
{
    save("volume0", 0.0);
    const auto before = stamp();
    PropertyListFile file = open();
    for (int slot = 0; slot < 12; ++slot)
        file.set("volume" + std::to_string(slot), 0.5);
    EXPECT_EQ(stamp(), before);
    EXPECT_EQ(file.save(), Saved::Replaced);
    EXPECT_NE(stamp(), before);
    EXPECT_EQ(read("volume11"), 0.5);
}

TEST_F(PropertyListFileTest, ASaveThatChangesNothingDoesNotTouchTheFile)
{
    save("volume0", 0.5);
    const auto before = stamp();
    EXPECT_EQ(save("volume0", 0.5), Saved::Nothing);
    EXPECT_EQ(open().save(), Saved::Nothing);
    PropertyListFile file = open();
    file.unset("absent");
    EXPECT_EQ(file.save(), Saved::Nothing);
    file.set("volume0", 0.75);
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Nothing);
    EXPECT_EQ(stamp(), before);
}

TEST_F(PropertyListFileTest, RemovingFromAFileThatDoesNotExistMakesNone)
{
    PropertyListFile file = open();
    file.unset("volume0");
    EXPECT_EQ(file.save(), Saved::Nothing);
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(PropertyListFileTest, AnotherKindOfTheSameValueIsAChange)
{
    save("key", 1);
    EXPECT_EQ(save("key", 1.0), Saved::Replaced);
    EXPECT_TRUE(read("key").is_number_float());
    EXPECT_EQ(save("key", true), Saved::Replaced);
    EXPECT_TRUE(read("key").is_boolean());
}

TEST_F(PropertyListFileTest, KeysOfUnknownKindsStay)
{
    writeBytes(path, xmlWith("<key>when</key><date>2020-01-02T03:04:05Z</date><key>raw</key><data>AAEC</data>"));
    EXPECT_EQ(save("volume0", 0.5), Saved::Replaced);
    EXPECT_EQ(read("when"), nullptr);
    EXPECT_NE(readBytes(path).find("<date>2020-01-02T03:04:05Z</date>"), std::string::npos);
    EXPECT_NE(readBytes(path).find("AAEC"), std::string::npos);
}

TEST_F(PropertyListFileTest, ABinaryFileStaysBinary)
{
    writeBytes(path, binaryFileWith("\x52hi"));
    EXPECT_EQ(save("volume0", 0.5), Saved::Replaced);
    EXPECT_TRUE(readBytes(path).starts_with("bplist00"));
    EXPECT_EQ(read("k"), "hi");
    EXPECT_EQ(read("volume0"), 0.5);
}

TEST_F(PropertyListFileTest, AFileIsReadAfreshEveryTime)
{
    PropertyListFile file = open();
    save("volume0", 0.5);
    file.read(Damaged::Leave);
    EXPECT_EQ(*file.settings().find("volume0"), 0.5);
    std::filesystem::remove(path);
    EXPECT_TRUE(file.read(Damaged::Leave));
    EXPECT_TRUE(file.settings().empty());
}

TEST_F(PropertyListFileTest, AFileThatVanishedIsMadeAgainWithWhatWasSet)
{
    save("volume0", 0.5);
    PropertyListFile file = open();
    file.read(Damaged::Leave);
    std::filesystem::remove(path);
    file.set("volume1", 0.25);
    EXPECT_EQ(file.save(), Saved::Replaced);
    EXPECT_EQ(read("volume0"), "absent");
    EXPECT_EQ(read("volume1"), 0.25);
}

TEST_F(PropertyListFileTest, ANewFileHasThePermissionsThatTheMaskLeaves)
{
    const mode_t mask = ::umask(027);
    save("volume0", 0.5);
    ::umask(mask);
    EXPECT_EQ(mode(), 0640u);
}

TEST_F(PropertyListFileTest, ThePermissionsOfAFileStay)
{
    writeBytes(path, xmlWith(""));
    ::chmod(path.c_str(), 0660);
    save("volume0", 0.5);
    EXPECT_EQ(mode(), 0660u);
}

TEST_F(PropertyListFileTest, AFileBehindALinkIsReplacedWhereItIs)
{
    std::filesystem::create_directory(folder / "real");
    writeBytes(folder / "real/file.plist", xmlWith("<key>k</key><true/>"));
    std::filesystem::create_symlink("real/file.plist", folder / "hop");
    std::filesystem::create_symlink(folder / "hop", path);
    EXPECT_EQ(save("volume0", 0.5), Saved::Replaced);
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "real/file.plist"));
    EXPECT_NE(readBytes(folder / "real/file.plist").find("volume0"), std::string::npos);
    EXPECT_EQ(read("k"), true);
}

TEST_F(PropertyListFileTest, ALinkToNothingIsFilled)
{
    std::filesystem::create_symlink("elsewhere.plist", path);
    EXPECT_EQ(save("volume0", 0.5), Saved::Replaced);
    EXPECT_TRUE(std::filesystem::is_regular_file(folder / "elsewhere.plist"));
    EXPECT_TRUE(std::filesystem::is_symlink(path));
}

TEST_F(PropertyListFileTest, TheFolderIsMadeForTheUserAlone)
{
    path = folder / "new/and/deep/domain.plist";
    EXPECT_EQ(save("volume0", 0.5), Saved::Replaced);
    const auto permissions = std::filesystem::status(folder / "new/and").permissions();
    EXPECT_EQ(permissions, std::filesystem::perms::owner_all);
}

TEST_F(PropertyListFileTest, NothingButTheFileAndItsLockIsLeftInTheFolder)
{
    for (int i = 0; i < 5; ++i)
        save("volume0", i);
    const std::set<std::string> expected { ".net.qorvath.panotra.lock", "net.qorvath.panotra.plist" };
    EXPECT_EQ(folder.names(), expected);
}

TEST_F(PropertyListFileTest, ANulInATextDoesNotKeepItsFileFromBeingSaved)
{
    using namespace std::string_literals;
    writeBytes(path, binaryFileWith("\x53"s + "a\0b"s));
    EXPECT_EQ(save("volume0", 0.5), Saved::Replaced);
    EXPECT_EQ(read("k"), "a\0b"s);
    EXPECT_EQ(read("volume0"), 0.5);
    EXPECT_TRUE(warnings.empty());
}

TEST_F(PropertyListFileTest, AnotherFileOfTheSameSizeIsSeen)
{
    save("volume0", 0.5);
    PropertyListFile file = open();
    EXPECT_TRUE(file.read(Damaged::Leave));
    std::string bytes = readBytes(path);
    bytes.replace(bytes.find("0.5"), 3, "0.7");
    writeBytes(path, bytes);
    EXPECT_TRUE(file.read(Damaged::Leave));
    EXPECT_EQ(*file.settings().find("volume0"), 0.7);
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Replaced);
    EXPECT_EQ(read("volume0"), 0.5);
}

TEST_F(PropertyListFileTest, TheToolsOfThePlatformReadWhatWasWritten)
{
    save("volume0", double { 0.3f });
    save("replaceHUD", true);
    save("name", "<caf\xC3\xA9>");
    const std::string command = std::string(PANOTRA_PLISTUTIL) + " -f xml -i '" + path.string() + "'";
    FILE* tool = ::popen(command.c_str(), "r");
    ASSERT_NE(tool, nullptr);
    std::string output;
    std::array<char, 4096> buffer {};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), tool))
        output.append(buffer.data(), count);
    EXPECT_EQ(::pclose(tool), 0);
    EXPECT_NE(output.find("<key>volume0</key>\n\t<real>0.30000001192092896</real>"), std::string::npos) << output;
    EXPECT_NE(output.find("<key>replaceHUD</key>\n\t<true/>"), std::string::npos) << output;
    EXPECT_NE(output.find("<string>&lt;caf\xC3\xA9&gt;</string>"), std::string::npos) << output;
}

} // namespace
} // namespace panotra::preferences
