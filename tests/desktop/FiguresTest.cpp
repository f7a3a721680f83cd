/// How long it takes from the server's word of another output to its word of the volume that was put back, beside a
/// loop of the shell that does so little as to set one number. DESKTOP_ROUNDS says how often; nothing is asked of the
/// times.
#include "tests/desktop/ServerTest.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <vector>

namespace panotra::testing {
namespace {

class Figures : public ServerTest {
protected:
    using Clock = std::chrono::steady_clock;

    /// Goes to the speaker `count` times; whoever listens sets it to `volume`. Answers how long each took.
    std::vector<double> measure(int count, std::uint32_t volume)
    {
        std::vector<double> microseconds;
        SoundClient witness;
        Clock::time_point heard {};
        // The first that is heard after the output was chosen.
        witness.changed = [&heard](unsigned) {
            if (heard == Clock::time_point {})
                heard = Clock::now();
        };
        witness.listen();
        for (int i = 0; i < count; ++i) {
            person->useOutput("headphone");
            letItFollow();
            person->setVolume("speaker", volume + 5000);
            letItFollow();
            witness.goOn(0);
            heard = {};
            person->useOutputSoon("speaker");
            const auto begin = Clock::now();
            // A stream of questions, each answered in some ten microseconds, sees the volume as soon as it is there.
            while (witness.volume("speaker") != volume) {
                person->goOn(0);
                if (Clock::now() - begin > std::chrono::seconds(20)) {
                    ADD_FAILURE() << "nobody put it back";
                    person->finish();
                    return microseconds;
                }
            }
            EXPECT_NE(heard, Clock::time_point {});
            microseconds.push_back(std::chrono::duration<double, std::micro>(Clock::now() - heard).count());
            person->finish();
        }
        return microseconds;
    }

    /// A change of the volume that comes with one of the output counts as made before it.
    void letItFollow()
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        if (desktop.id() > 0)
            outputSoon("headphone");
    }

    static void tell(const char* who, std::vector<double> microseconds)
    {
        std::ranges::sort(microseconds);
        if (microseconds.empty())
            return;
        const auto quantile = [&microseconds](double part) {
            return microseconds[static_cast<std::size_t>(part * static_cast<double>(microseconds.size() - 1))];
        };
        std::printf("%s: %.0f us (median), %.0f us (99th percentile), %zu times\n", who, quantile(0.5), quantile(0.99),
            microseconds.size());
    }
};

TEST_P(Figures, FromTheServersWordToItsConfirmation)
{
    const int count = rounds("DESKTOP_ROUNDS", 3);
    desktop.start();
    person->setVolume("speaker", 20000);
    EXPECT_EQ(rememberedSoon("Audio/Video, Speaker", 20000), 20000U);
    person->useOutput("headphone");
    EXPECT_EQ(outputSoon("headphone"), "headphone");
    tell("panotra desktop", measure(count, 20000));
    std::ifstream lines("/proc/" + std::to_string(desktop.id()) + "/status");
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("VmHWM") || line.starts_with("RssAnon"))
            std::printf("%s\n", line.c_str());
    }
    EXPECT_EQ(desktop.end(SIGTERM), 0);

    const auto script = server.folder() / "loop.sh";
    std::ofstream(script) << "pactl subscribe | while read -r line; do case $line in *\\'change\\'*server*) "
                             "pactl set-sink-volume speaker 20000 ;; esac; done\n";
    ChildProcess loop;
    loop.start({ "sh", script.string() }, server.folder() / "loop.log");
    // It has begun once it does something.
    person->setVolume("speaker", 30000);
    const auto obeys = [this] {
        person->useOutput("headphone");
        person->useOutput("speaker");
        return person->volume("speaker") == 20000;
    };
    ASSERT_TRUE(soon(obeys, true));
    tell("a loop of the shell", measure(count, 20000));
}

INSTANTIATE_TEST_SUITE_P(Servers, Figures, ::testing::Values(ServerKind::PulseAudio, ServerKind::PipeWire),
    [](const auto& each) { return each.param == ServerKind::PulseAudio ? "PulseAudio" : "PipeWire"; });

} // namespace
} // namespace panotra::testing
