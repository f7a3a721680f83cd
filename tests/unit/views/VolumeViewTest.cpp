/// The slider on its own: what it is made of, how it is laid out, how it shows its level, how it goes.
#include "tests/support/MixerTest.h"
#include "tests/support/SkinLooks.h"

namespace panotra {
namespace {

using sim::Json;
using testing::isNear;
using testing::isRectangle;

struct VolumeView : testing::MixerTest {
    VolumeView() { launch(); }

    static PNOVolumeView named(std::uint16_t tag = 4, bool canGoToZero = false)
    {
        return PNOVolumeView::alloc().initWithName(text("Speaker"), tag, canGoToZero);
    }
    static PNOVolumeView icon(std::uint16_t tag = 4, bool canGoToZero = false)
    {
        return PNOVolumeView::alloc().initWithImage(text("speaker"), tag, canGoToZero);
    }
    static sim::View& viewOf(const PNOVolumeView& slider) { return dynamic_cast<sim::View&>(*slider.get()); }
    template <typename Kind> Kind& in(const PNOVolumeView& slider, const char* name) const
    {
        return *fieldOf<Kind>(slider, name);
    }
    sim::BackdropView& backdrop(const PNOVolumeView& slider) const
    {
        return in<sim::BackdropView>(slider, "_backdropView");
    }
    sim::BackdropView& fill(const PNOVolumeView& slider) const { return in<sim::BackdropView>(slider, "_volumeView"); }
    sim::Label& caption(const PNOVolumeView& slider) const { return in<sim::Label>(slider, "_label0"); }
    sim::Label& percentage(const PNOVolumeView& slider) const { return in<sim::Label>(slider, "_label1"); }
    sim::ImageView& image(const PNOVolumeView& slider) const { return in<sim::ImageView>(slider, "_imageView"); }
};

using Views = std::vector<sim::View*>;

// What a slider is made of.

TEST_F(VolumeView, ANamedSliderHoldsFillNameAndPercentageInThatOrder)
{
    const PNOVolumeView slider = named();
    EXPECT_EQ(viewOf(slider).subviews, (Views { &backdrop(slider) }));
    EXPECT_EQ(backdrop(slider).content->subviews, (Views { &fill(slider), &caption(slider), &percentage(slider) }));
    EXPECT_EQ(fieldOf(slider, "_imageView"), nullptr);
}

TEST_F(VolumeView, AnIconSliderHoldsFillIconAndPercentageInThatOrder)
{
    const PNOVolumeView slider = icon();
    EXPECT_EQ(viewOf(slider).subviews, (Views { &backdrop(slider) }));
    EXPECT_EQ(backdrop(slider).content->subviews, (Views { &fill(slider), &image(slider), &percentage(slider) }));
    EXPECT_EQ(fieldOf(slider, "_label0"), nullptr);
}

TEST_F(VolumeView, BothKindsAreMaskedAndBorderedAndOnlyNamedOnesAskForContinuousCorners)
{
    for (const PNOVolumeView& slider : { named(), icon() }) {
        EXPECT_TRUE(viewOf(slider).layer.masksToBounds);
        EXPECT_EQ(viewOf(slider).layer.borderWidth, 1.25);
    }
    EXPECT_TRUE(viewOf(named()).layer.continuousCorners);
    EXPECT_FALSE(viewOf(icon()).layer.continuousCorners);
}

TEST_F(VolumeView, CornersStayOrdinaryWhereTheSystemDoesNotKnowContinuousOnes)
{
    device.classes->platformClass("CALayer").methods.erase(sim::selector("setContinuousCorners:"));
    const PNOVolumeView slider = named();
    EXPECT_FALSE(viewOf(slider).layer.continuousCorners);
    EXPECT_TRUE(viewOf(slider).layer.masksToBounds);
}

TEST_F(VolumeView, BackgroundAndFillFollowTheSizeOfWhatTheyLieIn)
{
    processValues.mixerSkin = testing::numbersWithoutSkin[0]; // the styles are those of the creation
    for (const PNOVolumeView& slider : { named(), icon() }) {
        EXPECT_EQ(backdrop(slider).style, -2);
        EXPECT_EQ(fill(slider).style, 2060);
        for (const sim::BackdropView* const each : { &backdrop(slider), &fill(slider) }) {
            EXPECT_EQ(each->quality, 100);
            EXPECT_TRUE(each->autosizes);
        }
    }
}

TEST_F(VolumeView, LabelsAreCentredAndLight)
{
    const PNOVolumeView slider = named();
    EXPECT_EQ(caption(slider).fontSize, 14);
    EXPECT_EQ(percentage(slider).fontSize, 15);
    for (const sim::Label* const label : { &caption(slider), &percentage(slider) }) {
        EXPECT_EQ(label->alignment, 1);
        EXPECT_EQ(label->fontWeight, "light");
    }
    EXPECT_EQ(caption(slider).text, "Speaker");
    EXPECT_EQ(percentage(slider).text, std::nullopt) << "empty until a level is drawn";
}

TEST_F(VolumeView, ThePercentageOfAnIconSliderFollowsTheLongerSideOfTheScreen)
{
    EXPECT_TRUE(isNear(percentage(icon()).fontSize, 667 / 95.0)); // 667 / 2 / 47.5
    EXPECT_EQ(percentage(icon()).fontWeight, "light");
    EXPECT_EQ(percentage(icon()).alignment, 1);
    useScreen(1024, 768);
    EXPECT_TRUE(isNear(percentage(icon()).fontSize, 1024 / 95.0)); // about 10.78
    useScreen(475, 475);
    EXPECT_TRUE(isNear(percentage(icon()).fontSize, 5));
}

TEST_F(VolumeView, TheIconIsATemplateImageOfTheBundle)
{
    const PNOVolumeView slider = icon();
    ASSERT_NE(image(slider).image, nullptr);
    EXPECT_EQ(image(slider).image->baseName, "speaker");
    EXPECT_TRUE(image(slider).image->isTemplate);
}

TEST_F(VolumeView, AMissingImageLeavesAnEmptyIcon)
{
    const PNOVolumeView slider = PNOVolumeView::alloc().initWithImage(nullptr, 4, false);
    EXPECT_EQ(image(slider).image, nullptr);
    EXPECT_EQ(backdrop(slider).content->subviews.size(), 3u);
}

TEST_F(VolumeView, TagAndZeroFlagAreThoseThatWereGiven)
{
    for (const PNOVolumeView& slider : { named(10, true), icon(10, true) }) {
        EXPECT_EQ(slider.tag(), 10);
        EXPECT_EQ(device.classes->scalarForKey(slider.get(), "_canGoToZero"), true);
    }
    EXPECT_EQ(device.classes->scalarForKey(named(3, false).get(), "_canGoToZero"), false);
}

TEST_F(VolumeView, TheRecogniserTellsTheSlider)
{
    for (const PNOVolumeView& slider : { named(), icon() }) {
        auto& recognizer = in<sim::PanRecognizer>(slider, "_volumePanRecognizer");
        EXPECT_EQ(viewOf(slider).recognizers, (std::vector<sim::PanRecognizer*> { &recognizer }));
        EXPECT_EQ(recognizer.target, slider.get());
        EXPECT_EQ(recognizer.action->name, "handleVolumeViewPan:");
    }
}

/// What the superclass's `init` answers instead of the slider, whose count it takes.
HostObject* answerForSlider = nullptr;

TEST_F(VolumeView, ASuperclassThatAnswersNothingOrAnotherObjectLeavesTheSliderBare)
{
    device.classes->platformClass("UIView").methods[sim::selector("init")]
        = sim::implementation(+[](HostObject* self, const HostSelector*) {
              sim::release(self);
              sim::retain(answerForSlider);
              return answerForSlider;
          });
    const UIView other = UIView::init();
    for (const auto& [isNamed, instead] :
        { std::pair(true, UIView()), std::pair(false, UIView()), std::pair(true, other), std::pair(false, other) }) {
        answerForSlider = instead.get();
        const PNOVolumeView slider = PNOVolumeView::alloc();
        const PNOVolumeView answer
            = isNamed ? slider.initWithName(text("Speaker"), 4, true) : slider.initWithImage(text("speaker"), 4, true);
        EXPECT_EQ(answer, slider) << "the receiver, never the superclass's answer";
        EXPECT_TRUE(viewOf(slider).subviews.empty());
        EXPECT_TRUE(viewOf(slider).recognizers.empty());
        EXPECT_EQ(slider.tag(), 0);
        EXPECT_EQ(device.classes->scalarForKey(slider.get(), "_canGoToZero"), false);
    }
    EXPECT_TRUE(dynamic_cast<const sim::View&>(*other.get()).subviews.empty());
    answerForSlider = nullptr;
}

// Skins.

TEST_F(VolumeView, EverySkinGivesBackgroundTextAndBorderTheirLook)
{
    for (const testing::SkinLook& each : testing::skinLooks()) {
        processValues.mixerSkin = each.skin;
        for (const PNOVolumeView& slider : { named(), icon() }) {
            EXPECT_EQ(backdrop(slider).style, each.style) << each.skin;
            EXPECT_EQ(backdrop(slider).effect->alpha, each.effectAlpha);
            EXPECT_EQ(backdrop(slider).background, each.background);
            EXPECT_EQ(viewOf(slider).layer.borderColor, each.border);
            EXPECT_EQ(percentage(slider).textColor, each.text);
            EXPECT_EQ(fill(slider).style, 2060) << "in every skin";
        }
        EXPECT_EQ(caption(named()).textColor, each.text);
        EXPECT_EQ(image(icon()).tint, each.text) << "the icon takes the colour of the text";
    }
}

TEST_F(VolumeView, ANumberWithoutASkinLeavesTheLookOfTheCreation)
{
    for (const std::uint16_t skin : testing::numbersWithoutSkin) {
        processValues.mixerSkin = skin;
        for (const PNOVolumeView& slider : { named(), icon() }) {
            EXPECT_EQ(backdrop(slider).style, -2) << skin;
            EXPECT_EQ(backdrop(slider).effect->alpha, 1);
            EXPECT_EQ(backdrop(slider).background, std::nullopt);
            EXPECT_EQ(viewOf(slider).layer.borderColor, std::nullopt);
            EXPECT_EQ(percentage(slider).textColor, std::nullopt);
            EXPECT_EQ(fill(slider).style, 2060);
        }
        EXPECT_EQ(caption(named()).textColor, std::nullopt);
        EXPECT_EQ(image(icon()).tint, std::nullopt);
    }
}

TEST_F(VolumeView, ALaterChangeOfSkinDoesNotReachASlider)
{
    const PNOVolumeView slider = named();
    processValues.mixerSkin = 2;
    slider.setFrame(CGRectMake(0, 0, 100, 50), 0.5);
    EXPECT_EQ(backdrop(slider).style, 2010);
}

// Layout.

TEST_F(VolumeView, ANamedSliderIsLaidOutByItsAreaAndHeight)
{
    const PNOVolumeView slider = named();
    slider.setFrame(CGRectMake(7, 9, 100, 50), 0.5);
    EXPECT_TRUE(isRectangle(slider.frame(), CGRectMake(7, 9, 100, 50)));
    EXPECT_TRUE(isNear(viewOf(slider).layer.cornerRadius, 10)); // 5000 · 0.002
    EXPECT_TRUE(isRectangle(frameOf(fill(slider)), CGRectMake(0, 0, 50, 50)));
    EXPECT_TRUE(isRectangle(frameOf(caption(slider)), CGRectMake(0, 5, 100, 25)));
    EXPECT_TRUE(isRectangle(frameOf(percentage(slider)), CGRectMake(0, 20, 100, 25)));
    EXPECT_EQ(percentage(slider).text, "50%");
}

TEST_F(VolumeView, AnIconSliderIsLaidOutByItsWidth)
{
    const PNOVolumeView slider = icon();
    slider.setFrame2(CGRectMake(0, 0, 90, 60), 0.25);
    EXPECT_TRUE(isNear(viewOf(slider).layer.cornerRadius, 45)) << "not limited to half the height";
    EXPECT_TRUE(isRectangle(frameOf(fill(slider)), CGRectMake(0, 0, 22.5, 60)));
    EXPECT_TRUE(isRectangle(frameOf(image(slider)), CGRectMake(30, 10, 30, 30)));
    EXPECT_TRUE(isRectangle(frameOf(percentage(slider)), CGRectMake(0, 24, 90, 30)));
    EXPECT_EQ(percentage(slider).text, "25%");
}

TEST_F(VolumeView, MeasuresAreReadBackFromTheFrameThatTheSuperclassGave)
{
    // Under a scale of 2 the frame has rounding of its own, and what lies inside is measured by it all the same.
    const PNOVolumeView slider = named();
    slider.setTransform(CGAffineTransformMakeScale(2, 2));
    slider.setFrame(CGRectMake(0, 0, 100, 50), 0.5);
    EXPECT_TRUE(isNear(viewOf(slider).bounds.width, 50));
    EXPECT_TRUE(isRectangle(frameOf(fill(slider)), CGRectMake(0, 0, 50, 50)));
}

TEST_F(VolumeView, NeitherLayoutChangesTheHeldLevel)
{
    const PNOVolumeView slider = named();
    slider.setVolume(0.3);
    slider.setFrame(CGRectMake(0, 0, 100, 50), 0.5);
    slider.setFrame2(CGRectMake(0, 0, 100, 50), 0.6);
    EXPECT_EQ(slider.volume(), 0.3);
}

TEST_F(VolumeView, BetweenCreationAndItsFirstFrameASliderHasNoSize)
{
    EXPECT_TRUE(isRectangle(named().frame(), CGRect()));
    EXPECT_TRUE(isRectangle(icon().frame(), CGRect()));
    EXPECT_EQ(named().volume(), 0);
}

// The level.

TEST_F(VolumeView, ALevelIsHeldAndDrawnAtTheCurrentFrame)
{
    const PNOVolumeView slider = named();
    slider.setFrame(CGRectMake(0, 0, 200, 50), 0.5);
    slider.setVolumeLevel(0.75);
    EXPECT_EQ(slider.volume(), 0.75);
    EXPECT_TRUE(isRectangle(frameOf(fill(slider)), CGRectMake(0, 0, 150, 50)));
    EXPECT_EQ(percentage(slider).text, "75%");
}

TEST_F(VolumeView, OnlyTheWidthOfTheFillFollowsALevel)
{
    const PNOVolumeView slider = named();
    slider.setFrame(CGRectMake(0, 0, 200, 50), 0.5);
    fill(slider).setFrame({ 3, 4, 1, 17 });
    slider.setVolumeLevel(0.25);
    EXPECT_TRUE(isRectangle(frameOf(fill(slider)), CGRectMake(3, 4, 50, 17)));
}

TEST_F(VolumeView, WithoutASizeALevelIsHeldAndWrittenButFillsNothing)
{
    const PNOVolumeView slider = named();
    slider.setVolumeLevel(0.75);
    EXPECT_EQ(slider.volume(), 0.75);
    EXPECT_EQ(percentage(slider).text, "75%");
    EXPECT_EQ(fill(slider).frame().width, 0);
}

TEST_F(VolumeView, HoldingALevelDrawsNothing)
{
    const PNOVolumeView slider = named();
    slider.setFrame(CGRectMake(0, 0, 200, 50), 0.5);
    slider.setVolume(0.9);
    EXPECT_EQ(slider.volume(), 0.9);
    EXPECT_EQ(percentage(slider).text, "50%");
    EXPECT_EQ(fill(slider).frame().width, 100);
}

TEST_F(VolumeView, PercentagesAreRoundedWithHalvesAwayFromZero)
{
    const std::pair<double, const char*> rows[] = { { 0.125, "13%" }, { 0.994, "99%" }, { 0.0625, "6%" },
        { 0.005, "1%" }, { 0.004, "0%" }, { 1, "100%" }, { 0, "0%" } };
    const PNOVolumeView slider = named();
    for (const auto& [level, expected] : rows) {
        slider.setVolumeLevel(level);
        EXPECT_EQ(percentage(slider).text, expected);
        slider.setFrame(CGRectMake(0, 0, 100, 50), level);
        EXPECT_EQ(percentage(slider).text, expected);
    }
}

TEST_F(VolumeView, LevelsAreNotClamped)
{
    const PNOVolumeView slider = named();
    slider.setFrame(CGRectMake(0, 0, 100, 50), 1.5);
    EXPECT_EQ(fill(slider).frame().width, 150);
    EXPECT_EQ(percentage(slider).text, "150%");
    slider.setVolumeLevel(-0.25);
    EXPECT_EQ(fill(slider).frame().x, 0);
    EXPECT_EQ(fill(slider).frame().width, -25);
    EXPECT_EQ(percentage(slider).text, "-25%");
}

TEST_F(VolumeView, EveryLevelThatIsDrawnAsksForASaveOfAllTwelve)
{
    show(panel);
    forgetEvents();
    slider(7).setVolumeLevel(0.25);
    EXPECT_EQ(countOf("write"), testing::knownSlotCount);
    EXPECT_EQ(stored("volume7"), 0.25);
    forgetEvents();
    slider(7).setVolume(0.5);
    slider(7).setFrame(slider(7).frame(), 0.5);
    EXPECT_EQ(countOf("write"), 0u) << "neither holding nor laying out saves";
}

// The end.

TEST_F(VolumeView, ASliderTakesEverythingItIsMadeOfWithIt)
{
    const auto living = [this] {
        device.classes->drainAutoreleasePool();
        return device.classes->liveObjects();
    };
    named(); // what the first one brings into the process stays
    icon();
    const std::size_t before = living();
    {
        const PNOVolumeView first = named();
        const PNOVolumeView second = icon();
        first.setFrame(CGRectMake(0, 0, 100, 50), 0.5);
        second.setFrame2(CGRectMake(0, 0, 100, 50), 0.5);
        EXPECT_GT(living(), before);
    }
    EXPECT_EQ(living(), before);
}

TEST_F(VolumeView, APartThatIsHeldElsewhereOutlivesItsSliderOutsideAnyTree)
{
    UILabel label;
    {
        const PNOVolumeView slider = named();
        label = retained<UILabel>(&percentage(slider));
        EXPECT_TRUE(label.superview());
    }
    EXPECT_FALSE(label.superview());
}

TEST_F(VolumeView, ANullSliderIgnoresEverything)
{
    const PNOVolumeView none;
    none.setFrame(CGRectMake(0, 0, 100, 50), 0.5);
    none.setFrame2(CGRectMake(0, 0, 100, 50), 0.5);
    none.setVolumeLevel(0.5);
    none.setVolume(0.5);
    none.handleVolumeViewPan(nullptr);
    EXPECT_EQ(none.volume(), 0);
    EXPECT_FALSE(none.initWithName(text("Speaker"), 0, true));
    EXPECT_TRUE(device.preferences->all().empty());
}

} // namespace
} // namespace panotra
