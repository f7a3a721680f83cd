/// The helper object: what it carries, and what it answers to the gesture framework.
#include "controller/PNOHelperController.h"

#include "simulator/device/Values.h"
#include "tests/support/MixerTest.h"
#include "tests/unit/preferences/TemporaryFolder.h"

namespace panotra {
namespace {

constexpr const char* presentName = "net.qorvath.panotra.presentmixer";
constexpr const char* dismissName = "net.qorvath.panotra.dismissmixer";
constexpr const char* toggleName = "net.qorvath.panotra.presentdismissmixer";
constexpr const char* strangerName = "net.qorvath.panotra.somethingelse";

struct HelperController : testing::MixerTest {
    static PNOHelperController helper() { return PNOHelperController::sharedInstance(); }
    sim::Json answer(const char* question, const char* listener)
    {
        forgetEvents();
        device.home->askActivator(question, listener);
        EXPECT_EQ(countOf("answer"), 1u);
        return eventsOf("answer").at(0)["value"];
    }
    void send(const char* listener)
    {
        forgetEvents();
        device.home->sendActivatorEvent(listener);
        pass();
        ASSERT_EQ(countOf("handled"), 1u) << "in every case";
        EXPECT_EQ(eventsOf("handled")[0]["listener"], listener);
        EXPECT_EQ(events.back()["event"], "handled");
    }
    std::vector<std::string> listeners() const
    {
        std::vector<std::string> names;
        for (const sim::Json& event : eventsOf("listener"))
            names.push_back(event["name"]);
        return names;
    }
};

TEST_F(HelperController, ThereIsOne)
{
    launch();
    EXPECT_TRUE(helper());
    EXPECT_EQ(helper(), helper());
    EXPECT_EQ(device.classes->liveObjects("PNOHelperController"), 1u);
}

TEST_F(HelperController, TheHostReachesEveryMethodUnderItsName)
{
    std::vector<std::string> names;
    for (const Method& method : PNOHelperController::description().methods)
        names.emplace_back(method.selector);
    EXPECT_EQ(names,
        (std::vector<std::string> { "init",
            "activator:requiresLocalizedGroupForListenerName:", "activator:requiresLocalizedTitleForListenerName:",
            "activator:requiresLocalizedDescriptionForListenerName:",
            "activator:requiresSmallIconDataForListenerName:scale:", "activator:receiveEvent:forListenerName:" }));
    ASSERT_EQ(PNOHelperController::description().classMethods.size(), 1u);
    EXPECT_STREQ(PNOHelperController::description().classMethods[0].selector, "sharedInstance");
}

TEST_F(HelperController, ItCarriesTheNamesAndTheBundle)
{
    load();
    EXPECT_EQ(*sim::textOf(helper().valueForKey("_projectName").get()), "Panotra");
    EXPECT_EQ(*sim::textOf(helper().valueForKey("_packageName").get()), "net.qorvath.panotra");
    EXPECT_EQ(helper().valueForKey("_bundle"), helper().bundle());
    EXPECT_TRUE(helper().bundle());
}

TEST_F(HelperController, ItRegistersTheThreeListenersInOrderWhenItIsFirstUsed)
{
    load();
    EXPECT_TRUE(listeners().empty());
    helper();
    EXPECT_EQ(listeners(), (std::vector<std::string> { presentName, dismissName, toggleName }));
    helper();
    EXPECT_EQ(listeners().size(), 3u);
}

TEST_F(HelperController, TheLaunchIsItsFirstUse)
{
    launch();
    EXPECT_EQ(listeners().size(), 3u);
}

TEST_F(HelperController, InAnotherProcessItRegistersNothing)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    load();
    EXPECT_TRUE(helper());
    EXPECT_TRUE(listeners().empty());
    EXPECT_TRUE(helper().bundle());
}

TEST_F(HelperController, WithoutTheGestureFrameworkItRegistersNothing)
{
    device.classes->setPresent("LAActivator", false);
    launch();
    EXPECT_TRUE(listeners().empty());
    EXPECT_EQ(*sim::textOf(helper().packageName().get()), "net.qorvath.panotra");
}

TEST_F(HelperController, EveryListenerHasItsTexts)
{
    struct Row {
        const char* listener;
        const char* group;
        const char* title;
        const char* description;
    };
    const char* const error = "Error: Contact dev.";
    launch();
    for (const Row& row : { Row { presentName, "Panotra", "Present Mixer", "Presents Panotra." },
             Row { dismissName, "Panotra", "Dismiss Mixer", "Dismisses Panotra." },
             Row { toggleName, "Panotra", "Present & Dismiss", "Presents and Dismisses Mixer" },
             Row { strangerName, error, error, error }, Row { "", error, error, error } }) {
        EXPECT_EQ(answer("group", row.listener), row.group);
        EXPECT_EQ(answer("title", row.listener), row.title);
        EXPECT_EQ(answer("description", row.listener), row.description);
    }
}

TEST_F(HelperController, TheListenersAndNoOthersHaveAnIcon)
{
    launch();
    for (const char* const listener : { presentName, dismissName, toggleName })
        EXPECT_GT(answer("icon", listener), 0) << listener;
    EXPECT_EQ(answer("icon", strangerName), nullptr);
}

TEST_F(HelperController, TheIconIsThePictureOfThatNameInTheBundle)
{
    const preferences::testing::TemporaryFolder bundle;
    preferences::testing::writeBytes(bundle / "settingsIcon.png", std::string(1234, 'i'));
    preferences::testing::writeBytes(bundle / "icon.png", std::string(99, 'i'));
    device.resourceFolder = bundle.path().string();
    launch();
    for (const char* const listener : { presentName, dismissName, toggleName })
        EXPECT_EQ(answer("icon", listener), 1234) << listener;
}

TEST_F(HelperController, AMissingListenerNameIsAStranger)
{
    launch();
    EXPECT_EQ(*sim::textOf(helper().requiresLocalizedGroup(nullptr, nullptr).get()), "Error: Contact dev.");
    EXPECT_FALSE(helper().requiresSmallIconData(nullptr, nullptr, nullptr));
}

TEST_F(HelperController, PresentShowsTheMixerForGood)
{
    store("replaceHUD", true);
    launch();
    send(presentName);
    EXPECT_TRUE(processValues.presentedViaActivator);
    pass(100);
    EXPECT_TRUE(controller().window());
    send(presentName);
    EXPECT_TRUE(controller().window());
    EXPECT_EQ(countOf("windowShown"), 1u);
}

TEST_F(HelperController, DismissLowersTheFlagAndDismisses)
{
    show(panel);
    pass(1);
    send(dismissName);
    EXPECT_FALSE(processValues.presentedViaActivator);
    EXPECT_EQ(durations(), (std::vector<double> { 0.4 }));
    pass(0.5);
    EXPECT_FALSE(controller().window());
}

TEST_F(HelperController, ToggleShowsAndDismisses)
{
    launch();
    send(toggleName);
    EXPECT_TRUE(processValues.presentedViaActivator);
    EXPECT_TRUE(controller().window());
    pass(1);
    send(toggleName);
    EXPECT_FALSE(processValues.presentedViaActivator);
    pass(0.5);
    EXPECT_FALSE(controller().window());
    send(toggleName);
    EXPECT_TRUE(controller().window());
}

TEST_F(HelperController, AStrangersEventIsHandledWithoutDoingAnything)
{
    launch();
    send(strangerName);
    EXPECT_EQ(events.size(), 1u);
    EXPECT_FALSE(controller().window());
    EXPECT_FALSE(processValues.presentedViaActivator);
}

TEST_F(HelperController, ItsToggleAsksForTheRootViewWhereTheShakeAsksForTheWindow)
{
    store("handleShake", true);
    show(panel);
    pass(1);
    auto* const fields = static_cast<PNOController::InstanceVariables*>(
        instanceVariables(controller().get(), PNOController::description()));
    const UIView root = fields->_rootView;
    fields->_rootView = nullptr;
    processValues.presentedViaActivator = false;
    send(toggleName);
    EXPECT_EQ(countOf("windowShown"), 1u) << "without a root view it presents";
    EXPECT_TRUE(processValues.presentedViaActivator);
    EXPECT_EQ(countOf("animate"), 0u);

    device.home->motionBegan(1);
    EXPECT_EQ(durations(), (std::vector<double> { 0.4 })) << "with a window the shake dismisses";
    fields->_rootView = root;
}

} // namespace
} // namespace panotra
