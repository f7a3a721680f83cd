/// The seam over the Objective-C runtime keeps what the seam promises of null, by the tables that every backend runs.
#include "tests/hosts/Crossings.h"
#include "tests/hosts/HostTest.h"

#include <dlfcn.h>

namespace panotra::testing {

namespace {

using Tell = void (*)(const char* operation, bool answersNothing);
using RunNullOperations = void (*)(Tell tell);

int operationCount = 0;

/// What was asked of an object of the host; looking at a class or a name is nothing that anybody would see.
std::vector<std::string> messagesSent()
{
    std::vector<std::string> messages;
    for (const std::string& crossing : hosts::crossings()) {
        if (crossing.starts_with('-') || crossing.starts_with('+'))
            messages.push_back(crossing);
    }
    return messages;
}

void check(const char* operation, bool answersNothing)
{
    ++operationCount;
    EXPECT_TRUE(answersNothing) << operation;
    EXPECT_EQ(messagesSent(), std::vector<std::string> {}) << operation;
    hosts::forgetCrossings();
}

} // namespace

TEST_F(HostTest, EveryOperationOnNullAnswersNothingAndAsksNothingOfTheHost)
{
    void* const image = dlopen(PANOTRA_NULL_OPERATIONS, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(image, nullptr) << dlerror();
    const auto run = reinterpret_cast<RunNullOperations>(dlsym(image, "panotraRunNullOperations"));
    ASSERT_NE(run, nullptr);
    hosts::forgetCrossings();
    hosts::recordCrossings(true);
    run(check);
    hosts::recordCrossings(false);
    EXPECT_GT(operationCount, 100);
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
}

} // namespace panotra::testing
