/// Files read and replaced whole.
#include "simulator/preferences/FileReplacement.h"

#include "tests/unit/preferences/TemporaryFolder.h"

#include <csignal>
#include <functional>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>

namespace panotra::preferences {
namespace {

using testing::readBytes;
using testing::writeBytes;

TEST(FileReplacement, ReadsNoMoreThanOneByteBeyondTheLimit)
{
    const testing::TemporaryFolder folder;
    writeBytes(folder / "file", std::string(100000, 'x'));
    EXPECT_EQ(readFile(folder / "file", 50000).bytes->size(), 50001u);
    EXPECT_EQ(readFile(folder / "file", 100000).bytes->size(), 100000u);
    EXPECT_EQ(readFile(folder / "file", 0).bytes->size(), 1u);
}

TEST(FileReplacement, AFileThatIsNotThereIsNoFailure)
{
    const testing::TemporaryFolder folder;
    const FileContents contents = readFile(folder / "absent", 10);
    EXPECT_FALSE(contents.bytes);
    EXPECT_FALSE(contents.failure);
}

TEST(FileReplacement, ReadersOfTheOldFileGoOnReadingIt)
{
    const testing::TemporaryFolder folder;
    writeBytes(folder / "file", "old");
    std::ifstream reader(folder / "file");
    EXPECT_FALSE(replaceFile(folder / "file", "new").failure);
    std::string seen;
    reader >> seen;
    EXPECT_EQ(seen, "old");
    EXPECT_EQ(readBytes(folder / "file"), "new");
}

TEST(FileReplacement, TheOwnerOfAFileStaysWhereTheUserMayGiveItAway)
{
    const testing::TemporaryFolder folder;
    writeBytes(folder / "file", "old");
    const uid_t owner = ::geteuid() == 0 ? 65534 : ::geteuid();
    ASSERT_EQ(::chown((folder / "file").c_str(), owner, static_cast<gid_t>(-1)), 0);
    EXPECT_FALSE(replaceFile(folder / "file", "new").failure);
    struct stat status { };
    ASSERT_EQ(::stat((folder / "file").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, owner);
}

TEST(FileReplacement, FoldersAreMadeDownToTheLast)
{
    const testing::TemporaryFolder folder;
    EXPECT_FALSE(makeFolders(folder / "a/b/c"));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b/c"));
    EXPECT_FALSE(makeFolders(folder / "a/b/c"));
    EXPECT_FALSE(makeFolders("/"));
    EXPECT_FALSE(makeFolders(""));
    writeBytes(folder / "file", "");
    EXPECT_EQ(makeFolders(folder / "file/below"), "Not a directory");
}

TEST(FileReplacement, AFolderIsNotReplacedByAFile)
{
    const testing::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "file");
    EXPECT_EQ(replaceFile(folder / "file", "new").failure, "Is a directory");
    EXPECT_EQ(folder.names().size(), 1u);
}

TEST(FileReplacement, AFolderThatCannotBeReadLeavesADoubtAndTheNewFile)
{
    const testing::TemporaryFolder folder;
    ::chmod(folder.path().c_str(), 0333);
    {
        const testing::AsOrdinaryUser user;
        const Replacement replacement = replaceFile(folder / "file", "new");
        EXPECT_EQ(replacement.failure, std::nullopt);
        EXPECT_EQ(replacement.doubt, "Permission denied");
    }
    ::chmod(folder.path().c_str(), 0755);
    EXPECT_EQ(readBytes(folder / "file"), "new");
}

TEST(FileReplacement, AFileWithoutFolderIsInTheCurrentOne)
{
    const testing::TemporaryFolder folder;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_FALSE(replaceFile("file", "bytes").failure);
    std::filesystem::current_path(before);
    EXPECT_EQ(readBytes(folder / "file"), "bytes");
}

TEST(FileReplacement, WhatIsSetAsideReplacesNothing)
{
    const testing::TemporaryFolder folder;
    writeBytes(folder / "file", "damaged");
    writeBytes(folder / "file.unreadable-1", "earlier");
    std::filesystem::path name;
    EXPECT_FALSE(setAside(folder / "file", name));
    EXPECT_EQ(name, folder / "file.unreadable-2");
    EXPECT_EQ(readBytes(folder / "file.unreadable-1"), "earlier");
    EXPECT_EQ(readBytes(folder / "file.unreadable-2"), "damaged");
}

TEST(FileReplacement, AWriteBeyondTheLimitLeavesNoSignalBehind)
{
    const testing::TemporaryFolder folder;
    rlimit previous {};
    ::getrlimit(RLIMIT_FSIZE, &previous);
    const rlimit small { 4, previous.rlim_max };
    ::setrlimit(RLIMIT_FSIZE, &small);
    const Failure failure = replaceFile(folder / "file", "more than four bytes").failure;
    ::setrlimit(RLIMIT_FSIZE, &previous);
    EXPECT_EQ(failure, "File too large");
    EXPECT_TRUE(folder.names().empty());

    sigset_t pending, blocked;
    ::sigpending(&pending);
    EXPECT_EQ(sigismember(&pending, SIGXFSZ), 0);
    ::sigprocmask(SIG_BLOCK, nullptr, &blocked);
    EXPECT_EQ(sigismember(&blocked, SIGXFSZ), 0);
}

/// While it lives, a signal comes every 50 microseconds and interrupts whatever the kernel is doing.
class RainOfSignals {
public:
    RainOfSignals()
    {
        struct sigaction action { };
        action.sa_handler = [](int) {
            s_count = s_count + 1;
        };
        ::sigaction(SIGALRM, &action, &m_previous);
        constexpr timeval interval { 0, 50 };
        const itimerval timer { interval, interval };
        ::setitimer(ITIMER_REAL, &timer, nullptr);
    }
    RainOfSignals(const RainOfSignals&) = delete;
    RainOfSignals& operator=(const RainOfSignals&) = delete;
    ~RainOfSignals()
    {
        const itimerval none {};
        ::setitimer(ITIMER_REAL, &none, nullptr);
        ::sigaction(SIGALRM, &m_previous, nullptr);
    }
    static int count() { return s_count; }

private:
    static inline volatile std::sig_atomic_t s_count = 0;
    struct sigaction m_previous { };
};

TEST(FileReplacement, SignalsDoNotDisturbIt)
{
    const testing::TemporaryFolder folder;
    const RainOfSignals rain;
    for (int i = 0; i < 20 || RainOfSignals::count() == 0; ++i) {
        const std::string bytes(1u << 20, static_cast<char>('a' + i % 26));
        ASSERT_FALSE(replaceFile(folder / "file", bytes).failure);
        ASSERT_EQ(readFile(folder / "file", bytes.size()).bytes, bytes);
    }
}

} // namespace
} // namespace panotra::preferences
