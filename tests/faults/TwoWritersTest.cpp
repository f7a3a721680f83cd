/// Two processes that save into one file, and are killed at any moment: what a save that returned has written stays.
#include "simulator/preferences/PropertyListFile.h"
#include "tests/faults/Rounds.h"
#include "tests/unit/preferences/ChildProcess.h"
#include "tests/unit/preferences/TemporaryFolder.h"

#include <array>
#include <atomic>
#include <chrono>
#include <random>
#include <thread>

#include <sys/mman.h>

namespace panotra::preferences {
namespace {

using testing::ChildProcess;

constexpr std::size_t writers = 2;

/// What each writer knows to be saved; the processes share it.
class Acknowledgements {
public:
    Acknowledgements()
        : m_values(static_cast<Values*>(
            ::mmap(nullptr, sizeof(Values), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {
    }
    Acknowledgements(const Acknowledgements&) = delete;
    Acknowledgements& operator=(const Acknowledgements&) = delete;
    ~Acknowledgements() { ::munmap(m_values, sizeof(Values)); }

    std::atomic<int>& operator[](std::size_t writer) const { return (*m_values)[writer]; }

private:
    using Values = std::array<std::atomic<int>, writers>;
    Values* m_values;
};

std::string keyOf(std::size_t writer)
{
    return "writer" + std::to_string(writer);
}

TEST(TwoWriters, LoseNothingWhenTheyAreKilled)
{
    const testing::TemporaryFolder folder;
    const auto path = folder / "domain.plist";
    testing::writeBytes(path, testing::xmlWith("<key>when</key><date>2020-01-02T03:04:05Z</date>"));
    const Acknowledgements saved;
    constexpr int longestLifeMicroseconds = 12000; // some saves long
    std::mt19937 random(14);
    std::uniform_int_distribution<int> life(0, longestLifeMicroseconds);

    const auto saveAgainAndAgain = [&](std::size_t writer) {
        for (int value = saved[writer] + 1;; ++value) {
            PropertyListFile file(path, [](const std::string&) { std::abort(); });
            file.set(keyOf(writer), value);
            if (file.save() != Saved::Replaced)
                std::abort();
            saved[writer] = value;
        }
    };
    for (int round = 0; round < testing::rounds() || saved[0] + saved[1] == 0; ++round) {
        {
            ChildProcess one([&] { saveAgainAndAgain(0); });
            ChildProcess other([&] { saveAgainAndAgain(1); });
            std::this_thread::sleep_for(std::chrono::microseconds(life(random)));
            // The one that is left goes on as if nothing had happened, and is killed in its turn.
            ChildProcess& first = random() % 2 == 0 ? one : other;
            first.kill();
            std::this_thread::sleep_for(std::chrono::microseconds(life(random) / 4));
            one.kill();
            other.kill();
            EXPECT_TRUE(one.wasKilled()) << "round " << round;
            EXPECT_TRUE(other.wasKilled()) << "round " << round;
        }
        PropertyListFile file(path, [](const std::string& line) { ADD_FAILURE() << line; });
        ASSERT_TRUE(file.read(Damaged::Leave)) << "round " << round;
        EXPECT_NE(file.settings().find("when"), nullptr);
        for (std::size_t writer = 0; writer < writers; ++writer) {
            const Json* found = file.settings().find(keyOf(writer));
            const int value = found == nullptr ? 0 : found->get<int>();
            // Killed before it could say so, it may have saved one more.
            EXPECT_GE(value, saved[writer]) << "round " << round;
            EXPECT_LE(value, saved[writer] + 1) << "round " << round;
            saved[writer] = value;
        }
        std::set<std::string> names = folder.names();
        names.erase(".domain.plist.new");
        const std::set<std::string> expected { ".domain.lock", "domain.plist" };
        EXPECT_EQ(names, expected);
        ASSERT_FALSE(::testing::Test::HasFailure());
    }
}

} // namespace
} // namespace panotra::preferences
