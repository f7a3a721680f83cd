/// A thread that waits for pipes.
#include "simulator/desktop/DescriptorWatch.h"

#include <gtest/gtest.h>

#include <array>
#include <semaphore>

namespace panotra::sim {
namespace {

struct Pipe {
    Pipe() { EXPECT_EQ(::pipe(ends.data()), 0); }
    ~Pipe()
    {
        ::close(ends[0]);
        ::close(ends[1]);
    }
    pollfd readable() const { return { ends[0], POLLIN, 0 }; }
    void write() const { EXPECT_EQ(::write(ends[1], "x", 1), 1); }
    void read() const
    {
        char one = 0;
        EXPECT_EQ(::read(ends[0], &one, 1), 1);
    }

    std::array<int, 2> ends {};
};

TEST(DescriptorWatch, WakesOnceForEachTimeThatItIsAskedToWait)
{
    const Pipe first;
    const Pipe second;
    std::counting_semaphore<> woken(0);
    DescriptorWatch watch([&woken] { woken.release(); });
    ASSERT_TRUE(watch.works());
    watch.waitFor({ first.readable() });
    first.write();
    woken.acquire();
    // What is still there to be read wakes it again, once it is asked for.
    watch.waitFor({ first.readable() });
    woken.acquire();
    first.read();
    watch.waitFor({ first.readable() });
    watch.waitFor({ first.readable(), second.readable() });
    second.write();
    woken.acquire();
    EXPECT_FALSE(woken.try_acquire());
}

TEST(DescriptorWatch, EndsWhileItWaits)
{
    const Pipe pipe;
    DescriptorWatch watch([] { FAIL() << "nothing has happened"; });
    watch.waitFor({ pipe.readable() });
}

} // namespace
} // namespace panotra::sim
