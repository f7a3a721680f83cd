/// One mixer a session, and what a second start gets from the first.
#include "simulator/desktop/DesktopRequests.h"

#include "simulator/desktop/OneInstance.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <string>

namespace panotra::sim {
namespace {

/// A session of its own.
class DesktopRequestsTest : public ::testing::Test {
protected:
    DesktopRequestsTest()
    {
        std::string name = (std::filesystem::temp_directory_path() / "session-XXXXXX").string();
        folder = ::mkdtemp(name.data());
        const char* const before = std::getenv("XDG_RUNTIME_DIR");
        sessionBefore = before == nullptr ? std::string() : before;
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    }
    ~DesktopRequestsTest() override
    {
        ::setenv("XDG_RUNTIME_DIR", sessionBefore.c_str(), 1);
        std::filesystem::remove_all(folder);
    }

    /// What somebody gets who asks, while the one that runs does its work.
    std::string ask(DesktopRequests& requests, const std::string& request)
    {
        auto answer = std::async(std::launch::async, [&request] {
            std::string reason;
            return askRunningDesktop(request, reason).value_or("failure: " + reason);
        });
        while (answer.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
            requests.serve();
        return answer.get();
    }

    std::filesystem::path folder;
    std::string sessionBefore;
    std::string failure;
};

TEST_F(DesktopRequestsTest, ThereIsOneASessionAndItsPlaceIsFreeAfterwards)
{
    {
        OneInstance first;
        OneInstance second;
        EXPECT_EQ(first.begin(failure), OneInstance::Begun::First) << failure;
        EXPECT_EQ(second.begin(failure), OneInstance::Begun::Second);
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "panotra-desktop.socket"));
    OneInstance third;
    EXPECT_EQ(third.begin(failure), OneInstance::Begun::First) << failure;
}

TEST_F(DesktopRequestsTest, WhatAKilledOneLeftBehindIsInNobodysWay)
{
    std::ofstream(folder / "panotra-desktop.socket") << "anything";
    std::ofstream(folder / "panotra-desktop.lock") << "anything";
    OneInstance instance;
    EXPECT_EQ(instance.begin(failure), OneInstance::Begun::First) << failure;
}

TEST_F(DesktopRequestsTest, WithoutAFolderOfTheSessionThereIsNone)
{
    ::setenv("XDG_RUNTIME_DIR", "", 1);
    EXPECT_EQ(OneInstance().begin(failure), OneInstance::Begun::Failed);
    EXPECT_EQ(failure, "XDG_RUNTIME_DIR names no folder of this session");
    ::setenv("XDG_RUNTIME_DIR", ("/" + std::string(200, 'x')).c_str(), 1);
    EXPECT_EQ(OneInstance().begin(failure), OneInstance::Begun::Failed);
    EXPECT_EQ(failure, "XDG_RUNTIME_DIR is longer than the name of a socket may be");
    ::setenv("XDG_RUNTIME_DIR", "/no such folder", 1);
    EXPECT_EQ(OneInstance().begin(failure), OneInstance::Begun::Failed);
    EXPECT_EQ(failure, "/no such folder/panotra-desktop.lock: No such file or directory");
}

TEST_F(DesktopRequestsTest, WhereNoneRunsTheRequestSaysSo)
{
    EXPECT_EQ(askRunningDesktop(request::status, failure), std::nullopt);
    EXPECT_EQ(failure, "panotra desktop does not run");
}

TEST_F(DesktopRequestsTest, ARequestIsAnsweredAsSoonAsThereIsAnAnswer)
{
    OneInstance instance;
    ASSERT_EQ(instance.begin(failure), OneInstance::Begun::First);
    int timesAsked = 0;
    DesktopRequests requests(instance.descriptor(), [&](const std::string& request) -> DesktopRequests::Answer {
        if (request != "status")
            return {};
        return [&timesAsked] {
            return ++timesAsked < 3 ? std::nullopt : std::optional<std::string>("all is well\n");
        };
    });
    EXPECT_EQ(ask(requests, "status"), "all is well\n");
    EXPECT_EQ(timesAsked, 3);
    EXPECT_EQ(ask(requests, "nonsense"), "");
    EXPECT_EQ(ask(requests, std::string(1000, 'x')).substr(0, 7), "failure");
    EXPECT_EQ(ask(requests, "status"), "all is well\n");
}

} // namespace
} // namespace panotra::sim
