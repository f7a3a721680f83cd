/// Tests among real sound servers. The server stays for all tests; each test has settings of its own.
#pragma once

#include "tests/desktop/DesktopProcess.h"
#include "tests/desktop/ServerProcess.h"
#include "tests/desktop/SoundClient.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

namespace panotra::testing {

class ServerTest : public ::testing::TestWithParam<ServerKind> {
protected:
    ServerTest();
    ~ServerTest() override;

    /// The words of the status for a pair, by rows of our own; empty where no slot knows it.
    static std::string pairOf(const std::string& category, const KnownOutputKind& output);
    static const KnownOutputKind& outputNamed(const std::string& name);

    /// How often a test of chance is repeated, unless the environment says otherwise.
    static int rounds(const char* variable, int usually);
    /// Each client of PipeWire's service sees its changes at a time of its own, so what is expected may take a moment.
    /// Answers what `get` answers at last: what is expected as soon as it is that, something else after a long time.
    template <typename Get, typename Expected> Expected soon(Get get, const Expected& expected)
    {
        for (int i = 0; i < 500 && get() != expected; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return get();
    }
    std::string categorySoon(const std::string& expected);
    std::string outputSoon(const std::string& expected);
    std::uint32_t volumeSoon(const std::string& output, std::uint32_t expected);
    /// Of a pair that is remembered; 0 for one that is not.
    std::uint32_t rememberedSoon(const std::string& pair, std::uint32_t expected);
    std::uint32_t remembered(const std::string& pair, int questions = 3);

    ServerProcess& server;
    DesktopProcess desktop;
    std::unique_ptr<SoundClient> person = std::make_unique<SoundClient>();
};

} // namespace panotra::testing
