/// Servers that go and come, changes faster than anybody follows, clients that fight back, and the end at any moment.
#include "tests/desktop/ServerTest.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <random>
#include <sstream>
#include <thread>

namespace panotra::testing {
namespace {

class Trouble : public ServerTest {
protected:
    /// The number after a word in a file of /proc about every thread of the program, added up.
    long sumOfThreads(const std::string& word) const
    {
        long sum = 0;
        const auto tasks = std::filesystem::path("/proc") / std::to_string(desktop.id()) / "task";
        for (const auto& task : std::filesystem::directory_iterator(tasks)) {
            std::ifstream lines(task.path() / "status");
            for (std::string line; std::getline(lines, line);) {
                if (line.starts_with(word))
                    sum += std::stol(line.substr(word.size()));
            }
        }
        return sum;
    }
    long wakeUps() const { return sumOfThreads("voluntary_ctxt_switches:"); }
};

TEST_P(Trouble, NothingWakesItWhenNothingChanges)
{
    desktop.start();
    person->setVolume("speaker", 30000);
    desktop.status();
    std::this_thread::sleep_for(std::chrono::milliseconds(1500)); // the mixer moves its sliders that long
    // The server itself may have something to tell meanwhile: that an output which nobody uses falls asleep, once.
    long wakings = -1;
    for (int window = 0; window < 3 && wakings != 0; ++window) {
        const long before = wakeUps();
        std::this_thread::sleep_for(std::chrono::seconds(5));
        wakings = wakeUps() - before;
    }
    EXPECT_EQ(wakings, 0);
}

TEST_P(Trouble, OfTwoChangesAtOnceTheLastOneStays)
{
    desktop.start();
    person->setVolume("headphone", 11111);
    for (std::uint32_t i = 0; i < 20; ++i) {
        person->setVolumeSoon("speaker", 20000 + i);
        person->setVolumeSoon("speaker", 30000 + i);
        person->finish();
        EXPECT_EQ(volumeSoon("speaker", 30000 + i), 30000 + i);
        EXPECT_EQ(rememberedSoon("Audio/Video, Speaker", 30000 + i), 30000 + i);
    }
    EXPECT_EQ(person->volume("headphone"), 11111U);
}

/// The output and its volume at once: the change is somebody's on the old one, or comes with the new one, which is put
/// right. What is heard is what is remembered, either way.
TEST_P(Trouble, WhatIsHeardIsRememberedHoweverChangesFallTogether)
{
    desktop.start();
    for (std::uint32_t i = 0; i < 20; ++i) {
        const std::string next = i % 2 == 0 ? "headphone" : "speaker";
        const std::string pair = i % 2 == 0 ? "Audio/Video, Headphone or Headset" : "Audio/Video, Speaker";
        person->setVolumeSoon(next, 15000 + 1000 * i);
        person->useOutputSoon(next);
        person->setVolumeSoon(next, 15500 + 1000 * i);
        person->finish();
        person->useOutput(next);
        const auto isRemembered = [&] {
            return desktop.status(1).facts["Output"] == next && person->volume(next) == remembered(pair, 1);
        };
        EXPECT_TRUE(soon(isRemembered, true)) << next;
    }
}

TEST_P(Trouble, AClientThatFightsBackWinsAfterOnePush)
{
    desktop.start();
    person->setVolume("headphone", 20000);
    person->useOutput("headphone");
    outputSoon("headphone");
    SoundClient fighter;
    for (std::uint32_t i = 0; i < 10; ++i) {
        const std::uint32_t its = 40000 + 100 * i;
        person->setVolume("speaker", its);
        desktop.status();
        person->useOutput("speaker");
        int insisted = 0;
        const auto insist = [&] {
            fighter.goOn(2);
            if (fighter.volume("speaker") == its)
                return;
            fighter.setVolume("speaker", its);
            ++insisted;
        };
        while (insisted == 0)
            insist();
        for (int round = 0; round < 5; ++round) {
            desktop.status();
            insist();
        }
        EXPECT_EQ(insisted, 1) << "it is not fought";
        EXPECT_EQ(volumeSoon("speaker", its), its);
        EXPECT_EQ(rememberedSoon("Audio/Video, Speaker", its), its);
        person->useOutput("headphone");
        outputSoon("headphone");
    }
}

TEST_P(Trouble, AThousandChangesASecondCostLittleAndTheLastOneWins)
{
    desktop.start();
    desktop.status();
    const long memoryBefore = sumOfThreads("VmRSS:");
    const long wakeUpsBefore = wakeUps();
    // Ten at a time: that is as many, and costs the server a tenth.
    constexpr int changesAtOnce = 10;
    constexpr auto interval = std::chrono::milliseconds(changesAtOnce);
    const int bursts = 100 * rounds("DESKTOP_STORM_SECONDS", 10);
    std::mt19937 dice(7);
    std::uint32_t last = 0;
    auto next = std::chrono::steady_clock::now();
    for (int burst = 0; burst < bursts; ++burst) {
        for (int change = 0; change < changesAtOnce; ++change) {
            last = std::uniform_int_distribution<std::uint32_t>(1, fullScale)(dice);
            person->setVolumeSoon("speaker", last);
        }
        person->goOn(0);
        next += interval;
        std::this_thread::sleep_until(next);
    }
    person->finish();
    EXPECT_EQ(rememberedSoon("Audio/Video, Speaker", last), last);
    EXPECT_EQ(person->volume("speaker"), last);
    const long growth = (sumOfThreads("VmRSS:") - memoryBefore) / 3; // each of its threads tells it
    EXPECT_LT(growth, 2048) << "kilobytes";
    // The library wakes for each change that it is told of. What comes after that does not follow each of them.
    constexpr long wakeUpsAChange = 3;
    EXPECT_LT(wakeUps() - wakeUpsBefore, wakeUpsAChange * changesAtOnce * bursts);
}

TEST_P(Trouble, WhateverWasRememberedSurvivesADeathAtAnyMoment)
{
    desktop.start();
    person->setVolume("headphone", 12345);
    person->useOutput("headphone");
    rememberedSoon("Audio/Video, Headphone or Headset", 12345);
    person->useOutput("speaker");
    outputSoon("speaker");
    std::mt19937 dice(11);
    std::uint32_t volume = 30000;
    person->setVolume("speaker", volume);
    rememberedSoon("Audio/Video, Speaker", volume);
    for (int i = 0; i < rounds("DESKTOP_DEATHS", 15); ++i) {
        const std::uint32_t before = volume;
        for (int change = 0; change < 5; ++change)
            person->setVolumeSoon("speaker", ++volume);
        std::this_thread::sleep_for(std::chrono::microseconds(std::uniform_int_distribution<int>(0, 6000)(dice)));
        desktop.end(SIGKILL);
        person->finish();
        const std::uint32_t heard = person->volume("speaker");
        EXPECT_EQ(heard, volume);
        desktop.start();
        EXPECT_EQ(remembered("Audio/Video, Headphone or Headset"), 12345U);
        const std::uint32_t speaker = remembered("Audio/Video, Speaker");
        EXPECT_TRUE(speaker >= before && speaker <= volume) << speaker;
        volume = volumeSoon("speaker", speaker);
        EXPECT_EQ(volume, speaker);
    }
    EXPECT_EQ(desktop.complaints(), "");
}

TEST_P(Trouble, AServerThatDiesAndComesAgainIsPutRight)
{
    desktop.start();
    person->setVolume("speaker", 22222);
    person->setVolume("headphone", 11111);
    rememberedSoon("Audio/Video, Speaker", 22222);
    person->useOutput("headphone");
    outputSoon("headphone");
    person.reset();
    server.kill();
    while (desktop.status(1).facts["Server"] != "none")
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_NE(desktop.complaints().find("the sound server is gone"), std::string::npos);
    server.start();
    person = std::make_unique<SoundClient>();
    while (desktop.status(1).facts["Output"] != "speaker")
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    // It came up at full volume, and whoever started it set it to that, too: what is heard is what is remembered.
    const auto isRemembered = [this] {
        return person->volume("speaker") == remembered("Audio/Video, Speaker");
    };
    EXPECT_TRUE(soon(isRemembered, true));
    person->setVolume("speaker", 23456);
    rememberedSoon("Audio/Video, Speaker", 23456);
    person->useOutput("headphone");
    outputSoon("headphone");
    person->useOutput("speaker");
    EXPECT_EQ(volumeSoon("speaker", 23456U), 23456U);
}

TEST_P(Trouble, WithoutAServerItSaysSoInOneLineAndWaits)
{
    person.reset();
    server.kill();
    ChildProcess process;
    const auto complaints = server.folder() / "waiting";
    process.start({ PANOTRA_PROGRAM, "desktop", "--headless", "--prefs", desktop.preferences().string() }, complaints);
    while (desktop.status(1).facts["Route"].empty())
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    server.start();
    person = std::make_unique<SoundClient>();
    while (desktop.status(1).facts["Server"] == "none")
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(process.end(SIGTERM), 0);
    std::ostringstream text;
    text << std::ifstream(complaints).rdbuf();
    EXPECT_EQ(text.str(), "panotra: no sound server can be reached: Connection refused; waiting for it\n");
}

INSTANTIATE_TEST_SUITE_P(Servers, Trouble, ::testing::Values(ServerKind::PulseAudio, ServerKind::PipeWire),
    [](const auto& each) { return each.param == ServerKind::PulseAudio ? "PulseAudio" : "PipeWire"; });

} // namespace
} // namespace panotra::testing
