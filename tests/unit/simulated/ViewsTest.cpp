/// Views, layers, labels, images and backdrops as the logic sees them.
#include "platform/UIBackdropView.h"
#include "platform/UIGestureRecognizer.h"
#include "platform/UIImage.h"
#include "platform/UILabel.h"
#include "platform/UIScreen.h"
#include "platform/UIWindow.h"
#include "tests/unit/simulated/SeamTest.h"

namespace panotra {
namespace {

using ::testing::ElementsAre;

class ViewsTest : public SeamTest {
protected:
    template <typename View> static const View& deviceView(const UIView& handle)
    {
        return dynamic_cast<const View&>(*handle.get());
    }
    static NSString text(const char* utf8) { return NSString::stringWithUTF8String(utf8); }
};

TEST_F(ViewsTest, GeometryGoesBothWays)
{
    const UIView view = UIView::initWithFrame(CGRectMake(10, 20, 30, 40));
    EXPECT_EQ(view.frame(), CGRectMake(10, 20, 30, 40));
    view.setCenter({ 100, 100 });
    EXPECT_EQ(view.center(), (CGPoint { 100, 100 }));
    EXPECT_EQ(view.bounds(), CGRectMake(0, 0, 30, 40));
    view.setTransform(CGAffineTransformMakeScale(2, 3));
    EXPECT_EQ(view.frame(), CGRectMake(70, 40, 60, 120));
}

TEST_F(ViewsTest, PropertiesReachTheView)
{
    const UIView view = UIView::init();
    view.setAlpha(0.25);
    view.setHidden(true);
    view.setTag(11);
    view.setUserInteractionEnabled(false);
    view.setBackgroundColor(UIColor::colorWithRed(0.95, 0.9, 0.85, 0.006));
    const auto& shown = deviceView<sim::View>(view);
    EXPECT_EQ(view.alpha(), 0.25);
    EXPECT_EQ(view.tag(), 11);
    EXPECT_TRUE(shown.hidden);
    EXPECT_FALSE(shown.interaction);
    EXPECT_EQ(shown.background, (sim::Rgba { 0.95, 0.9, 0.85, 0.006 }));
    view.setBackgroundColor(nullptr);
    EXPECT_EQ(shown.background, std::nullopt);
}

TEST_F(ViewsTest, TheTreeIsBuiltAndTakenApart)
{
    const std::size_t before = device.classes->liveObjects();
    {
        const UIView parent = UIView::init();
        const UIView child = UIView::init();
        parent.addSubview(child);
        parent.addSubview(UIView::init());
        EXPECT_EQ(child.superview(), parent);
        parent.bringSubviewToFront(child);
        EXPECT_EQ(deviceView<sim::View>(parent).subviews.back(), child.get());
        child.removeFromSuperview();
        EXPECT_FALSE(child.superview());
        parent.addSubview(nullptr);
        EXPECT_EQ(deviceView<sim::View>(parent).subviews.size(), 1u);
    }
    EXPECT_EQ(device.classes->liveObjects(), before);
}

TEST_F(ViewsTest, ALayerDrawsItsViewsEdges)
{
    const UIView view = UIView::init();
    const CALayer layer = view.layer();
    EXPECT_TRUE(layer.respondsToSelector("setContinuousCorners:"));
    layer.setMasksToBounds(true);
    layer.setCornerRadius(10);
    layer.setContinuousCorners(true);
    layer.setBorderWidth(1.25);
    layer.setBorderColor(UIColor::blackColor());
    const sim::Layer& drawn = deviceView<sim::View>(view).layer;
    EXPECT_TRUE(drawn.masksToBounds);
    EXPECT_EQ(drawn.cornerRadius, 10);
    EXPECT_TRUE(drawn.continuousCorners);
    EXPECT_EQ(drawn.borderWidth, 1.25);
    EXPECT_EQ(drawn.borderColor, (sim::Rgba { 0, 0, 0, 1 }));
    layer.setBorderColor(nullptr);
    EXPECT_EQ(drawn.borderColor, std::nullopt);
}

TEST_F(ViewsTest, ALayerThatOutlivesItsViewDoesNothing)
{
    CALayer layer;
    {
        const UIView view = UIView::init();
        layer = view.layer();
    }
    layer.setCornerRadius(10);
    layer.setContinuousCorners(true);
    layer.removeAllAnimations();
}

TEST_F(ViewsTest, AnAnimationRunsItsBlockAtOnceAndCanBeInterruptedByItsLayer)
{
    const UIView view = UIView::init();
    std::vector<bool> ends;
    UIView::animateWithDuration(
        0.4, 0, UIViewAnimationOptionAllowUserInteraction, [view] { view.setAlpha(0); },
        [&](bool finished) { ends.push_back(finished); });
    EXPECT_EQ(view.alpha(), 0);
    view.layer().removeAllAnimations();
    EXPECT_THAT(ends, ElementsAre(false));
}

TEST_F(ViewsTest, AnAnimationOfAnAbsentViewStillRuns)
{
    const UIView absent;
    bool ended = false;
    UIView::animateWithDuration(
        0.2, 0.05, 2, [=] { absent.setAlpha(0); }, [&](bool) { ended = true; });
    absent.layer().removeAllAnimations();
    EXPECT_FALSE(ended);
    device.runLoop->wait(0.25);
    EXPECT_TRUE(ended);
}

TEST_F(ViewsTest, ALabelHasTextFontAlignmentAndColour)
{
    const UILabel label = UILabel::init();
    const auto& shown = deviceView<sim::Label>(label);
    EXPECT_EQ(shown.text, std::nullopt);
    EXPECT_EQ(shown.textColor, std::nullopt);
    label.setText(text("50%"));
    label.setTextAlignment(NSTextAlignmentCenter);
    label.setFont(UIFont::systemFontOfSize(14, UIFontWeightLight));
    label.setTextColor(UIColor::whiteColor());
    EXPECT_EQ(shown.text, "50%");
    EXPECT_EQ(shown.alignment, 1);
    EXPECT_EQ(shown.fontSize, 14);
    EXPECT_EQ(shown.fontWeight, "light");
    EXPECT_EQ(shown.textColor, (sim::Rgba { 1, 1, 1, 1 }));
    label.setFont(UIFont::systemFontOfSize(15, 0));
    EXPECT_EQ(shown.fontWeight, "regular");
    label.setText(nullptr);
    label.setTextColor(nullptr);
    label.setFont(nullptr);
    EXPECT_EQ(shown.text, std::nullopt);
    EXPECT_EQ(shown.textColor, std::nullopt);
    EXPECT_EQ(shown.fontSize, 15);
}

TEST_F(ViewsTest, AnImageOfTheBundleIsShownAsATemplate)
{
    const NSBundle bundle = NSBundle::bundleWithPath("/Library/PreferenceBundles/Panotra.bundle");
    const UIImage image = UIImage::imageNamed(text("speaker"), bundle);
    EXPECT_FALSE(UIImage::imageNamed(text("speaker"), nullptr));
    const UIImage pattern = image.imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
    const UIImageView view = UIImageView::initWithImage(pattern);
    view.setTintColor(UIColor::blackColor());
    const auto& shown = deviceView<sim::ImageView>(view);
    EXPECT_EQ(shown.image->baseName, "speaker");
    EXPECT_TRUE(shown.image->isTemplate);
    EXPECT_FALSE(dynamic_cast<const sim::Image&>(*image.get()).isTemplate);
    EXPECT_EQ(shown.tint, (sim::Rgba { 0, 0, 0, 1 }));
    EXPECT_TRUE(UIImagePNGRepresentation(image));
    EXPECT_EQ(deviceView<sim::ImageView>(UIImageView::initWithImage(nullptr)).image, nullptr);
}

TEST_F(ViewsTest, ABackdropHasTheStyleItWasMadeWithUntilItChanges)
{
    const UIBackdropView backdrop
        = UIBackdropView::initWithFrame(CGRect(), true, UIBackdropViewSettings::settingsForStyle(-2, 100));
    const auto& shown = deviceView<sim::BackdropView>(backdrop);
    EXPECT_EQ(shown.style, -2);
    EXPECT_EQ(shown.quality, 100);
    EXPECT_TRUE(shown.autosizes);
    EXPECT_EQ(shown.blurRadius, std::nullopt);
    EXPECT_EQ(shown.effect->alpha, 1);
    backdrop.transitionToStyle(2010);
    backdrop.setBlurRadius(5);
    backdrop.effectView().setAlpha(0);
    EXPECT_EQ(shown.style, 2010);
    EXPECT_EQ(shown.blurRadius, 5);
    EXPECT_EQ(shown.effect->alpha, 0);
    backdrop.setFrame(CGRectMake(0, 0, 30, 40));
    EXPECT_EQ(backdrop.contentView().bounds(), CGRectMake(0, 0, 30, 40));
}

TEST_F(ViewsTest, ARecogniserIsKeptByItsViewAndTellsItsTarget)
{
    static std::int64_t state = 0;
    static CGPoint location;
    HostClass& isa = device.classes->add("Target", "UIView");
    isa.methods[sim::selector("pan:")] = sim::implementation(+[](id self, SEL, id recognizer) {
        const auto pan = retained<UIPanGestureRecognizer>(recognizer);
        state = static_cast<std::int64_t>(pan.state());
        location = pan.locationInView(retained<UIView>(self));
    });
    const auto view = adopt<UIView>(device.classes->instantiate(isa));
    const auto pan = UIPanGestureRecognizer::initWithTarget(view, "pan:");
    EXPECT_EQ(view.get()->references, 1u);
    view.addGestureRecognizer(pan);
    EXPECT_EQ(pan.get()->references, 2u);
    auto& recognizer = dynamic_cast<sim::PanRecognizer&>(*pan.get());
    recognizer.fixedX = 12;
    recognizer.send(2);
    EXPECT_EQ(state, 2);
    EXPECT_EQ(location, (CGPoint { 12, 0 }));
    view.removeGestureRecognizer(pan);
    EXPECT_EQ(pan.get()->references, 1u);
    recognizer.send(3);
    EXPECT_EQ(state, 2);
}

TEST_F(ViewsTest, AWindowIsShownOnceAsked)
{
    const auto window = adopt<UIWindow>(device.classes->make<sim::Window>("UIWindow"));
    window.setWindowLevel(UIWindowLevelAlert + 100);
    window.makeKeyAndVisible();
    EXPECT_EQ(deviceView<sim::Window>(window).level, 2100);
    EXPECT_TRUE(deviceView<sim::Window>(window).shown);
    EXPECT_THAT(eventNames(), ElementsAre("windowShown"));
}

TEST_F(ViewsTest, TheScreenIsMeasuredInPixelsOrInPoints)
{
    device.screen->width = 320;
    device.screen->height = 480;
    device.screen->scale = 3;
    device.screen->orientation = 3;
    const UIScreen screen = UIScreen::mainScreen();
    EXPECT_TRUE(screen.respondsToSelector("_realDisplayBounds"));
    EXPECT_EQ(screen.realDisplayBounds(), CGRectMake(0, 0, 960, 1440));
    EXPECT_EQ(screen.referenceBounds(), CGRectMake(0, 0, 320, 480));
    EXPECT_EQ(screen.bounds(), CGRectMake(0, 0, 480, 320));
    EXPECT_EQ(screen.scale(), 3);
    device.screen->hasRealDisplayBounds = false;
    EXPECT_FALSE(UIScreen::mainScreen().respondsToSelector("_realDisplayBounds"));
    EXPECT_EQ(screen.realDisplayBounds(), CGRect());
}

TEST_F(ViewsTest, OfALackingClassThereAreNoObjects)
{
    for (const char* const name : { "UIView", "UILabel", "UIImageView", "_UIBackdropView", "UIColor", "UIFont",
             "UIScreen", "UIPanGestureRecognizer", "CALayer" })
        lack(name);
    EXPECT_FALSE(UIView::init());
    EXPECT_FALSE(UILabel::init());
    EXPECT_FALSE(UIImageView::initWithImage(nullptr));
    EXPECT_FALSE(UIBackdropView::initWithFrame(CGRect(), true, nullptr));
    EXPECT_FALSE(UIColor::blackColor());
    EXPECT_FALSE(UIFont::systemFontOfSize(14, 0));
    EXPECT_FALSE(UIScreen::mainScreen());
    EXPECT_FALSE(UIPanGestureRecognizer::initWithTarget(nullptr, "pan:"));
    EXPECT_FALSE(adopt<UIView>(device.classes->make<sim::View>("UIView")).layer());
}

} // namespace
} // namespace panotra
