/// The end of a mixer: what leaves the tree, what goes, in which order, and what stays.
#include "tests/support/KnownFacts.h"
#include "tests/support/MixerTest.h"

namespace panotra {
namespace {

/// What is seen as a slider goes: its number, and what still hung in a tree.
struct SliderEnd {
    std::int64_t slot;
    bool rootWasInWindow;
    bool windowWasHeld;
};

std::vector<SliderEnd> sliderEnds;
sim::View* rootOfTheMixer = nullptr;
void (*destroySlider)(HostObject*, void*) = nullptr;

void noteAndDestroySlider(HostObject* self, void* memory)
{
    const sim::Device& device = *sim::Device::current();
    sliderEnds.push_back({ static_cast<const sim::View*>(self)->tag, rootOfTheMixer->superview != nullptr,
        device.classes->heldInField("_window") != nullptr });
    destroySlider(self, memory);
}

struct TearDownOfTheMixer : testing::MixerTest {
    TearDownOfTheMixer()
    {
        storeLevels(0.5);
        sliderEnds.clear();
    }

    /// The fields whose views leave their superviews, in the order in which they do.
    static std::vector<std::string> fieldsThatLeave()
    {
        std::vector<std::string> names;
        for (int slot = static_cast<int>(testing::knownSlotCount) - 1; slot >= 0; --slot)
            names.push_back("_volumeView" + std::to_string(slot));
        for (const char* const kind : { "_groupLabel", "_groupView" }) {
            for (int group = 2; group >= 0; --group)
                names.push_back(kind + std::to_string(group));
        }
        for (const char* const name : { "_rootBackdropView", "_containerView", "_rootView" })
            names.emplace_back(name);
        return names;
    }
    /// Everything that lives in the process, but for what waits in the pool.
    std::size_t living()
    {
        device.classes->drainAutoreleasePool();
        return device.classes->liveObjects();
    }
};

TEST_F(TearDownOfTheMixer, EveryViewLeavesItsSuperviewThoughAnotherProgramHoldsIt)
{
    for (const int style : { panel, banner }) {
        show(style);
        pass(1);
        std::vector<std::pair<std::string, UIView>> held;
        for (const std::string& name : fieldsThatLeave())
            held.emplace_back(name, retained<UIView>(&view(name)));
        const PNOWindow window = controller().window();
        for (const auto& [name, each] : held)
            ASSERT_TRUE(each.superview()) << name;
        dismiss();
        for (const auto& [name, each] : held) {
            EXPECT_FALSE(each.superview()) << name << " in style " << style;
            EXPECT_FALSE(controller().valueForKey(name.c_str())) << name;
        }
        // The blur is left in the window: it goes out of sight with it.
        const auto& left = dynamic_cast<const sim::View&>(*window.get()).subviews;
        EXPECT_EQ(namesOf(left),
            style == panel ? (std::vector<std::string> { "_blurBackdropView" }) : std::vector<std::string> {});
    }
}

TEST_F(TearDownOfTheMixer, NothingIsLetGoBeforeTheRootHasLeftTheWindowAndSlidersGoFromTheLastToTheFirst)
{
    show(panel);
    pass(1);
    rootOfTheMixer = &view("_rootView");
    HostClass& sliders = *device.classes->find("PNOVolumeView");
    destroySlider = std::exchange(sliders.destroy, noteAndDestroySlider);
    dismiss();
    sliders.destroy = destroySlider;
    ASSERT_EQ(sliderEnds.size(), volumeSlotCount);
    for (std::size_t i = 0; i < sliderEnds.size(); ++i) {
        EXPECT_EQ(sliderEnds[i].slot, static_cast<std::int64_t>(volumeSlotCount - 1 - i));
        EXPECT_FALSE(sliderEnds[i].rootWasInWindow);
        EXPECT_TRUE(sliderEnds[i].windowWasHeld) << "the window goes last";
    }
}

TEST_F(TearDownOfTheMixer, TwentyShowingsLeaveNothingBehindThatOneDoesNot)
{
    const auto live = [this](int style) {
        show(style);
        announce("Ringtone", "ExplicitVolumeChange", 0.25f);
        device.home->pan(7, 1, 50);
        device.home->pan(7, 3, 60);
        dismiss();
    };
    for (const int style : { banner, 2, panel })
        live(style);
    const std::size_t before = living();
    for (int time = 0; time < 20; ++time)
        live(time % 3);
    live(panel);
    EXPECT_EQ(living(), before);
    EXPECT_EQ(device.classes->liveObjects("_UIBackdropView"), 1u) << "the blur of the last panel";
}

TEST_F(TearDownOfTheMixer, ARecogniserGoesWithItsSlider)
{
    show(panel);
    pass(1);
    EXPECT_EQ(device.classes->liveObjects("UIPanGestureRecognizer"), volumeSlotCount);
    auto& held = *sliderView(7).recognizers.front();
    const auto counted = retained<NSObject>(&held);
    dismiss();
    EXPECT_EQ(device.classes->liveObjects("UIPanGestureRecognizer"), 1u) << "the one that is held";
    EXPECT_EQ(held.view, nullptr);
    forgetEvents();
    held.send(1);
    EXPECT_TRUE(events.empty()) << "a finger on a slider that is gone tells nobody";
}

TEST_F(TearDownOfTheMixer, AMixerThatIsShownAtAllIsLeftAloneViewByView)
{
    show(panel);
    pass(1);
    const std::size_t before = living();
    view("_containerView").setAlpha(0.5);
    controller().releaseObjects();
    EXPECT_EQ(living(), before);
    for (const std::string& name : fieldsThatLeave())
        EXPECT_NE(view(name).superview, nullptr) << name;
    view("_containerView").setAlpha(1);
}

} // namespace
} // namespace panotra
