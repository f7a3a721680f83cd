/// Writers that are killed in the middle of a save: the file is the old one or the new one, whole.
#include "simulator/preferences/PropertyListFile.h"
#include "tests/faults/Rounds.h"
#include "tests/unit/preferences/ChildProcess.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace panotra::preferences {
namespace {

using testing::ChildProcess;

class InterruptedSaveTest : public ::testing::Test {
protected:
    InterruptedSaveTest()
    {
        testing::writeBytes(
            path, testing::xmlWith("<key>when</key><date>2020-01-02T03:04:05Z</date><key>raw</key><data>AAEC</data>"));
        saveLevels(0);
    }

    /// Twelve keys of the same value: a file in which they differ is neither an old one nor a new one.
    void saveLevels(int value) const
    {
        PropertyListFile file(path, [](const std::string& line) { ADD_FAILURE() << line; });
        for (int slot = 0; slot < 12; ++slot)
            file.set("volume" + std::to_string(slot), value);
        EXPECT_EQ(file.save(), Saved::Replaced);
    }

    /// The value of all twelve, after a look at everything that must have stayed.
    int savedLevels() const
    {
        PropertyListFile file(path, [](const std::string& line) { ADD_FAILURE() << line; });
        EXPECT_TRUE(file.read(Damaged::Leave));
        const Json* first = file.settings().find("volume0");
        if (first == nullptr) {
            ADD_FAILURE() << "no levels";
            return -1;
        }
        for (int slot = 1; slot < 12; ++slot) {
            const Json* level = file.settings().find("volume" + std::to_string(slot));
            EXPECT_TRUE(level != nullptr && *level == *first) << slot;
        }
        const std::string bytes = testing::readBytes(path);
        EXPECT_NE(bytes.find("<date>2020-01-02T03:04:05Z</date>"), std::string::npos);
        EXPECT_NE(bytes.find("AAEC"), std::string::npos);
        return first->get<int>();
    }

    void expectNoLitter() const
    {
        std::set<std::string> names = folder.names();
        // At most one unfinished file, and it is the next save's to remove.
        names.erase(".domain.plist.new");
        const std::set<std::string> expected { ".domain.lock", "domain.plist" };
        EXPECT_EQ(names, expected);
    }

    testing::TemporaryFolder folder;
    std::filesystem::path path = folder / "domain.plist";
};

TEST_F(InterruptedSaveTest, AtAnyMomentLeavesTheOldFileOrTheNewOne)
{
    constexpr int longestLifeMicroseconds = 12000; // a save takes some 100 to 10000, by the disk
    std::mt19937 random(12);
    std::uniform_int_distribution<int> life(0, longestLifeMicroseconds);
    int saved = 0;
    for (int time = 0; time < testing::rounds() || saved == 0; ++time) {
        ChildProcess writer([this, saved] {
            for (int value = saved + 1; !HasFailure(); ++value)
                saveLevels(value);
            std::abort(); // what fails here is known to this process alone
        });
        std::this_thread::sleep_for(std::chrono::microseconds(life(random)));
        writer.kill();
        EXPECT_TRUE(writer.wasKilled());
        const int found = savedLevels();
        EXPECT_GE(found, saved);
        saved = found;
        expectNoLitter();
        ASSERT_FALSE(HasFailure());
    }
    saveLevels(saved + 1);
    EXPECT_FALSE(std::filesystem::exists(folder / ".domain.plist.new"));
}

/// Lets a process that asked to be traced go on to the next time it enters or leaves the kernel.
/// Answers false once it has ended, with that `status`.
bool stepToSystemCall(pid_t process, int& status)
{
    ::ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
    ::waitpid(process, &status, 0);
    return WIFSTOPPED(status);
}

TEST_F(InterruptedSaveTest, BeforeAndAfterEverySystemCallLeavesTheOldFileOrTheNewOne)
{
    int saved = 0;
    int oldFiles = 0;
    int newFiles = 0;
    for (int stops = 1;; ++stops) {
        ChildProcess writer([this, saved] {
            ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
            ::raise(SIGSTOP);
            saveLevels(saved + 1);
            ::_exit(HasFailure() ? 1 : 0);
        });
        int status = 0;
        ::waitpid(writer.id(), &status, 0);
        ASSERT_TRUE(WIFSTOPPED(status));
        bool isAlive = true;
        for (int stop = 0; isAlive && stop < stops; ++stop)
            isAlive = stepToSystemCall(writer.id(), status);
        if (!isAlive) {
            EXPECT_EQ(status, 0) << "the save that nobody interrupted failed";
            break;
        }
        writer.kill();
        EXPECT_TRUE(writer.wasKilled());
        const int found = savedLevels();
        ASSERT_TRUE(found == saved || found == saved + 1) << "after " << stops << " stops";
        (found == saved ? oldFiles : newFiles) += 1;
        saved = found;
        expectNoLitter();
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(oldFiles, 20);
    EXPECT_GT(newFiles, 4);
    EXPECT_EQ(savedLevels(), saved + 1);
    EXPECT_FALSE(std::filesystem::exists(folder / ".domain.plist.new"));
}

} // namespace
} // namespace panotra::preferences
