/// Several processes that work on one property list at once.
#include "simulator/preferences/FileLock.h"
#include "simulator/preferences/PropertyListFile.h"
#include "tests/unit/preferences/ChildProcess.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <array>
#include <memory>
#include <thread>

#include <unistd.h>

namespace panotra::preferences {
namespace {

using testing::ChildProcess;
using testing::writeBytes;
using testing::xmlWith;

TEST(Processes, LoseNothingOfEachOthersKeys)
{
    constexpr int times = 100;
    const testing::TemporaryFolder folder;
    const auto path = folder / "domain.plist";
    writeBytes(path, xmlWith("<key>unknown</key><date>2020-01-02T03:04:05Z</date>"));
    const std::array<std::string, 2> keys { "one", "other" };
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (const std::string& key : keys) {
        const std::vector<std::string> command { PANOTRA_PREFERENCE_WRITER, path, key, std::to_string(times) };
        writers.push_back(std::make_unique<ChildProcess>(command));
    }
    for (const auto& writer : writers)
        EXPECT_EQ(writer->wait(), 0);

    PropertyListFile file(path, [](const std::string& line) { ADD_FAILURE() << line; });
    ASSERT_TRUE(file.read(Damaged::Leave));
    for (const std::string& key : keys) {
        for (int time = 1; time <= times; ++time) {
            const Json* value = file.settings().find(key + std::to_string(time));
            ASSERT_NE(value, nullptr) << key << time;
            EXPECT_EQ(*value, time);
        }
    }
    EXPECT_NE(file.settings().find("unknown"), nullptr);
    const std::set<std::string> expected { ".domain.lock", "domain.plist" };
    EXPECT_EQ(folder.names(), expected);
}

TEST(Processes, ALockGoesWithTheProcessThatHeldIt)
{
    using namespace std::chrono_literals;
    const testing::TemporaryFolder folder;
    const auto path = folder / ".domain.lock";
    std::array<int, 2> pipe {};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    ChildProcess holder([&] {
        FileLock lock;
        if (lock.acquire(path, 0ms) || ::write(pipe[1], "x", 1) != 1)
            return;
        ::pause();
    });
    char locked = 0;
    ASSERT_EQ(::read(pipe[0], &locked, 1), 1);
    ::close(pipe[0]);
    ::close(pipe[1]);

    FileLock lock;
    EXPECT_EQ(lock.acquire(path, 0ms), "another program keeps it locked");
    holder.kill();
    EXPECT_EQ(holder.wait(), -1);
    EXPECT_FALSE(lock.acquire(path, 0ms));
}

TEST(Processes, ASaveWaitsForTheOneThatIsGoingOn)
{
    using namespace std::chrono_literals;
    const testing::TemporaryFolder folder;
    const auto path = folder / "domain.plist";
    FileLock lock;
    ASSERT_FALSE(lock.acquire(folder / ".domain.lock", 0ms));
    ChildProcess writer(std::vector<std::string> { PANOTRA_PREFERENCE_WRITER, path, "key", "1" });
    // Time enough for a writer that did not wait to be done.
    std::this_thread::sleep_for(100ms);
    EXPECT_FALSE(std::filesystem::exists(path));
    lock = FileLock();
    EXPECT_EQ(writer.wait(), 0);
    EXPECT_TRUE(std::filesystem::exists(path));
}

} // namespace
} // namespace panotra::preferences
