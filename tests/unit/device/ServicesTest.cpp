/// Audio levels, Darwin notifications, the screen.
#include "tests/support/KnownFacts.h"
#include "tests/unit/device/DeviceTest.h"

#include "simulator/device/EventFields.h"

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;

TEST(AudioService, KnowsTheCategoriesAtHalfVolume)
{
    const AudioService audio;
    for (const std::string_view category : testing::knownCategories)
        EXPECT_EQ(audio.level(std::string(category)), 0.5f) << category;
    EXPECT_EQ(audio.levels.size(), std::size(testing::knownCategories));
    EXPECT_EQ(audio.route, "Speaker");
    EXPECT_EQ(audio.activeCategory, "Audio/Video");
}

TEST(AudioService, ACategoryWithoutALevelReadsAsZeroUntilSomethingIsStored)
{
    AudioService audio;
    EXPECT_EQ(audio.level("Ambient"), 0.0f);
    EXPECT_FALSE(audio.hasLevel("Ambient"));
    audio.store("Ambient", 0.25f);
    audio.store("Alarm", 0.75f);
    EXPECT_TRUE(audio.hasLevel("Ambient"));
    EXPECT_EQ(audio.level("Ambient"), 0.25f);
    EXPECT_EQ(audio.levels.size(), std::size(testing::knownCategories) + 1);
    EXPECT_EQ(audio.levels.back().first, "Ambient");
}

/// Another maker of sound, of which the device knows nothing but what it may ask.
class QuietService final : public SoundService {
public:
    float level(const std::string& category) const override { return category == "Alarm" ? 0.25f : 0.0f; }
    bool hasLevel(const std::string&) const override { return true; }
    std::vector<std::pair<std::string, float>> allLevels() const override { return {}; }
    std::optional<std::string> activeRoute() const override { return "Headset"; }
    std::string categoryInUse() const override { return "Alarm"; }
    bool announcesSetLevels() const override { return false; }
    void store(const std::string& category, float level) override { stored.emplace_back(category, level); }

    std::vector<std::pair<std::string, float>> stored;
};

TEST(SoundServiceTest, WhoeverMakesTheSoundIsAskedAndToldInPlaceOfTheMemory)
{
    Device device;
    QuietService quiet;
    device.sound = &quiet;
    const auto inMemory = device.audio->levels;
    device.home->press(Button::Up);
    device.home->setVolume("Ringtone", 0.75f);
    EXPECT_THAT(quiet.stored, ElementsAre(std::pair("Alarm", 0.3125f), std::pair("Ringtone", 0.75f)));
    EXPECT_EQ(device.audio->levels, inMemory);
}

TEST(Screen, TheStatusBarsCentreFollowsTheOrientationUntilItIsSet)
{
    Screen screen;
    EXPECT_EQ(screen.currentStatusBarCenter(), std::pair(187.5, 10.0));
    for (const std::int64_t landscape : { 3, 4 }) {
        screen.orientation = landscape;
        EXPECT_EQ(screen.currentStatusBarCenter(), std::pair(333.5, 10.0));
    }
    for (const std::int64_t upright : { 0, 2, 7 }) {
        screen.orientation = upright;
        EXPECT_EQ(screen.currentStatusBarCenter(), std::pair(187.5, 10.0));
    }
    screen.statusBarCenter = std::pair(1.0, 2.0);
    EXPECT_EQ(screen.currentStatusBarCenter(), std::pair(1.0, 2.0));
}

std::vector<std::string> notified;

class DarwinNotificationsTest : public DeviceTest {
protected:
    DarwinNotificationsTest() { notified.clear(); }
};

TEST_F(DarwinNotificationsTest, ATokenReadsTheStateOfItsName)
{
    const std::int32_t shake = device.darwin->registerCheck("shake");
    const std::int32_t screen = device.darwin->registerCheck("screen");
    EXPECT_NE(shake, screen);
    device.darwin->setState("screen", 18446744073709551615u);
    EXPECT_EQ(device.darwin->stateOf(shake), 0u);
    EXPECT_EQ(device.darwin->stateOf(screen), 18446744073709551615u);
    EXPECT_EQ(device.darwin->state("screen"), 18446744073709551615u);
    EXPECT_EQ(events[0], (Json { { "t", 0.0 }, { "event", "register" }, { "name", "shake" } }));
}

TEST_F(DarwinNotificationsTest, ATokenThatWasNeverRegisteredReadsZero)
{
    device.darwin->registerCheck("shake");
    device.darwin->setState("shake", 1);
    for (const std::int32_t token : { -1, 0, 2 })
        EXPECT_EQ(device.darwin->stateOf(token), 0u) << token;
}

TEST_F(DarwinNotificationsTest, ObserversOfANameAreCalledInTheOrderInWhichTheyCame)
{
    device.darwin->addObserver("settings", [] { notified.push_back("first"); });
    device.darwin->addObserver("screen", [] { notified.push_back("screen"); });
    device.darwin->addObserver("settings", [] { notified.push_back("second"); });
    events.clear();
    device.home->notify("settings");
    EXPECT_THAT(notified, ElementsAre("first", "second"));
    EXPECT_TRUE(events.empty());
}

TEST_F(DarwinNotificationsTest, APostIsReportedAndDelivered)
{
    device.darwin->addObserver("settings", [] { notified.push_back("told"); });
    device.darwin->post("settings");
    EXPECT_THAT(eventNames(), ElementsAre("observe", "post"));
    EXPECT_THAT(notified, ElementsAre("told"));
}

TEST_F(DarwinNotificationsTest, WhoComesToObserveDuringADeliveryHasMissedIt)
{
    device.darwin->addObserver("settings", [] {
        notified.push_back("old");
        Device::current()->darwin->addObserver("settings", [] { notified.push_back("new"); });
    });
    device.darwin->deliver("settings");
    EXPECT_THAT(notified, ElementsAre("old"));
}

TEST(Trace, CostsNothingWhenNobodyListens)
{
    Device device;
    bool asked = false;
    device.trace("post", [&](EventFields&) { asked = true; });
    EXPECT_FALSE(asked);
}

TEST_F(DarwinNotificationsTest, AnEventHasItsTimeAndItsNameFirst)
{
    device.runLoop->wait(0.25);
    device.trace("cancel", [](EventFields& fields) { fields.add("selector", "s", "object", nullptr); });
    EXPECT_EQ(events.back().dump(), R"({"t":0.25,"event":"cancel","selector":"s","object":null})");
}

} // namespace
} // namespace panotra::sim
