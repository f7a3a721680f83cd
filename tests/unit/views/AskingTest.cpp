/// What sliders and the window ask of the process, how often and when; what their superclasses are handed.
#include "simulator/device/Values.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

constexpr std::int64_t dragChanged = 2;

int routesAsked = 0;
/// What the audio service answers for its attributes. Borrowed.
HostObject* answeredRoute = nullptr;

HostObject* countRoutes(HostObject*, const HostSelector*, HostObject* attribute)
{
    const std::string* const name = sim::textOf(attribute);
    EXPECT_TRUE(name != nullptr && *name == "AVController_ActiveAudioRouteAttribute");
    ++routesAsked;
    return answeredRoute;
}

/// A hit test as the superclass sees it.
struct SuperHitTest {
    HostObject* receiver = nullptr;
    sim::Point point;
    HostObject* event = nullptr;
};

std::vector<SuperHitTest> superHitTests;
HostObject* hitInstead = nullptr;

HostObject* noteHitTest(HostObject* receiver, const HostSelector*, sim::Point point, HostObject* event)
{
    superHitTests.push_back({ receiver, point, event });
    return hitInstead;
}

struct Asking : testing::MixerTest {
    Asking()
    {
        storeLevels(0.5);
        routesAsked = 0;
        superHitTests.clear();
    }
    ~Asking() override
    {
        answeredRoute = nullptr;
        hitInstead = nullptr;
    }
};

TEST_F(Asking, ALevelIsHeldDrawnAndWrittenBeforeItIsSaved)
{
    show(panel);
    pass(1);
    std::vector<std::string> texts;
    std::vector<double> levels;
    std::vector<double> widths;
    device.traceSink = [&](const sim::Json& event) {
        if (event["event"] != "synchronize")
            return;
        texts.push_back(shownText(7));
        levels.push_back(slider(7).volume());
        widths.push_back(part(7, "_volumeView").frame().width);
    };
    slider(7).setVolumeLevel(0.25);
    device.traceSink = nullptr;
    EXPECT_EQ(texts, std::vector<std::string> { "25%" });
    EXPECT_EQ(levels, std::vector<double> { 0.25 });
    ASSERT_EQ(widths.size(), 1u);
    EXPECT_TRUE(testing::isNear(widths[0], sliderView(7).frame().width * 0.25));
}

TEST_F(Asking, TheRouteIsAskedForAfreshForEachComparisonAndNotWithoutOne)
{
    show(panel);
    pass(1);
    device.classes->platformClass("AVSystemController").methods[sim::selector("attributeForKey:")]
        = sim::implementation(countRoutes);
    const NSString unheard = text("AirTunes");
    answeredRoute = unheard.get();
    const std::pair<int, int> asked[] = { { 11, 1 }, { 0, 1 }, { 1, 2 }, { 2, 2 }, { 3, 1 }, { 4, 1 }, { 5, 2 },
        { 6, 2 }, { 7, 0 }, { 8, 0 }, { 9, 0 }, { 10, 0 } };
    for (const auto& [slot, count] : asked) {
        routesAsked = 0;
        device.home->pan(slot, dragChanged, 50);
        EXPECT_EQ(routesAsked, count) << "slot " << slot;
    }
    EXPECT_EQ(countOf("setVolume"), 3u) << "those for any route";
}

TEST_F(Asking, TheSuperclassesHitTestGetsThePointAndTheEventAndItsAnswerGoesToTheController)
{
    show(panel);
    pass(1);
    const PNOWindow window = controller().window();
    device.classes->platformClass("UIView").methods[sim::selector("hitTest:withEvent:")]
        = sim::implementation(noteHitTest);
    const auto event = adopt<NSObject>(device.classes->make<sim::Event>("UIEvent", std::int64_t { 0 }));
    for (HostObject* const hit : { static_cast<HostObject*>(&sliderView(3)), static_cast<HostObject*>(nullptr) }) {
        superHitTests.clear();
        hitInstead = hit;
        EXPECT_EQ(sim::send<HostObject*>(
                      window.get(), sim::selector("hitTest:withEvent:"), sim::Point { 12, 34 }, event.get()),
            hit);
        ASSERT_EQ(superHitTests.size(), 1u);
        EXPECT_EQ(superHitTests[0].receiver, window.get());
        EXPECT_EQ(superHitTests[0].point.x, 12);
        EXPECT_EQ(superHitTests[0].point.y, 34);
        EXPECT_EQ(superHitTests[0].event, event.get());
    }
}

} // namespace
} // namespace panotra
