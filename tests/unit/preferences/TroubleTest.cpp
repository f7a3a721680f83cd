/// Files that cannot be read or written: nothing is lost, and a person hears of it once.
#include "simulator/preferences/DomainNames.h"
#include "simulator/preferences/FileLock.h"
#include "simulator/preferences/PropertyListFile.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <functional>
#include <iterator>
#include <memory>

#include <sys/resource.h>
#include <sys/stat.h>

namespace panotra::preferences {
namespace {

using testing::readBytes;
using testing::writeBytes;
using testing::xmlWith;

class TroubleTest : public ::testing::Test {
protected:
    PropertyListFile open(std::chrono::milliseconds patience = PropertyListFile::usualPatience)
    {
        return PropertyListFile(
            path, [this](const std::string& line) { warnings.push_back(line); }, patience);
    }

    /// A save that fails is told once, keeps its values in memory, and the next one that works brings all.
    void expectFailureThenSuccess(const std::string& reason, const std::function<void()>& mend)
    {
        PropertyListFile file = open();
        file.set("volume0", 0.25);
        EXPECT_EQ(file.save(), Saved::Failed);
        file.set("volume1", 0.75);
        EXPECT_EQ(file.save(), Saved::Failed);
        file.read(Damaged::SetAside);
        EXPECT_EQ(*file.settings().find("volume0"), 0.25);
        EXPECT_EQ(*file.settings().find("volume1"), 0.75);
        ASSERT_EQ(warnings.size(), 1u);
        EXPECT_EQ(warnings[0], path.string() + ": " + reason + "; nothing is saved");

        mend();
        file.set("volume2", 0.5);
        EXPECT_EQ(file.save(), Saved::Replaced);
        PropertyListFile other = open();
        EXPECT_TRUE(other.read(Damaged::Leave));
        EXPECT_EQ(*other.settings().find("volume0"), 0.25);
        EXPECT_EQ(*other.settings().find("volume1"), 0.75);
        EXPECT_EQ(*other.settings().find("volume2"), 0.5);
        EXPECT_EQ(warnings.size(), 1u);
    }

    testing::TemporaryFolder folder;
    std::filesystem::path path = folder / "domain.plist";
    std::vector<std::string> warnings;
};

TEST_F(TroubleTest, AFileThatIsNoPropertyListIsSetAsideWhenItIsRead)
{
    writeBytes(path, "volume0 = 0.5\n");
    PropertyListFile file = open();
    EXPECT_TRUE(file.read(Damaged::SetAside));
    EXPECT_TRUE(file.settings().empty());
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(readBytes(folder / "domain.plist.unreadable-1"), "volume0 = 0.5\n");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0],
        path.string() + ": is no property list (line 1: syntax error); set aside as "
            + (folder / "domain.plist.unreadable-1").string());
}

TEST_F(TroubleTest, AFileThatIsNoPropertyListIsSetAsideWhenItIsSaved)
{
    writeBytes(path, "garbage");
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Replaced);
    EXPECT_EQ(readBytes(folder / "domain.plist.unreadable-1"), "garbage");
    EXPECT_NE(readBytes(path).find("volume0"), std::string::npos);
    EXPECT_EQ(warnings.size(), 1u);
}

TEST_F(TroubleTest, EveryFileThatIsSetAsideGetsANameOfItsOwn)
{
    PropertyListFile file = open();
    const std::string contents[] = { "", "garbage", "<plist version=\"1.0\"><array/></plist>", "bplist00" };
    for (const std::string& bytes : contents) {
        writeBytes(path, bytes);
        EXPECT_TRUE(file.read(Damaged::SetAside));
    }
    for (std::size_t i = 0; i < std::size(contents); ++i)
        EXPECT_EQ(readBytes(folder / ("domain.plist.unreadable-" + std::to_string(i + 1))), contents[i]);
    EXPECT_EQ(warnings.size(), std::size(contents));
}

TEST_F(TroubleTest, AFileOfTheLongestDomainCanBeSavedAndSetAside)
{
    std::string domain;
    while (!objectionToDomain(domain + 'x'))
        domain += 'x';
    path = fileOfDomain(folder.path(), domain);
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Replaced);
    writeBytes(path, "garbage");
    EXPECT_TRUE(file.read(Damaged::SetAside));
    EXPECT_TRUE(std::filesystem::exists(path.string() + ".unreadable-1"));
}

TEST_F(TroubleTest, LookingAtAFileThatIsNoPropertyListLeavesIt)
{
    writeBytes(path, "garbage");
    PropertyListFile file = open();
    EXPECT_FALSE(file.read(Damaged::Leave));
    EXPECT_EQ(readBytes(path), "garbage");
    EXPECT_EQ(folder.names().size(), 1u);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], path.string() + ": is no property list (line 1: syntax error)");
}

TEST_F(TroubleTest, AFileWithAHundredThousandNestedArraysIsSetAside)
{
    std::string opening, closing;
    for (int i = 0; i < 100000; ++i) {
        opening += "<array>";
        closing += "</array>";
    }
    writeBytes(path, xmlWith("<key>k</key>" + opening + closing));
    PropertyListFile file = open();
    EXPECT_TRUE(file.read(Damaged::SetAside));
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("nests its values too deeply; set aside"), std::string::npos);
}

TEST_F(TroubleTest, ADamagedFileThatCannotBeSetAsideIsNotOverwritten)
{
    writeBytes(path, "garbage");
    ::chmod(path.c_str(), 0644);
    ::chmod(folder.path().c_str(), 0555);
    const testing::AsOrdinaryUser user;
    PropertyListFile file = open();
    EXPECT_FALSE(file.read(Damaged::SetAside));
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Failed);
    EXPECT_EQ(readBytes(path), "garbage");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0],
        path.string() + ": is no property list (line 1: syntax error) and cannot be changed: Permission denied");
}

TEST_F(TroubleTest, AFolderInPlaceOfTheFileIsToldOnce)
{
    std::filesystem::create_directory(path);
    expectFailureThenSuccess("cannot be read: Is a directory", [&] { std::filesystem::remove(path); });
}

TEST_F(TroubleTest, APipeInPlaceOfTheFileIsNotWaitedFor)
{
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    expectFailureThenSuccess("cannot be read: not a regular file", [&] { std::filesystem::remove(path); });
}

TEST_F(TroubleTest, ALoopOfLinksIsToldOnce)
{
    std::filesystem::create_symlink(path, folder / "other");
    std::filesystem::create_symlink(folder / "other", path);
    expectFailureThenSuccess(
        "cannot be changed: Too many levels of symbolic links", [&] { std::filesystem::remove(path); });
}

TEST_F(TroubleTest, AFileInPlaceOfTheFolderIsToldOnce)
{
    path = folder / "file/domain.plist";
    writeBytes(folder / "file", "");
    expectFailureThenSuccess("cannot be changed: Not a directory", [&] { std::filesystem::remove(folder / "file"); });
}

TEST_F(TroubleTest, AFolderThatMayNotBeWrittenIsToldOnce)
{
    ::chmod(folder.path().c_str(), 0555);
    const testing::AsOrdinaryUser user;
    expectFailureThenSuccess("cannot be changed: Permission denied", [&] {
        ASSERT_EQ(::seteuid(::getuid()), 0);
        ::chmod(folder.path().c_str(), 0777);
    });
}

TEST_F(TroubleTest, WhatIsSavedInAFolderThatCannotBeReadIsNotSaidToBeLost)
{
    ::chmod(folder.path().c_str(), 0333);
    {
        const testing::AsOrdinaryUser user;
        PropertyListFile file = open();
        for (int time = 0; time < 2; ++time) {
            file.set("volume0", time);
            EXPECT_EQ(file.save(), Saved::Replaced);
        }
    }
    ::chmod(folder.path().c_str(), 0755);
    EXPECT_NE(readBytes(path).find("<integer>1</integer>"), std::string::npos);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(
        warnings[0], path.string() + ": is saved, but a power failure may undo that: its folder: Permission denied");
}

TEST_F(TroubleTest, WhatIsToldOfAFileStaysOnOneLineAndDrivesNoTerminal)
{
    path = folder / "a\x1B[31m\nb.plist";
    writeBytes(path,
        xmlWith("<key>k</key><integer>\xC2\x9B"
                "1\n</integer>"));
    PropertyListFile file = open();
    EXPECT_TRUE(file.read(Damaged::SetAside));
    ASSERT_EQ(warnings.size(), 1u);
    const std::string shownName = (folder / "a\\x1b[31m\\x0ab.plist").string();
    EXPECT_EQ(warnings[0],
        shownName + ": holds the integer \"\\u009b1\\n\" (line 4), which cannot be kept as it is; set aside as "
            + shownName + ".unreadable-1");
}

TEST_F(TroubleTest, WhatMakesAFileTooLargeIsNotSaved)
{
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Replaced);
    file.set("text", std::string(largestFileBytes, 'x'));
    EXPECT_EQ(file.save(), Saved::Failed);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(
        warnings[0], path.string() + ": cannot be changed: with the change it is larger than 4 MiB; nothing is saved");
    file.unset("text");
    EXPECT_EQ(file.save(), Saved::Nothing);
}

TEST_F(TroubleTest, ALinkThatCannotBeLookedAtIsNotReplaced)
{
    std::filesystem::create_directory(folder / "closed");
    path = folder / "closed/domain.plist";
    ::chmod((folder / "closed").c_str(), 0666);
    const testing::AsOrdinaryUser user;
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Failed);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], path.string() + ": cannot be changed: Permission denied; nothing is saved");
}

TEST_F(TroubleTest, AFileThatMayNotBeReadIsNotOverwritten)
{
    writeBytes(path, xmlWith("<key>k</key><true/>"));
    ::chmod(path.c_str(), 0000);
    ::chmod(folder.path().c_str(), 0777);
    {
        const testing::AsOrdinaryUser user;
        PropertyListFile file = open();
        EXPECT_FALSE(file.read(Damaged::SetAside));
        file.set("volume0", 0.5);
        EXPECT_EQ(file.save(), Saved::Failed);
    }
    ::chmod(path.c_str(), 0600);
    EXPECT_EQ(readBytes(path), xmlWith("<key>k</key><true/>"));
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], path.string() + ": cannot be read: Permission denied");
}

TEST_F(TroubleTest, AFileThatMayNotBeWrittenIsNotReplaced)
{
    writeBytes(path, xmlWith("<key>k</key><true/>"));
    ::chmod(path.c_str(), 0444);
    ::chmod(folder.path().c_str(), 0777);
    const testing::AsOrdinaryUser user;
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Failed);
    EXPECT_EQ(readBytes(path), xmlWith("<key>k</key><true/>"));
    const std::set<std::string> expected { ".domain.lock", "domain.plist" };
    EXPECT_EQ(folder.names(), expected);
}

TEST_F(TroubleTest, ASaveThatWouldChangeNothingNeedsNoFolderThatCanBeWritten)
{
    writeBytes(path, xmlWith("<key>volume0</key><real>0.5</real>"));
    ::chmod(folder.path().c_str(), 0555);
    const testing::AsOrdinaryUser user;
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Nothing);
    EXPECT_TRUE(warnings.empty());
}

/// While it lives, no file of this process grows beyond these bytes: what a full disk does, a write does now.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_previous);
        const rlimit small { bytes, m_previous.rlim_max };
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() { ::setrlimit(RLIMIT_FSIZE, &m_previous); }

private:
    rlimit m_previous {};
};

TEST_F(TroubleTest, AFullDiskIsToldOnceAndLeavesTheOldFile)
{
    const std::string old = xmlWith("<key>k</key><true/>");
    writeBytes(path, old);
    auto disk = std::make_unique<SmallDisk>(100);
    expectFailureThenSuccess("cannot be changed: File too large", [&] {
        disk.reset();
        EXPECT_EQ(readBytes(path), old);
        const std::set<std::string> expected { ".domain.lock", "domain.plist" };
        EXPECT_EQ(folder.names(), expected);
    });
    EXPECT_NE(readBytes(path).find("<key>k</key>"), std::string::npos);
}

TEST_F(TroubleTest, TroubleThatComesBackIsToldAgain)
{
    PropertyListFile file = open();
    for (int time = 0; time < 2; ++time) {
        {
            const SmallDisk disk(10);
            file.set("volume0", time);
            EXPECT_EQ(file.save(), Saved::Failed);
        }
        EXPECT_EQ(file.save(), Saved::Replaced);
    }
    EXPECT_EQ(warnings.size(), 2u);
}

TEST_F(TroubleTest, WhatAKilledWriterLeftBehindIsRemovedByTheNextSave)
{
    writeBytes(folder / ".domain.plist.new", "half a fi");
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Replaced);
    const std::set<std::string> expected { ".domain.lock", "domain.plist" };
    EXPECT_EQ(folder.names(), expected);
}

TEST_F(TroubleTest, ALockThatAnotherKeepsIsWaitedForOnlySoLong)
{
    FileLock lock;
    ASSERT_FALSE(lock.acquire(folder / ".domain.lock", std::chrono::milliseconds(0)));
    PropertyListFile file = open(std::chrono::milliseconds(20));
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Failed);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("another program keeps it locked"), std::string::npos);
    lock = FileLock();
    EXPECT_EQ(file.save(), Saved::Replaced);
}

TEST_F(TroubleTest, ALinkInPlaceOfTheLockIsNotFollowed)
{
    std::filesystem::create_symlink(folder / "victim", folder / ".domain.lock");
    PropertyListFile file = open();
    file.set("volume0", 0.5);
    EXPECT_EQ(file.save(), Saved::Failed);
    EXPECT_FALSE(std::filesystem::exists(folder / "victim"));
}

} // namespace
} // namespace panotra::preferences
