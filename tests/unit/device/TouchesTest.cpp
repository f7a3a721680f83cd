/// One finger, hit tests and the pan recogniser.
#include "tests/unit/device/DeviceTest.h"

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What the slider's recogniser told it: its state and where the finger was in the slider.
struct Drag {
    std::int64_t state;
    Point location;
    friend bool operator==(const Drag&, const Drag&) = default;
};

std::vector<Drag> drags;
View* sliderUnderTest = nullptr;

void handlePan(HostObject*, const HostSelector*, HostObject* recognizer)
{
    const auto& pan = static_cast<const PanRecognizer&>(*recognizer);
    drags.push_back({ pan.state, pan.locationIn(sliderUnderTest) });
}

int hitTests = 0;
HostClass::Implementation previousHitTest = nullptr;

/// A window's override that traces, and lets nothing through that is at the left.
HostObject* hitTestFromTen(HostObject* self, const HostSelector* name, Point point, HostObject* event)
{
    ++hitTests;
    Device::current()->trace("windowShown");
    HostObject* const hit = call<HostObject*>(previousHitTest, self, name, point, event);
    return point.x < 10 ? nullptr : hit;
}

class TouchesTest : public DeviceTest {
protected:
    TouchesTest()
    {
        drags.clear();
        hitTests = 0;
        sliderUnderTest = &slider;
        target.isa->methods[selector("handlePan:")] = implementation(handlePan);
        PanRecognizer& recognizer = make<PanRecognizer>("UIPanGestureRecognizer", &target, selector("handlePan:"));
        slider.addRecognizer(recognizer);
        release(&recognizer);
        window.setFrame({ 0, 0, 375, 667 });
        window.addSubview(slider);
        slider.addSubview(inner);
        makeHolder({ { "_window", &window }, { "_volumeView3", &slider } });
    }

    Window& window = make<Window>("UIWindow");
    View& slider = makeView({ 100, 100, 200, 50 });
    View& inner = makeView({ 50, 0, 50, 50 });
    HostObject& target = makeRecorder();
};

constexpr std::int64_t began = 1;
constexpr std::int64_t changed = 2;
constexpr std::int64_t ended = 3;

TEST_F(TouchesTest, ATouchReportsTheViewThatIsHit)
{
    device.touches->down(110, 120);
    device.touches->down(20, 20);
    device.touches->down(400, 20);
    EXPECT_EQ(events,
        (std::vector<Json> {
            { { "t", 0.0 }, { "event", "hit" }, { "x", 110.0 }, { "y", 120.0 }, { "view", "_volumeView3" } },
            { { "t", 0.0 }, { "event", "hit" }, { "x", 20.0 }, { "y", 20.0 }, { "view", "_window" } },
            { { "t", 0.0 }, { "event", "hit" }, { "x", 400.0 }, { "y", 20.0 }, { "view", nullptr } },
        }));
}

TEST_F(TouchesTest, TheWindowsOwnHitTestIsAskedOnceAndReportedAfterwards)
{
    HostClass& override = device.classes->add("OverlayWindow", "UIWindow");
    device.classes->replace(override, selector("hitTest:withEvent:"), implementation(hitTestFromTen), &previousHitTest);
    window.isa = &override;
    events.clear();
    device.touches->down(5, 5);
    EXPECT_EQ(hitTests, 1);
    EXPECT_THAT(eventNames(), ElementsAre("windowShown", "hit"));
    EXPECT_EQ(events[1]["view"], nullptr);
    device.touches->down(110, 120);
    EXPECT_EQ(events[3]["view"], "_volumeView3");
}

TEST_F(TouchesTest, TenPointsAreNoDragYet)
{
    device.touches->down(110, 120);
    device.touches->move(120, 120);
    device.touches->move(104, 128);
    device.touches->up();
    EXPECT_THAT(drags, IsEmpty());
}

TEST_F(TouchesTest, TheFirstMoveFartherThanTenPointsBeginsTheDrag)
{
    device.touches->down(110, 120);
    device.touches->move(115, 120);
    device.touches->move(118, 127);
    device.touches->move(111, 120);
    device.touches->up();
    EXPECT_THAT(
        drags, ElementsAre(Drag { began, { 18, 27 } }, Drag { changed, { 11, 20 } }, Drag { ended, { 11, 20 } }));
}

TEST_F(TouchesTest, AViewInsideTheSliderDragsTheSlider)
{
    device.touches->down(160, 120);
    device.touches->move(200, 120);
    EXPECT_THAT(drags, ElementsAre(Drag { began, { 100, 20 } }));
}

TEST_F(TouchesTest, AFingerBesideTheSliderDragsNothing)
{
    device.touches->down(20, 20);
    device.touches->move(150, 120);
    device.touches->up();
    EXPECT_THAT(drags, IsEmpty());
}

TEST_F(TouchesTest, WhereTheFingerIsGoesThroughTheTransformsOfTheMoment)
{
    device.touches->down(110, 120);
    device.touches->move(200, 125);
    slider.setTransform({ 2, 0, 0, 2, 0, 0 });
    device.touches->up();
    EXPECT_THAT(drags, ElementsAre(Drag { began, { 100, 25 } }, Drag { ended, { 100, 25 } }));
    slider.setTransform({ 0, 0, 0, 0, 0, 0 });
    EXPECT_EQ(slider.recognizers.front()->locationIn(&slider), Point {});
    EXPECT_EQ(slider.recognizers.front()->locationIn(nullptr), (Point { 200, 125 }));
}

TEST_F(TouchesTest, AScaledSliderSeesTheFingerInItsOwnPoints)
{
    slider.setTransform({ 2, 0, 0, 2, 0, 0 });
    device.touches->down(110, 120);
    device.touches->move(300, 125);
    EXPECT_THAT(drags, ElementsAre(Drag { began, { 150, 25 } }));
}

TEST_F(TouchesTest, NothingIsSentOnceTheSliderIsTornDown)
{
    device.touches->down(110, 120);
    device.touches->move(200, 120);
    ASSERT_EQ(drags.size(), 1u);
    slider.removeFromSuperview();
    device.touches->move(210, 120);
    device.touches->up();
    EXPECT_EQ(drags.size(), 1u);
}

TEST_F(TouchesTest, ASliderThatIsGoneUnderTheFingerIsHarmless)
{
    device.touches->down(110, 120);
    slider.removeFromSuperview();
    release(&slider);
    device.touches->move(200, 120);
    device.touches->up();
    EXPECT_THAT(drags, IsEmpty());
}

TEST_F(TouchesTest, ASecondDownReplacesTheFirstWithoutEndingIt)
{
    device.touches->down(110, 120);
    device.touches->move(200, 120);
    device.touches->down(20, 20);
    device.touches->move(150, 120);
    device.touches->up();
    EXPECT_THAT(drags, ElementsAre(Drag { began, { 100, 20 } }));
}

TEST_F(TouchesTest, MovingOrLiftingNoFingerDoesNothing)
{
    device.touches->move(200, 120);
    device.touches->up();
    device.touches->down(110, 120);
    device.touches->move(200, 120);
    device.touches->up();
    device.touches->move(210, 120);
    device.touches->up();
    EXPECT_EQ(drags.size(), 2u);
    EXPECT_EQ(eventsOf("hit").size(), 1u);
}

TEST_F(TouchesTest, APanGivesItsXAsItStands)
{
    slider.setTransform({ 2, 0, 0, 2, 0, 0 });
    device.home->pan(3, 4, -40);
    EXPECT_THAT(drags, ElementsAre(Drag { 4, { -40, 0 } }));
    EXPECT_FALSE(slider.recognizers.front()->fixedX.has_value());
}

TEST_F(TouchesTest, APanOnASliderThatDoesNotExistDoesNothing)
{
    device.home->pan(4, began, 10);
    EXPECT_THAT(drags, IsEmpty());
}

TEST(TouchesWithoutAWindow, HitNothing)
{
    Device device;
    std::vector<Json> events;
    device.traceSink = [&](const Json& event) {
        events.push_back(event);
    };
    device.touches->down(1, 2);
    device.touches->move(100, 200);
    device.touches->up();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0]["view"], nullptr);
}

} // namespace
} // namespace panotra::sim
