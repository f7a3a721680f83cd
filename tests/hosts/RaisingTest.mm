/// Hosts that answer by raising: what was asked for ends there, the home screen lives on, and nobody who was there
/// before loses a call.
#include "tests/hosts/HostTest.h"

#include "tests/hosts/Crossings.h"
#include "tests/hosts/HostileSteps.h"
#include "tests/hosts/Raising.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace panotra::testing {

namespace {

/// What the host's own implementations leave in the trace.
using Calls = std::map<std::string, std::size_t>;

/// Called as often as the outside calls them, whatever the mixer makes of it.
const std::set<std::string> alwaysPassedOn
    = { "Alarm", "activeVolume", "launched", "reoriented", "ringer", "sound", "statusBarFrame" };
/// Called at least as often. A sound whose level could not be borrowed leaves the next announcement alone.
const std::set<std::string> seldomHeldBack = { "announced" };

/// Functions that may run code of the host's and are no messages.
bool runsTheHost(std::string_view asked)
{
    return asked.find('[') != asked.npos || asked == "class_getInstanceMethod" || asked == "class_respondsToSelector"
        || asked == "objc_autoreleasePoolPop" || asked == "objc_release";
}

/// What a status bar inherits is what the hook of it replaced: not the mixer's to ask, and not its to stop.
bool isPreviousImplementation(std::string_view asked)
{
    return asked == "super -[UIView setFrame:]";
}

class RaisingHost : public HostTest {
protected:
    explicit RaisingHost(std::optional<int> system = std::nullopt)
        : HostTest(system)
    {
    }

    void SetUp() override
    {
        device.classes->setPresent("MeliorWindow", true);
        device.classes->setPresent("ABVolumeHUDManager", true);
        device.classes->setPresent("_UIStatusBar", true);
        device.classes->setPresent("UIViewPropertyAnimator", false);
    }

    Calls callsOfADay()
    {
        for (int slot = 0; slot < 12; ++slot)
            device.preferences->set("net.qorvath.panotra", "volume" + std::to_string(slot), 0.5);
        events.clear();
        liveADay(device, [this](double seconds) { pass(seconds); });
        Calls calls;
        for (const sim::Json& event : events) {
            const bool isAlarm
                = event["event"] == "setVolume" && event["category"] == "Alarm"; // only the outside sets it
            ++calls[isAlarm ? "Alarm" : event["event"].get<std::string>()];
        }
        return calls;
    }

    /// One day follows from another until what is remembered is what a day leaves behind.
    void settleDown()
    {
        for (int day = 0; day < 3; ++day)
            callsOfADay();
    }

    /// What the library asks for meanwhile, each thing once.
    template <typename Work> static std::set<std::string> askedDuring(const Work& work)
    {
        hosts::forgetCrossings();
        hosts::recordCrossings(true);
        work();
        hosts::recordCrossings(false);
        std::set<std::string> asked;
        for (const std::string& each : hosts::crossings()) {
            if (runsTheHost(each) && !isPreviousImplementation(each))
                asked.insert(each);
        }
        return asked;
    }

    /// Lets each thing raise for a day, in turn, and the days after be as usual.
    void raiseEachForADay(const std::set<std::string>& asked, const Calls& usual)
    {
        std::size_t living = device.classes->liveObjects();
        for (const std::string& each : asked) {
            SCOPED_TRACE(each);
            hosts::raiseWhere([&](std::string_view name) { return name == each; });
            expectNothingLost(usual, callsOfADay());
            EXPECT_GT(hosts::raised(), 0u);
            hosts::raiseWhere({});
            settleDown();
            EXPECT_EQ(callsOfADay(), usual) << "the days after";
            // An initialiser that raised may have let go of its object, or not: nobody else can.
            const bool isInitializer = each.find(" init") != each.npos;
            if (isInitializer)
                living = device.classes->liveObjects();
            EXPECT_EQ(device.classes->liveObjects(), living);
            if (HasFailure())
                break;
        }
    }

    static void expectNothingLost(const Calls& usual, Calls calls)
    {
        for (const std::string& event : alwaysPassedOn) {
            const auto expected = usual.find(event);
            EXPECT_EQ(calls[event], expected == usual.end() ? 0 : expected->second) << event;
        }
        for (const std::string& event : seldomHeldBack)
            EXPECT_GE(calls[event], usual.at(event)) << event;
    }
};

/// Whether `work`, in a process of its own, comes to its end without a failure.
bool succeedsElsewhere(const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

TEST_F(RaisingHost, AnyOneThingThatIsAskedForInADayRaisesAndNoCallIsLostAndEveryObjectGivenBack)
{
    launch();
    settleDown();
    Calls usual;
    const auto asked = askedDuring([&] { usual = callsOfADay(); });
    EXPECT_GT(asked.size(), 100u);
    raiseEachForADay(asked, usual);
}

/// What is asked of later systems alone, the steps that rest on memory among it.
struct RaisingHostOfLaterSystems : RaisingHost, ::testing::WithParamInterface<int> {
    RaisingHostOfLaterSystems()
        : RaisingHost(GetParam())
    {
    }
};

TEST_P(RaisingHostOfLaterSystems, AnyOneThingThatIsAskedForThereRaisesAndNoCallIsLost)
{
    constexpr std::string_view laterNames[]
        = { "sharedInstance]", "volumeControl]", "statusBarForEmbeddedDisplay]", "connectedScenes]", "allObjects]",
              "objectAtIndex:]", "screen]", "setWindowScene:]", "activeAudioRoute]", "_mode" };
    device.screen->orientation = 3; // a banner in landscape asks for the status bar
    launch();
    settleDown();
    Calls usual;
    auto asked = askedDuring([&] { usual = callsOfADay(); });
    std::erase_if(asked, [&](const std::string& each) {
        return std::ranges::none_of(laterNames, [&](std::string_view name) { return each.ends_with(name); });
    });
    EXPECT_GE(asked.size(), GetParam() == 16 ? 6u : 3u);
    raiseEachForADay(asked, usual);
}

INSTANTIATE_TEST_SUITE_P(Hostile, RaisingHostOfLaterSystems, ::testing::Values(13, 16));

TEST_F(RaisingHost, AnyOneThingThatIsAskedForUntilTheLaunchIsOverRaisesAndTheHomeScreenLaunches)
{
    // A process can load the library once.
    const auto nameFile = std::tmpfile();
    ASSERT_TRUE(succeedsElsewhere([&] {
        for (const std::string& each : askedDuring([this] { launch(); }))
            std::fprintf(nameFile, "%s\n", each.c_str());
        std::fflush(nameFile);
    }));
    std::rewind(nameFile);
    std::size_t count = 0;
    char line[256];
    while (std::fgets(line, sizeof line, nameFile) != nullptr) {
        const std::string asked(line, std::string_view(line).find('\n'));
        ++count;
        EXPECT_TRUE(succeedsElsewhere([&] {
            hosts::raiseWhere([&](std::string_view name) { return name == asked; });
            launch();
            EXPECT_GT(hosts::raised(), 0u);
            EXPECT_EQ(countOf("launched"), 1u);
            liveADay(device, [this](double seconds) { pass(seconds); });
            hosts::raiseWhere({});
            liveADay(device, [this](double seconds) { pass(seconds); });
        })) << asked;
    }
    std::fclose(nameFile);
    EXPECT_GT(count, 20u);
}

TEST_F(RaisingHost, AnythingRaisesNowAndThenAndNoCallIsLost)
{
    launch();
    settleDown();
    const Calls usual = callsOfADay();
    std::mt19937 numbers(1);
    for (const unsigned seldom : { 2u, 5u, 50u }) {
        hosts::raiseWhere([&](std::string_view name) {
            return runsTheHost(name) && !isPreviousImplementation(name) && numbers() % seldom == 0;
        });
        for (int day = 0; day < 5; ++day)
            expectNothingLost(usual, callsOfADay());
    }
    hosts::raiseWhere({});
    settleDown();
    EXPECT_EQ(callsOfADay(), usual);
}

namespace {

IMP setVolumeThatRaises = nullptr;

BOOL raiseAfterSetting(id self, SEL selector, float level, id category)
{
    reinterpret_cast<BOOL (*)(id, SEL, float, id)>(setVolumeThatRaises)(self, selector, level, category);
    [NSException raise:@"HostileException" format:@"of a previous implementation"];
    return YES;
}

} // namespace

TEST_F(RaisingHost, APreviousImplementationThatRaisesInsideAMessageOfOursEndsThatMessageAlone)
{
    setVolumeThatRaises
        = hook("AVSystemController", "setVolumeTo:forCategory:", reinterpret_cast<IMP>(raiseAfterSetting));
    launch();
    events.clear();
    announce(announcementOf(@"Audio/Video", @"RouteChange", [NSNumber numberWithFloat:0.75f]));
    EXPECT_EQ(countOf("setVolume"), 1u);
    EXPECT_EQ(countOf("announced"), 1u);
}

} // namespace panotra::testing
