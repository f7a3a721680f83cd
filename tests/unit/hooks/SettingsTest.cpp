/// The settings: every key with its conversion, its absent value and its initial value.
#include "hooks/Panotra.h"
#include "tests/support/HomeScreenTest.h"

namespace panotra {
namespace {

struct Settings : testing::HomeScreenTest {
    void storeSibling(const sim::Json& value)
    {
        device.preferences->set(testing::siblingDomain, "dismissDelay", value);
    }
    void reloadSibling()
    {
        device.home->notify("net.qorvath.brevane2.settingschanged");
        pass();
    }
};

void expectAbsentValues()
{
    EXPECT_EQ(processValues.activeStyle, 0);
    EXPECT_EQ(processValues.mixerSkin, 0);
    EXPECT_FALSE(processValues.replaceHUD);
    EXPECT_EQ(processValues.scale, 0.875f);
    EXPECT_FALSE(processValues.dismissOnTouch);
    EXPECT_FALSE(processValues.isAppCallNotification);
    EXPECT_FALSE(processValues.handleShake);
    EXPECT_EQ(processValues.autoDismiss, 2.0);
}

TEST_F(Settings, HaveTheirInitialValuesBeforeTheLaunch)
{
    store("activeStyle", 1);
    load();
    expectAbsentValues();
}

TEST_F(Settings, OfEmptyDomainsAreTheAbsentValues)
{
    launch();
    expectAbsentValues();
}

TEST_F(Settings, AreReadFromTheirKeys)
{
    store("activeStyle", 1);
    store("mixerSkin", 3);
    store("replaceHUD", true);
    store("scale", 0.5);
    store("dismissOnTouch", true);
    store("isAppCallNotification", true);
    store("handleShake", true);
    storeSibling(3.25);
    launch();
    EXPECT_EQ(processValues.activeStyle, 1);
    EXPECT_EQ(processValues.mixerSkin, 3);
    EXPECT_TRUE(processValues.replaceHUD);
    EXPECT_EQ(processValues.scale, 0.5f);
    EXPECT_TRUE(processValues.dismissOnTouch);
    EXPECT_TRUE(processValues.isAppCallNotification);
    EXPECT_TRUE(processValues.handleShake);
    EXPECT_EQ(processValues.autoDismiss, 3.25);
}

TEST_F(Settings, ReturnToTheAbsentValueWhenTheirKeyIsRemoved)
{
    const std::pair<const char*, sim::Json> settings[]
        = { { "activeStyle", 1 }, { "mixerSkin", 3 }, { "replaceHUD", true }, { "scale", 0.5 },
              { "dismissOnTouch", true }, { "isAppCallNotification", true }, { "handleShake", true } };
    for (const auto& [key, value] : settings)
        store(key, value);
    storeSibling(9);
    launch();
    for (const auto& [key, value] : settings)
        device.preferences->unset(testing::ownDomain, key);
    device.preferences->unset(testing::siblingDomain, "dismissDelay");
    EXPECT_EQ(processValues.scale, 0.5f) << "nothing changes before it is announced";
    reloadSettings();
    reloadSibling();
    expectAbsentValues();
}

TEST_F(Settings, OfOtherKindsAreConvertedByTheStore)
{
    store("activeStyle", 65537);
    store("mixerSkin", -1.5);
    store("replaceHUD", "  Yes");
    store("scale", "0.5x");
    store("dismissOnTouch", 0.25);
    store("isAppCallNotification", "-0");
    store("handleShake", -7);
    storeSibling(true);
    launch();
    EXPECT_EQ(processValues.activeStyle, 1);
    EXPECT_EQ(processValues.mixerSkin, 65535);
    EXPECT_TRUE(processValues.replaceHUD);
    EXPECT_EQ(processValues.scale, 0.5f);
    EXPECT_TRUE(processValues.dismissOnTouch);
    EXPECT_FALSE(processValues.isAppCallNotification);
    EXPECT_TRUE(processValues.handleShake);
    EXPECT_EQ(processValues.autoDismiss, 1.0);
}

TEST_F(Settings, ScaleIsNotClamped)
{
    launch();
    for (const double scale : { 1.0, 0.0, -2.0, 100.0 }) {
        store("scale", scale);
        reloadSettings();
        EXPECT_EQ(processValues.scale, static_cast<float>(scale));
    }
}

TEST_F(Settings, AReloadLeavesTheAudioServiceAloneOnNewerSystems)
{
    launch();
    forgetEvents();
    reloadSettings();
    EXPECT_EQ(countOf("setVolume"), 0u);
    EXPECT_EQ(countOf("synchronize"), 1u);
}

TEST_F(Settings, AReloadGivesTheRingerItsLevelOnceOnOlderSystems)
{
    device.classes->setPresent("UIViewPropertyAnimator", false);
    store("volume7", 0.75);
    store("volume9", 0.25);
    launch();
    forgetEvents();
    processValues.manualSet = false;
    reloadSettings();
    ASSERT_EQ(countOf("setVolume"), 1u);
    EXPECT_EQ(eventsOf("setVolume")[0]["category"], "Ringtone");
    EXPECT_EQ(eventsOf("setVolume")[0]["level"], 0.75);
    EXPECT_TRUE(processValues.manualSet) << "the call passes through the mixer's own hook";
}

TEST_F(Settings, TheRingerGetsTheNotificationsLevelOnOlderSystemsIfItIsToKeepIt)
{
    device.classes->setPresent("UIViewPropertyAnimator", false);
    store("volume7", 0.75);
    store("volume9", 0.25);
    store("isAppCallNotification", true);
    launch();
    EXPECT_EQ(systemLevel("Ringtone"), 0.25f);
}

TEST_F(Settings, EachDomainAnnouncesItsOwnChange)
{
    launch();
    store("activeStyle", 1);
    storeSibling(5);
    reloadSettings();
    EXPECT_EQ(processValues.activeStyle, 1);
    EXPECT_EQ(processValues.autoDismiss, 2.0);
    reloadSibling();
    EXPECT_EQ(processValues.autoDismiss, 5.0);
}

TEST_F(Settings, AReloadNeitherPresentsNorRebuildsTheMixer)
{
    launch();
    controller().createUI();
    const id window = controller().window().get();
    store("activeStyle", 1);
    store("mixerSkin", 2);
    forgetEvents();
    reloadSettings();
    EXPECT_EQ(controller().window().get(), window);
    EXPECT_EQ(order({ "synchronize", "animate", "windowShown" }), (std::vector<std::string> { "synchronize" }));
}

TEST_F(Settings, InAnotherProcessOnlyTheShakesStateIsRead)
{
    device.bundleIdentifier = "com.apple.mobilesafari";
    store("activeStyle", 1);
    load();
    forgetEvents();
    device.darwin->setState("net.qorvath.panotra.shake", 0x100000000);
    settingsChanged();
    EXPECT_TRUE(processValues.handleShake) << "the state has 64 bits";
    device.darwin->setState("net.qorvath.panotra.shake", 0);
    settingsChanged();
    EXPECT_FALSE(processValues.handleShake);
    EXPECT_EQ(processValues.activeStyle, 0);
    EXPECT_TRUE(events.empty());
}

} // namespace
} // namespace panotra
