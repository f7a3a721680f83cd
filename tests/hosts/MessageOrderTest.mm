/// The order in which the mixer speaks to the process: as it is built, laid out and taken down.
#include "tests/hosts/MixerHostTest.h"

#include "tests/hosts/Peers.h"
#include "tests/hosts/classes/UIKit.h"
#include "tests/support/KnownFacts.h"

namespace panotra::testing {

namespace {

using Lines = std::vector<std::string>;

std::string numbered(const char* name, int number)
{
    return name + std::to_string(number);
}

/// Lines for one thing after the other.
class Expected {
public:
    Expected& say(const std::string& name, const char* selector)
    {
        m_lines.push_back(name + ' ' + selector);
        return *this;
    }
    Expected& say(const std::string& name, std::initializer_list<const char*> selectors)
    {
        for (const char* const selector : selectors)
            say(name, selector);
        return *this;
    }
    Expected& sayToGroups(const char* name, std::initializer_list<const char*> selectors)
    {
        for (int group = 0; group < 3; ++group)
            say(numbered(name, group), selectors);
        return *this;
    }
    Expected& sayToSliders(const char* selector)
    {
        for (const int slot : slotsInOrder())
            say(numbered("_volumeView", slot), selector);
        return *this;
    }
    /// Each is made, which adds its background to it, and then added to its group.
    Expected& addSliders()
    {
        const std::vector<int> slots = slotsInOrder();
        for (std::size_t i = 0; i < slots.size(); ++i) {
            say(numbered("_volumeView", slots[i]), "addSubview:");
            say(numbered("_groupView", static_cast<int>(i / 4)), "addSubview:");
        }
        return *this;
    }
    const Lines& lines() const { return m_lines; }

private:
    Lines m_lines;
};

/// The views that leave and go, in that order.
Lines viewsThatLeave()
{
    Lines names;
    for (int slot = static_cast<int>(knownSlotCount) - 1; slot >= 0; --slot)
        names.push_back(numbered("_volumeView", slot));
    for (const char* const kind : { "_groupLabel", "_groupView" }) {
        for (int group = 2; group >= 0; --group)
            names.push_back(numbered(kind, group));
    }
    for (const char* const name : { "_rootBackdropView", "_containerView", "_rootView" })
        names.emplace_back(name);
    return names;
}

class MessageOrder : public MixerHostTest {
protected:
    /// Everything by which a view is made, placed and looked after.
    void hearBuilding()
    {
        hear({ "init", "initWithFrame:", "setFrame:", "setTransform:", "setCenter:", "setAlpha:", "setText:",
            "setTextColor:", "setBackgroundColor:", "addSubview:", "bringSubviewToFront:", "setWindowLevel:",
            "makeKeyAndVisible", "transitionToStyle:" });
    }
};

} // namespace

// Building.

TEST_F(MessageOrder, OfBuildingThePanel)
{
    launch();
    hearBuilding();
    show(panel);
    Expected expected;
    expected.say("_window", "setWindowLevel:")
        .say("_rootView", { "initWithFrame:", "setTransform:", "setFrame:" })
        .say("_containerView", "init")
        .say("_rootView", "addSubview:")
        .say("_containerView", { "setFrame:", "setAlpha:", "addSubview:" })
        .sayToGroups("_groupView", { "init" });
    for (int group = 0; group < 3; ++group)
        expected.say(numbered("_groupLabel", group), { "init", "setText:" })
            .say(numbered("_groupView", group), "addSubview:");
    expected.addSliders()
        .say("_window", { "addSubview:", "addSubview:", "bringSubviewToFront:" })
        .say("_rootBackdropView", "transitionToStyle:")
        .sayToGroups("_groupLabel", { "setTextColor:" })
        .sayToSliders("setTransform:")
        .say("_containerView", { "setTransform:", "setFrame:" })
        .sayToGroups("_groupView", { "setFrame:" })
        .sayToSliders("setFrame:")
        .sayToGroups("_groupLabel", { "setFrame:" })
        .say("_containerView", "setTransform:")
        .say("_window", "makeKeyAndVisible")
        .say("_containerView", "setAlpha:");
    EXPECT_EQ(heardTo(namesOfViews()), expected.lines());
}

TEST_F(MessageOrder, OfBuildingTheBanner)
{
    device.preferences->set("net.qorvath.panotra", "dismissOnTouch", true);
    launch();
    hearBuilding();
    show(banner);
    Expected expected;
    expected.say("_window", "setWindowLevel:")
        .say("_rootView", { "initWithFrame:", "setTransform:", "setFrame:" })
        .say("_containerView", "init")
        .say("_rootView", "addSubview:")
        .say("_containerView", { "setFrame:", "setAlpha:" })
        .say("_rootView", "setBackgroundColor:")
        .say("_rootBackdropView", "transitionToStyle:")
        .say("_containerView", "addSubview:")
        .sayToGroups("_groupView", { "initWithFrame:" });
    for (int group = 0; group < 3; ++group)
        expected.say(numbered("_groupLabel", group), { "init", "setFrame:", "setText:" })
            .say(numbered("_groupView", group), "addSubview:");
    expected.addSliders()
        .sayToSliders("setFrame:")
        .say("_window", { "addSubview:", "bringSubviewToFront:" })
        .say("_rootBackdropView", "transitionToStyle:")
        .sayToGroups("_groupLabel", { "setTextColor:" })
        .sayToSliders("setTransform:")
        .say("_containerView", { "setCenter:", "setTransform:" })
        .say("_window", "makeKeyAndVisible")
        .say("_containerView", "setAlpha:");
    EXPECT_EQ(heardTo(namesOfViews()), expected.lines());
}

// Layout.

TEST_F(MessageOrder, OfLayingOutThePanel)
{
    launch();
    show(panel);
    hear({ "setFrame:", "setTransform:", "setCenter:" });
    turnTo(3);
    Expected expected;
    expected.say("_rootView", { "setTransform:", "setFrame:" })
        .sayToSliders("setTransform:")
        .say("_containerView", { "setTransform:", "setFrame:" })
        .sayToGroups("_groupView", { "setFrame:" })
        .sayToSliders("setFrame:")
        .sayToGroups("_groupLabel", { "setFrame:" })
        .say("_containerView", "setTransform:");
    EXPECT_EQ(heardTo(namesOfViews()), expected.lines());
}

TEST_F(MessageOrder, OfMovingTheBanner)
{
    launch();
    show(banner);
    hear({ "setFrame:", "setTransform:", "setCenter:" });
    turnTo(3);
    Expected expected;
    expected.say("_rootView", { "setTransform:", "setFrame:" })
        .sayToSliders("setTransform:")
        .say("_containerView", "setCenter:");
    EXPECT_EQ(heardTo(namesOfViews()), expected.lines());
}

TEST_F(MessageOrder, OfReturningAllSlidersToRest)
{
    launch();
    show(panel);
    hear({ "setTransform:" });
    explicitChange(1.0f);
    EXPECT_EQ(heardTo(namesOfViews()), Expected().sayToSliders("setTransform:").lines());
}

// Levels.

TEST_F(MessageOrder, OfDrawingALevelAndSavingIt)
{
    launch();
    show(panel);
    Names names = namesOfSlider(0);
    names[objc_lookUpClass("NSUserDefaults")] = "NSUserDefaults";
    hear({ "setFrame:", "setText:", "alloc" });
    explicitChange(0.75f);
    EXPECT_EQ(heardTo(names), (Lines { "_volumeView setFrame:", "_label1 setText:", "NSUserDefaults alloc" }));
}

// The end.

TEST_F(MessageOrder, OfTheTearDownEveryViewLeavesBeforeTheFirstGoesAndTheWindowGoesLast)
{
    launch();
    for (const int style : { panel, banner }) {
        show(style);
        const Names names = namesOfViews();
        hear({ "removeFromSuperview", "release" });
        dismiss();
        ASSERT_FALSE(isShown());
        Expected expected;
        for (const char* const selector : { "removeFromSuperview", "release" }) {
            for (const std::string& name : viewsThatLeave())
                expected.say(name, selector);
        }
        expected.say("_window", "release");
        const Lines heard = heardTo(names);
        EXPECT_EQ(from(heard, expected.lines().front(), expected.lines().size()), expected.lines())
            << "style " << style;
        for (const char* const left : { "_window removeFromSuperview", "_blurBackdropView removeFromSuperview" })
            EXPECT_EQ(from(heard, left, 1), Lines {});
    }
}

TEST_F(MessageOrder, OfTheEndOfASlider)
{
    launch();
    for (const int style : { panel, banner }) {
        show(style);
        const Names names = namesOfSlider(3);
        hear({ "removeGestureRecognizer:", "removeFromSuperview", "release" });
        dismiss();
        Expected expected;
        expected.say("slider", "removeGestureRecognizer:");
        if (style == banner)
            expected.say("_imageView", "removeFromSuperview");
        expected.say("_backdropView", "removeFromSuperview").say("_volumeView", "removeFromSuperview");
        if (style == panel)
            expected.say("_label0", "removeFromSuperview");
        expected.say("_label1", "removeFromSuperview");
        if (style == banner)
            expected.say("_imageView", "release");
        expected.say("_volumePanRecognizer", "release").say("_backdropView", "release").say("_volumeView", "release");
        if (style == panel)
            expected.say("_label0", "release");
        expected.say("_label1", "release");
        EXPECT_EQ(from(heardTo(names), expected.lines().front(), expected.lines().size()), expected.lines())
            << "style " << style;
    }
}

// Frames that the superclass adjusts.

namespace {

IMP setFrameUnadjusted = nullptr;
std::map<void*, DeviceRect> framesSet;

bool isMediaSlider(id view)
{
    const auto* const peer = hosts::peerAs<sim::View>(view);
    return std::string(class_getName(object_getClass(view))) == "PNOVolumeView" && (peer->tag <= 2 || peer->tag == 11);
}

/// As a system that keeps sliders off the edge.
void setFrameAdjusted(id self, SEL selector, DeviceRect frame)
{
    if (isMediaSlider(self))
        frame = { frame.x + 3, frame.y + 2, frame.width - 5, frame.height - 4 };
    framesSet[self] = frame;
    reinterpret_cast<void (*)(id, SEL, DeviceRect)>(setFrameUnadjusted)(self, selector, frame);
}

} // namespace

TEST_F(MessageOrder, EverySliderTakesTheFrameThatTheMediaSliderOfItsCellHas)
{
    setFrameUnadjusted = hook("UIView", "setFrame:", reinterpret_cast<IMP>(setFrameAdjusted));
    launch();
    const int cells[][3] = { { 11, 3, 7 }, { 0, 4, 8 }, { 1, 5, 9 }, { 2, 6, 10 } };
    for (const int style : { panel, banner }) {
        framesSet.clear();
        show(style);
        for (const auto& [media, call, extra] : cells) {
            const auto frameOf = [&](int slot) -> const DeviceRect& {
                return framesSet.at(hosts::hostObjectFor(held(numbered("_volumeView", slot))));
            };
            for (const int slot : { call, extra }) {
                EXPECT_NEAR(frameOf(slot).x, frameOf(media).x, 1e-9) << "slot " << slot << " in style " << style;
                EXPECT_NEAR(frameOf(slot).y, frameOf(media).y, 1e-9);
                EXPECT_NEAR(frameOf(slot).width, frameOf(media).width, 1e-9);
                EXPECT_NEAR(frameOf(slot).height, frameOf(media).height, 1e-9);
            }
        }
        dismiss();
    }
}

} // namespace panotra::testing
