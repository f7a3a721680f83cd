/// The watch over a folder. It waits for real processes' writes, so this test waits, too.
#include "simulator/window/PreferenceWatch.h"
#include "tests/unit/window/SessionFixture.h"

#include <condition_variable>
#include <mutex>

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

class Told {
public:
    std::function<void()> teller()
    {
        return [this] {
            const std::lock_guard lock(m_mutex);
            ++m_count;
            m_counted.notify_one();
        };
    }
    /// Waits until it was told more often than before. Answers whether it was, in good time.
    bool wasTold()
    {
        std::unique_lock lock(m_mutex);
        const bool was = m_counted.wait_for(lock, 20s, [this] { return m_count > m_seen; });
        m_seen = m_count;
        return was;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_counted;
    int m_count = 0;
    int m_seen = 0;
};

class FolderWatchTest : public testing::SessionFixture {
protected:
    Told changed;
    Told gone;
};

TEST_F(FolderWatchTest, AWriteAndARemovalAreTold)
{
    std::string failure;
    const auto watch = PreferenceWatch::make(folder.path(), changed.teller(), gone.teller(), failure);
    ASSERT_NE(watch, nullptr) << failure;
    writeElsewhere("key", 1);
    EXPECT_TRUE(changed.wasTold());
    std::filesystem::remove(folder / "net.qorvath.panotra.plist");
    EXPECT_TRUE(changed.wasTold());
}

TEST_F(FolderWatchTest, AFolderThatGoesIsTold)
{
    for (const auto& makeGo : std::vector<std::function<void(const std::filesystem::path&)>> {
             [](const auto& path) { std::filesystem::remove_all(path); },
             [this](const auto& path) {
                 std::filesystem::rename(path, folder / "elsewhere");
             } }) {
        const std::filesystem::path path = folder / "watched";
        std::filesystem::create_directory(path);
        std::string failure;
        const auto watch = PreferenceWatch::make(path, changed.teller(), gone.teller(), failure);
        ASSERT_NE(watch, nullptr) << failure;
        makeGo(path);
        EXPECT_TRUE(gone.wasTold());
    }
}

TEST_F(FolderWatchTest, AFolderThatIsNotThereIsToldAtOnce)
{
    std::string failure;
    EXPECT_EQ(PreferenceWatch::make(folder / "unborn", changed.teller(), gone.teller(), failure), nullptr);
    EXPECT_EQ(failure, "No such file or directory");
}

} // namespace
} // namespace panotra::sim
