/// Every scenario in a home screen that is hostile in every way at once: it lives on, nobody who was there before loses
/// a call, and what the mixer took it gives back.
#include "tests/hosts/HostTest.h"

#include "simulator/Files.h"
#include "simulator/scenario/Grammar.h"
#include "simulator/scenario/Player.h"
#include "tests/hosts/Hostility.h"
#include "tests/hosts/Raising.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <variant>

namespace panotra::testing {

namespace {

/// Every scenario that is a test, an example, a picture, or of an odd process.
std::vector<std::string> scenarioFiles()
{
    std::vector<std::string> files;
    const std::filesystem::path repository = PANOTRA_REPOSITORY;
    for (const char* const folder : { "tests/scenarios", "tests/pictures", "tests/systems/processes", "examples" }) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(repository / folder)) {
            if (entry.path().filename() == "scenario" || entry.path().extension() == ".scenario")
                files.push_back(entry.path().string());
        }
    }
    std::ranges::sort(files);
    return files;
}

/// What became of a process in which a scenario was played.
struct Outcome {
    bool livedOn;
    std::size_t living; ///< objects, when everything was over
    std::size_t raised;
    std::size_t shown; ///< how often the mixer was
};

class HostileProfile : public HostTest {
protected:
    explicit HostileProfile(std::optional<int> system = std::nullopt)
        : HostTest(system)
    {
    }

    /// Plays the scenario, whatever it expects; then all is well again, and the mixer is shown and dismissed once more.
    void play(const std::string& file, std::optional<unsigned> hostility)
    {
        const std::string text = std::get<std::string>(sim::readFile(file));
        const sim::Scenario scenario = sim::parseScenario(text);
        ASSERT_TRUE(scenario.mistakes.empty());
        // A process that does not say what it is is none that the mixer lives in.
        const auto load = [this, hostility] {
            library.load();
            hosts::beHostile(hostility);
        };
        sim::Player player(device, { load, library.globals, library.layoutMemory }, {});
        player.play(scenario);
        raised = hosts::raised();
        hosts::beHostile(std::nullopt);
        pass(100);
        device.preferences->set("net.qorvath.panotra", "activeStyle", 0);
        device.preferences->set("net.qorvath.panotra", "replaceHUD", false);
        if (isShown())
            toggle();
        toggle();
        toggle();
        EXPECT_FALSE(isShown());
        // The host makes its own shared objects when they are first asked for.
        for (const char* const name : { "AVSystemController", "SBSoundController", "SBMediaController",
                 "SBHUDController", "VolumeControl", "UIStatusBar", "_UIStatusBar", "UIApplication", "UIScreen",
                 "AXSpringBoardServer", "SBAssistantController", "LAActivator", "MeliorWindow", "ABVolumeHUDManager",
                 "SBVolumeControl", "SBRingerControl", "SBAVSystemControllerCache", "SBWindowScene" })
            device.home->shared(name);
    }

    /// Reads the settings, then shows or dismisses.
    void toggle()
    {
        device.home->notify("net.qorvath.panotra.uikitshaken");
        pass(100);
    }

    /// The outside's calls against what the host's own implementations did.
    void expectNoCallLost()
    {
        const auto asked = [](const char* selector) {
            const auto found = hosts::callsFromOutside().find(selector);
            return found == hosts::callsFromOutside().end() ? 0 : found->second;
        };
        EXPECT_EQ(countOf("launched"), asked("applicationDidFinishLaunching:"));
        EXPECT_EQ(countOf("activeVolume"), asked("getActiveCategoryVolume:andName:fallbackCategory:"));
        EXPECT_EQ(countOf("sound"), asked("playSound:environments:completion:"));
        EXPECT_EQ(countOf("ringer"), asked("setRingerMuted:"));
        EXPECT_EQ(countOf("reoriented"),
            asked("reorientHUDIfNeeded:") + asked("noteInterfaceOrientationChanged:duration:logMessage:"));
        EXPECT_EQ(countOf("statusBarFrame"), asked("setFrame:"));
        EXPECT_GE(countOf("setVolume"), asked("setVolumeTo:forCategory:")); // the mixer sets volumes, too
        const std::size_t announced = countOf("announced");
        EXPECT_LE(announced, asked("postEffectiveVolumeNotification:"));
        // A sound may hold one announcement back.
        EXPECT_GE(announced + countOf("sound"), asked("postEffectiveVolumeNotification:"));
        EXPECT_EQ(std::ranges::count_if(events,
                      [](const sim::Json& event) {
                          return event["event"] == "assistant" && event["action"] == "dismissedUnopened";
                      }),
            0)
            << "the assistant is left alone where it cannot be opened";
    }

    /// A process can load the library once: each play is a process of its own.
    Outcome outcomeOf(const std::string& file, std::optional<unsigned> hostility)
    {
        int ends[2];
        if (pipe(ends) != 0)
            return {};
        const int failuresBefore = failures();
        const pid_t child = fork();
        if (child == 0) {
            play(file, hostility);
            expectNoCallLost();
            const std::size_t told[] = { device.classes->liveObjects(), raised, countOf("windowShown") };
            const bool isTold = write(ends[1], told, sizeof told) == sizeof told;
            std::fflush(nullptr);
            _exit(isTold && failures() == failuresBefore ? 0 : 1);
        }
        close(ends[1]);
        std::size_t told[3] = {};
        const bool isTold = read(ends[0], told, sizeof told) == sizeof told;
        close(ends[0]);
        int status = 0;
        waitpid(child, &status, 0);
        return { isTold && WIFEXITED(status) && WEXITSTATUS(status) == 0, told[0], told[1], told[2] };
    }

    void playAll(const std::vector<std::string>& files)
    {
        std::size_t raisedInAll = 0;
        std::size_t shownInAll = 0;
        for (unsigned number = 0; number < files.size(); ++number) {
            const std::string& file = files[number];
            SCOPED_TRACE(file);
            const Outcome friendly = outcomeOf(file, std::nullopt);
            const Outcome hostile = outcomeOf(file, number);
            EXPECT_TRUE(friendly.livedOn);
            EXPECT_TRUE(hostile.livedOn);
            EXPECT_LE(hostile.living, friendly.living) << "objects were kept";
            raisedInAll += hostile.raised;
            shownInAll += hostile.shown;
        }
        EXPECT_GT(raisedInAll, 10 * files.size());
        EXPECT_GT(shownInAll, files.size());
        std::printf("%zu scenarios, %zu raises, the mixer shown %zu times\n", files.size(), raisedInAll, shownInAll);
    }

    static int failures()
    {
        return ::testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
    }

    std::size_t raised = 0;
};

} // namespace

TEST_F(HostileProfile, PlaysEveryScenarioAndLosesNothing)
{
    const auto files = scenarioFiles();
    ASSERT_GT(files.size(), 100u);
    playAll(files);
}

/// In the shape of a later system, each its share of them.
struct HostileLaterSystem : HostileProfile, ::testing::WithParamInterface<int> {
    HostileLaterSystem()
        : HostileProfile(GetParam())
    {
    }
};

TEST_P(HostileLaterSystem, PlaysScenariosAndLosesNothing)
{
    constexpr std::size_t systems = 4;
    const auto all = scenarioFiles();
    std::vector<std::string> files;
    for (auto number = static_cast<std::size_t>(GetParam()) % systems; number < all.size(); number += systems)
        files.push_back(all[number]);
    ASSERT_FALSE(files.empty());
    playAll(files);
}

INSTANTIATE_TEST_SUITE_P(Later, HostileLaterSystem, ::testing::Range(13, 17));

} // namespace panotra::testing
