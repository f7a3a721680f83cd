/// What the host's own methods see of the hooks: which object is spoken to, with what, and what holds by then.
#include "platform/AVSystemController.h"
#include "simulator/device/Values.h"
#include "simulator/device/View.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

/// A call of one of the host's own methods, as its implementation finds it.
struct OwnCall {
    HostObject* receiver = nullptr;
    HostObject* argument = nullptr; ///< of the arguments that are objects the first
    double number = 0; ///< a delay or a level
    bool manualSet = false;
    bool isHackedRingtoneVolume = false;
    bool hasWindow = false;
};

std::vector<OwnCall> ownCalls;

void noteOwnCall(HostObject* called, HostObject* argument, double number)
{
    const bool hasWindow = processValues.sharedController && PNOController::sharedInstance().window();
    ownCalls.push_back(
        { called, argument, number, processValues.manualSet, processValues.isHackedRingtoneVolume, hasWindow });
}

/// What the key `_mode` answers, one reading after the other.
struct ModeReadings {
    static inline std::vector<std::int64_t> answers;
    static inline std::size_t asked = 0;
    static std::int64_t next() { return answers.at(asked++ % answers.size()); }
};

struct HostsOwnMethods : testing::MixerTest {
    HostsOwnMethods()
    {
        ownCalls.clear();
        storeLevels(0.5);
    }

    /// Before the library is loaded: its hook then finds the function as the host's own.
    template <typename Function> void replaceOwn(const char* className, const char* method, Function* function)
    {
        device.classes->platformClass(className).methods[sim::selector(method)] = sim::implementation(function);
    }
    void watchVolumes()
    {
        replaceOwn(
            "AVSystemController",
            "setVolumeTo:forCategory:", +[](HostObject* self, const HostSelector*, float level, HostObject* category) {
                noteOwnCall(self, category, static_cast<double>(level));
                return true;
            });
    }
    /// An audio service beside the shared one.
    AVSystemController anotherService()
    {
        return adopt<AVSystemController>(
            device.classes->instantiate(device.classes->platformClass("AVSystemController")));
    }
    HostObject* announcementOf(const char* category, const char* reason, double level)
    {
        sim::ClassTable& classes = *device.classes;
        auto* const made = classes.make<sim::Dictionary>("NSDictionary");
        made->adopt("AudioCategory", classes.make<sim::String>("NSString", category));
        made->adopt("AudioVolumeChangeReason", classes.make<sim::String>("NSString", reason));
        made->adopt("AudioVolume", classes.make<sim::Number>("NSNumber", level));
        return classes.autorelease(made);
    }
    static void post(const AVSystemController& service, HostObject* announcement)
    {
        sim::send<void>(service.get(), sim::selector("postEffectiveVolumeNotification:"), announcement);
    }
    void readModesFrom(std::vector<std::int64_t> answers)
    {
        ModeReadings::answers = std::move(answers);
        ModeReadings::asked = 0;
        for (HostField& field : device.classes->platformClass("VolumeControl").fields) {
            if (field.name == "_mode")
                field.read = ModeReadings::next;
        }
    }
};

// The announcing service.

TEST_F(HostsOwnMethods, ARememberedLevelGoesToTheServiceThatAnnouncedAndNotToTheSharedOne)
{
    watchVolumes();
    launch();
    const AVSystemController other = anotherService();
    for (const char* const reason : { "RouteChange", "CategoryChange" }) {
        ownCalls.clear();
        post(other, announcementOf("Audio/Video", reason, 0.75));
        ASSERT_EQ(ownCalls.size(), 1u) << reason;
        EXPECT_EQ(ownCalls[0].receiver, other.get());
        EXPECT_EQ(ownCalls[0].number, 0.5);
    }
}

TEST_F(HostsOwnMethods, TheRestoredRingerGoesToTheServiceThatAnnouncedWhichLivesUntilThen)
{
    device.classes->setPresent("UIViewPropertyAnimator", false);
    watchVolumes();
    launch();
    processValues.isHackedRingtoneVolume = true;
    const std::size_t services = device.classes->liveObjects("AVSystemController");
    const HostObject* announcing = nullptr;
    {
        const AVSystemController other = anotherService();
        announcing = other.get();
        post(other, announcementOf("Ringtone", "ExplicitVolumeChange", 0.25));
    }
    ownCalls.clear();
    pass(0.09);
    EXPECT_EQ(device.classes->liveObjects("AVSystemController"), services + 1);
    pass(0.02);
    ASSERT_EQ(ownCalls.size(), 1u);
    EXPECT_EQ(ownCalls[0].receiver, announcing);
    EXPECT_EQ(ownCalls[0].number, 0.5);
    EXPECT_EQ(device.classes->liveObjects("AVSystemController"), services) << "and no longer";
}

// The level, the mode and the category of a new level.

TEST_F(HostsOwnMethods, ALevelIsComparedAsTheFloatThatIsRemembered)
{
    storeLevels(static_cast<double>(0.3f));
    launch();
    ASSERT_NE(0.3, static_cast<double>(0.3f));
    forgetEvents();
    post(AVSystemController::sharedAVSystemController(), announcementOf("Audio/Video", "RouteChange", 0.3));
    post(AVSystemController::sharedAVSystemController(), announcementOf("Audio/Video", "ExplicitVolumeChange", 0.3));
    EXPECT_EQ(order({ "setVolume", "animate", "announced" }), (std::vector<std::string> { "announced", "announced" }));
}

TEST_F(HostsOwnMethods, ALevelThatIsOneSixteenthAsAFloatIsNotAboveIt)
{
    launch();
    device.home->volumeMode = 1;
    presentOnDemand();
    pass(1);
    const double justAbove = 0.0625 + 1e-12;
    post(AVSystemController::sharedAVSystemController(),
        announcementOf("Audio/Video", "ExplicitVolumeChange", justAbove));
    EXPECT_EQ(swelling(0), 1.0);
    post(AVSystemController::sharedAVSystemController(), announcementOf("Audio/Video", "ExplicitVolumeChange", 0.063));
    EXPECT_EQ(swelling(0), 1.05);
}

struct ModeCase {
    const char* what;
    std::vector<std::int64_t> readings;
    float level;
    std::size_t asked;
    bool focuses;
};

TEST_F(HostsOwnMethods, TheModeIsReadAfreshForTheSecondQuestion)
{
    launch();
    presentOnDemand();
    pass(1);
    for (const ModeCase& each :
        { ModeCase { "0 at the first question", { 0, 1 }, 0.75f, 1, true },
            ModeCase { "0 at the second question only", { 1, 0 }, 0.8f, 2, false },
            ModeCase { "never 0", { 1, 2 }, 0.7f, 2, true }, ModeCase { "never 0, and low", { 1, 2 }, 0.06f, 2, false },
            ModeCase { "0 and then 1, without a level", { 0, 1 }, 0.0f, 2, false },
            ModeCase { "no question at the full level", { 0, 0 }, 1.0f, 0, false } }) {
        readModesFrom(each.readings);
        controller().resetTransforms();
        announce("Audio/Video", "ExplicitVolumeChange", each.level);
        EXPECT_EQ(ModeReadings::asked, each.asked) << each.what;
        EXPECT_EQ(swelling(0), each.focuses ? 1.05 : 1.0) << each.what;
    }
}

TEST_F(HostsOwnMethods, TheCategoryIsTheOneThatHoldsWhenTheLevelIsRecorded)
{
    launch();
    // The host may announce something else before it runs the block.
    device.traceSink = [](const sim::Json& event) {
        if (event["event"] == "animate" && event["duration"] == 0.15)
            processValues.globalCategory.set(text("Alarm"));
    };
    announce("Audio/Video", "ExplicitVolumeChange", 0.75f);
    EXPECT_EQ(stored("volume8"), 0.75);
    EXPECT_EQ(stored("volume0"), 0.5);
}

// What holds when the host's own method runs.

TEST_F(HostsOwnMethods, TheRingerIsKnownToBeBorrowedBeforeItsLevelIsMoved)
{
    watchVolumes();
    launch();
    device.home->playSound(1);
    ASSERT_EQ(ownCalls.size(), 1u);
    EXPECT_TRUE(ownCalls[0].isHackedRingtoneVolume);
}

TEST_F(HostsOwnMethods, TheManualFlagIsClearAndNothingIsShownWhenTheRingerIsSwitched)
{
    replaceOwn(
        "SBMediaController",
        "setRingerMuted:", +[](HostObject* self, const HostSelector*, bool) { noteOwnCall(self, nullptr, 0); });
    store("replaceHUD", true);
    launch();
    for (const bool muted : { true, false }) {
        ownCalls.clear();
        processValues.manualSet = true;
        device.home->setRingerMuted(muted);
        ASSERT_EQ(ownCalls.size(), 1u);
        EXPECT_FALSE(ownCalls[0].manualSet);
        EXPECT_FALSE(ownCalls[0].hasWindow);
        EXPECT_TRUE(controller().window()) << "afterwards it is";
        dismiss();
    }
}

TEST_F(HostsOwnMethods, TheManualFlagIsRaisedWhenAVolumeIsSet)
{
    watchVolumes();
    launch();
    processValues.manualSet = false;
    device.home->setVolume("Alarm", 0.25f);
    ASSERT_EQ(ownCalls.size(), 1u);
    EXPECT_TRUE(ownCalls[0].manualSet);
}

TEST_F(HostsOwnMethods, SettingsAreAsTheyWereUntilTheirDomainIsSynchronized)
{
    launch();
    store("activeStyle", 1);
    store("handleShake", true);
    device.preferences->set(testing::siblingDomain, "dismissDelay", 5);
    std::vector<sim::Json> before;
    device.traceSink = [&](const sim::Json& event) {
        if (event["event"] == "synchronize")
            before.push_back(library.globals());
    };
    reloadSettings();
    device.home->notify("net.qorvath.brevane2.settingschanged");
    device.traceSink = nullptr;
    ASSERT_EQ(before.size(), 2u);
    EXPECT_EQ(before[0]["activeStyle"], 0);
    EXPECT_EQ(before[0]["handleShake"], false);
    EXPECT_EQ(before[1]["autoDismiss"], 2.0);
    EXPECT_EQ(processValues.activeStyle, 1);
    EXPECT_EQ(processValues.autoDismiss, 5.0);
}

// Objects that are handed on are the very ones that came.

TEST_F(HostsOwnMethods, TheApplicationTheViewAndTheAnnouncementArriveAsTheyWere)
{
    replaceOwn(
        "SpringBoard", "applicationDidFinishLaunching:",
        +[](HostObject* self, const HostSelector*, HostObject* application) { noteOwnCall(self, application, 0); });
    replaceOwn(
        "SBHUDController", "presentHUDView:autoDismissWithDelay:",
        +[](HostObject* self, const HostSelector*, HostObject* shown, double delay) {
            noteOwnCall(self, shown, delay);
        });
    replaceOwn(
        "AVSystemController", "postEffectiveVolumeNotification:",
        +[](HostObject* self, const HostSelector*, HostObject* announcement) { noteOwnCall(self, announcement, 0); });
    load();
    const auto expectHandedOn = [](HostObject* called, HostObject* argument, double number) {
        ASSERT_EQ(ownCalls.size(), 1u);
        EXPECT_EQ(ownCalls[0].receiver, called);
        EXPECT_EQ(ownCalls[0].argument, argument);
        EXPECT_EQ(ownCalls[0].number, number);
        ownCalls.clear();
    };
    HostObject* const application = device.home->shared("SpringBoard");
    const NSString anything = text("anything");
    for (HostObject* const argument : { anything.get(), static_cast<HostObject*>(nullptr) }) {
        sim::send<void>(application, sim::selector("applicationDidFinishLaunching:"), argument);
        expectHandedOn(application, argument, 0);

        HostObject* const indicator = device.home->shared("SBHUDController");
        sim::send<void>(indicator, sim::selector("presentHUDView:autoDismissWithDelay:"), argument, 2.5);
        expectHandedOn(indicator, argument, 2.5);
    }
    const AVSystemController other = anotherService();
    for (const char* const reason : { "ExplicitVolumeChange", "Anything" }) {
        HostObject* const announcement = announcementOf("Audio/Video", reason, 0.5);
        post(other, announcement);
        expectHandedOn(other.get(), announcement, 0);
    }
}

TEST_F(HostsOwnMethods, ASoundThatIsPlayedAtAnotherLevelArrivesAsItWas)
{
    replaceOwn(
        "SBSoundController", "playSound:environments:completion:",
        +[](HostObject* self, const HostSelector*, HostObject* sound, std::uint64_t environments, HostObject*) {
            noteOwnCall(self, sound, static_cast<double>(environments));
            return true;
        });
    load();
    HostObject* const sounds = device.home->shared("SBSoundController");
    const auto sound = adopt<NSObject>(device.classes->make<sim::Sound>("SBUISound", std::int64_t { 1 }));
    sim::send<bool>(sounds, sim::selector("playSound:environments:completion:"), sound.get(), std::uint64_t { 7 },
        static_cast<HostObject*>(nullptr));
    ASSERT_EQ(ownCalls.size(), 1u);
    EXPECT_EQ(ownCalls[0].receiver, sounds);
    EXPECT_EQ(ownCalls[0].argument, sound.get());
    EXPECT_EQ(ownCalls[0].number, 7);
}

// Another program's overlay.

TEST_F(HostsOwnMethods, OnlyTheFirstSubviewOfTheOtherOverlayIsHiddenAndShown)
{
    device.classes->setPresent("MeliorWindow", true);
    launch();
    auto& overlay = dynamic_cast<sim::View&>(*device.home->shared("MeliorWindow"));
    const auto second = adopt<UIView>(device.classes->make<sim::View>("UIView"));
    overlay.addSubview(dynamic_cast<sim::View&>(*second.get()));
    ASSERT_EQ(overlay.subviews.size(), 2u);
    for (const bool replaces : { true, false }) {
        processValues.replaceHUD = replaces;
        overlay.subviews[1]->hidden = !replaces;
        announce("Alarm", "Anything", 0.5f);
        EXPECT_EQ(overlay.subviews[0]->hidden, replaces);
        EXPECT_EQ(overlay.subviews[1]->hidden, !replaces);
    }
}

} // namespace
} // namespace panotra
