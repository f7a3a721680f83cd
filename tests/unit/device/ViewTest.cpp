/// Geometry of views, the tree, autosizing.
#include "tests/unit/device/DeviceTest.h"

#include <cmath>

namespace panotra::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using ViewTest = DeviceTest;

constexpr Transform quarterTurn { 0, 1, -1, 0, 0, 0 };
constexpr Transform flat { 0, 0, 0, 0, 0, 0 };

TEST_F(ViewTest, AFrameIsCentreAndBounds)
{
    View& view = makeView({ 10, 20, 30, 40 });
    EXPECT_EQ(view.center, (Point { 25, 40 }));
    EXPECT_EQ(view.bounds, (Size { 30, 40 }));
    EXPECT_EQ(view.frame(), (Rect { 10, 20, 30, 40 }));
}

TEST_F(ViewTest, MovingTheCentreMovesTheFrame)
{
    View& view = makeView({ 10, 20, 30, 40 });
    view.setCenter({ 0, 0 });
    EXPECT_EQ(view.frame(), (Rect { -15, -20, 30, 40 }));
    EXPECT_EQ(view.bounds, (Size { 30, 40 }));
}

TEST_F(ViewTest, ScalingGrowsTheFrameAboutTheCentreAndLeavesTheBounds)
{
    View& view = makeView({ 10, 20, 30, 40 });
    view.setTransform({ 2, 0, 0, 0.5, 0, 0 });
    EXPECT_EQ(view.frame(), (Rect { -5, 30, 60, 20 }));
    EXPECT_EQ(view.bounds, (Size { 30, 40 }));
}

TEST_F(ViewTest, AQuarterTurnSwapsTheSidesOfTheFrame)
{
    View& view = makeView({ 0, 0, 30, 40 });
    view.setTransform(quarterTurn);
    EXPECT_EQ(view.frame(), (Rect { -5, 5, 40, 30 }));
}

TEST_F(ViewTest, TheFrameFollowsTheTransformsTranslation)
{
    View& view = makeView({ 0, 0, 10, 10 });
    view.setTransform({ 1, 0, 0, 1, 100, 200 });
    EXPECT_EQ(view.frame(), (Rect { 100, 200, 10, 10 }));
}

TEST_F(ViewTest, SettingTheFrameOfATurnedViewSwapsTheBounds)
{
    View& view = makeView({ 0, 0, 375, 667 });
    view.setTransform(quarterTurn);
    view.setFrame({ 0, 0, 375, 667 });
    EXPECT_EQ(view.bounds, (Size { 667, 375 }));
    EXPECT_EQ(view.center, (Point { 187.5, 333.5 }));
    EXPECT_EQ(view.frame(), (Rect { 0, 0, 375, 667 }));
}

TEST_F(ViewTest, SettingTheFrameOfAScaledViewDividesTheBounds)
{
    View& view = makeView();
    view.setTransform({ 0.5, 0, 0, 0.25, 0, 0 });
    view.setFrame({ 0, 0, 10, 10 });
    EXPECT_EQ(view.bounds, (Size { 20, 40 }));
}

TEST_F(ViewTest, SettingTheFrameUnderATransformThatFlattensMovesTheCentreOnly)
{
    View& view = makeView({ 0, 0, 30, 40 });
    view.setTransform(flat);
    view.setFrame({ 100, 100, 10, 20 });
    EXPECT_EQ(view.center, (Point { 105, 110 }));
    EXPECT_EQ(view.bounds, (Size { 30, 40 }));
    EXPECT_EQ(view.frame(), (Rect { 105, 110, 0, 0 }));
}

TEST_F(ViewTest, ANegativeWidthStays)
{
    View& view = makeView({ 0, 0, -22.5, 60 });
    EXPECT_EQ(view.frame(), (Rect { 0, 0, -22.5, 60 }));
    EXPECT_EQ(view.bounds, (Size { -22.5, 60 }));
    EXPECT_EQ(view.center, (Point { -11.25, 30 }));
}

TEST_F(ViewTest, APointOfTheSuperviewGoesThroughTheInverseOfTheTransform)
{
    View& view = makeView({ 100, 100, 40, 20 });
    view.setTransform({ 2, 0, 0, 2, 0, 0 });
    EXPECT_EQ(view.fromSuperview({ 120, 110 }), (Point { 20, 10 }));
    EXPECT_EQ(view.fromSuperview({ 80, 90 }), (Point { 0, 0 }));
    view.setTransform(quarterTurn);
    // What was to the right is below now.
    EXPECT_EQ(view.fromSuperview({ 120, 130 }), (Point { 40, 10 }));
    view.setTransform(flat);
    EXPECT_EQ(view.fromSuperview({ 120, 110 }), std::nullopt);
}

TEST_F(ViewTest, APointOfTheScreenGoesThroughEveryViewOnTheWay)
{
    View& root = makeView({ 10, 10, 100, 100 });
    View& middle = makeView({ 20, 20, 40, 40 });
    View& leaf = makeView({ 5, 5, 10, 10 });
    root.addSubview(middle);
    middle.addSubview(leaf);
    EXPECT_EQ(leaf.fromScreen({ 35, 36 }), (Point { 0, 1 }));
    middle.setTransform(flat);
    EXPECT_EQ(leaf.fromScreen({ 35, 36 }), std::nullopt);
}

TEST_F(ViewTest, AnAutosizingBackdropFillsItsSuperviewWhenAddedAndWheneverThatChanges)
{
    View& parent = makeView({ 5, 5, 100, 50 });
    BackdropView& backdrop = makeBackdrop(true);
    parent.addSubview(backdrop);
    EXPECT_EQ(backdrop.frame(), (Rect { 0, 0, 100, 50 }));
    parent.setFrame({ 5, 5, 80, 70 });
    EXPECT_EQ(backdrop.frame(), (Rect { 0, 0, 80, 70 }));
}

TEST_F(ViewTest, AutosizingLooksAtTheSuperviewsBoundsNotItsFrame)
{
    View& parent = makeView({ 0, 0, 100, 50 });
    parent.setTransform({ 0.5, 0, 0, 0.5, 0, 0 });
    BackdropView& backdrop = makeBackdrop(true);
    parent.addSubview(backdrop);
    EXPECT_EQ(backdrop.bounds, (Size { 100, 50 }));
}

TEST_F(ViewTest, WhatWasResizedByHandStaysUntilTheSuperviewChanges)
{
    View& parent = makeView({ 0, 0, 100, 50 });
    BackdropView& fill = makeBackdrop(true);
    parent.addSubview(fill);
    fill.setFrame({ 0, 0, 25, 50 });
    parent.setFrame({ 30, 30, 100, 50 });
    EXPECT_EQ(fill.bounds, (Size { 25, 50 }));
    parent.setFrame({ 30, 30, 100, 60 });
    EXPECT_EQ(fill.bounds, (Size { 100, 60 }));
}

TEST_F(ViewTest, ABackdropThatDoesNotAutosizeStaysAsItIs)
{
    View& parent = makeView({ 0, 0, 100, 50 });
    BackdropView& backdrop = makeBackdrop(false);
    parent.addSubview(backdrop);
    EXPECT_EQ(backdrop.bounds, Size {});
}

TEST_F(ViewTest, ABackdropsContentAlwaysFillsIt)
{
    BackdropView& backdrop = makeBackdrop(false);
    EXPECT_THAT(backdrop.subviews, ElementsAre(backdrop.content));
    EXPECT_EQ(backdrop.content->name, "contentView");
    backdrop.setFrame({ 10, 10, 30, 20 });
    EXPECT_EQ(backdrop.content->frame(), (Rect { 0, 0, 30, 20 }));
}

TEST_F(ViewTest, AutosizingReachesThroughSeveralBackdrops)
{
    View& parent = makeView();
    BackdropView& outer = makeBackdrop(true);
    BackdropView& inner = makeBackdrop(true);
    outer.content->addSubview(inner);
    parent.addSubview(outer);
    parent.setFrame({ 0, 0, 12, 34 });
    EXPECT_EQ(inner.content->bounds, (Size { 12, 34 }));
}

TEST_F(ViewTest, LabelsImagesAndBackdropsTakeNoTouchesPlainViewsDo)
{
    EXPECT_FALSE(make<Label>("UILabel").interaction);
    EXPECT_FALSE(make<ImageView>("UIImageView").interaction);
    BackdropView& backdrop = makeBackdrop(true);
    EXPECT_FALSE(backdrop.interaction);
    EXPECT_TRUE(backdrop.content->interaction);
    EXPECT_TRUE(makeView().interaction);
}

TEST_F(ViewTest, ASubviewIsAddedInFrontAndCanBeBroughtThere)
{
    View& parent = makeView();
    View& a = makeView();
    View& b = makeView();
    View& c = makeView();
    for (View* const view : { &a, &b, &c })
        parent.addSubview(*view);
    EXPECT_THAT(parent.subviews, ElementsAre(&a, &b, &c));
    parent.bringSubviewToFront(a);
    EXPECT_THAT(parent.subviews, ElementsAre(&b, &c, &a));
    parent.addSubview(b);
    EXPECT_THAT(parent.subviews, ElementsAre(&c, &a, &b));
    View& stranger = makeView();
    parent.bringSubviewToFront(stranger);
    EXPECT_THAT(parent.subviews, ElementsAre(&c, &a, &b));
}

TEST_F(ViewTest, AViewThatIsAddedElsewhereLeavesItsOldPlace)
{
    View& one = makeView();
    View& other = makeView();
    View& view = makeView();
    one.addSubview(view);
    other.addSubview(view);
    EXPECT_THAT(one.subviews, IsEmpty());
    EXPECT_EQ(view.superview, &other);
    EXPECT_EQ(view.references, 2u);
}

TEST_F(ViewTest, AViewIsNeverAddedToItselfOrBelowItself)
{
    View& parent = makeView();
    View& child = makeView();
    parent.addSubview(child);
    child.addSubview(parent);
    parent.addSubview(parent);
    EXPECT_EQ(parent.superview, nullptr);
    EXPECT_THAT(child.subviews, IsEmpty());
}

TEST_F(ViewTest, ASuperviewKeepsItsSubviewsAliveAndTakesThemAlong)
{
    const std::size_t before = device.classes->liveObjects();
    View& parent = makeView();
    View& child = makeView();
    View& kept = makeView();
    parent.addSubview(child);
    parent.addSubview(kept);
    release(&child);
    EXPECT_EQ(device.classes->liveObjects(), before + 3);
    release(&parent);
    EXPECT_EQ(device.classes->liveObjects(), before + 1);
    EXPECT_EQ(kept.superview, nullptr);
    release(&kept);
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(ViewTest, RemovingAViewThatIsInNoTreeDoesNothing)
{
    View& view = makeView();
    view.removeFromSuperview();
    EXPECT_EQ(view.references, 1u);
}

TEST_F(ViewTest, ABackdropGoesWithItsContentAndItsEffect)
{
    const std::size_t before = device.classes->liveObjects();
    BackdropView& backdrop = makeBackdrop(true);
    EXPECT_EQ(device.classes->liveObjects(), before + 3);
    release(&backdrop);
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(ViewTest, TheLayersObjectIsTheSameEveryTimeAndOutlivesItsViewHarmlessly)
{
    View& view = makeView();
    LayerObject& layer = view.layerObject();
    EXPECT_EQ(&view.layerObject(), &layer);
    retain(&layer);
    release(&view);
    EXPECT_EQ(layer.view, nullptr);
    send<void>(&layer, selector("setContinuousCorners:"), true);
}

TEST_F(ViewTest, AnImageViewKeepsItsImageAlive)
{
    const std::size_t before = device.classes->liveObjects();
    ImageView& view = make<ImageView>("UIImageView");
    Image& image = make<Image>("UIImage", "speaker", "");
    view.setImage(&image);
    release(&image);
    EXPECT_EQ(view.image->baseName, "speaker");
    view.setImage(view.image);
    EXPECT_EQ(device.classes->liveObjects(), before + 2);
    release(&view);
    EXPECT_EQ(device.classes->liveObjects(), before);
}

} // namespace
} // namespace panotra::sim
