/// createUI: what the overlay is built of, in which order, and how it fades in.
#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "platform/SpringBoard.h"
#include "views/MixerMaterials.h"

namespace panotra {
namespace {

constexpr CGFloat levelAboveAlerts = 100;
constexpr std::int64_t fullScreenBlurStyle = 2;
constexpr CGFloat panelBorderWidth = 1.5;
constexpr CGFloat titleFontSize = 14;

constexpr CGFloat fadedInBlurRadius = 30;
constexpr CGFloat initialBlurRadius = 5;
/// The blur deepens in the first half of the fade-in, the panel appears in the second.
constexpr double halfFadeInSeconds = 0.15;

/// What the banner wears before its skin, and under one that is none of ours.
constexpr const MixerSkin& bannerSkin = mixerSkins[0];
/// All but invisible: it makes the whole screen take touches, so that one outside the banner can close it.
constexpr Rgba touchCatchingColor { 0.95, 0.95, 0.95, 0.006 };

struct GroupTitle {
    const char* panel;
    const char* banner;
};

constexpr std::array<GroupTitle, groupCount> groupTitles { {
    { "Media Volume Level", "Media" },
    { "PhoneCall Volume Level", "PhoneCall" },
    { "Extra Volumes Level", "Extras" },
} };

/// A backdrop that takes touches, so that none slips through the mixer.
UIBackdropView makeTouchableBackdrop(std::int64_t style)
{
    const UIBackdropView backdrop = makeBackdrop(style);
    backdrop.setUserInteractionEnabled(true);
    return backdrop;
}

void shapeContainer(const UIView& container, CGFloat cornerRadius)
{
    const CALayer layer = container.layer();
    layer.setMasksToBounds(true);
    if (layer.respondsToSelector("setContinuousCorners:"))
        layer.setContinuousCorners(true);
    layer.setCornerRadius(cornerRadius);
    layer.setBorderWidth(panelBorderWidth);
}

/// Where windows belong to scenes, one that belongs to none is never seen.
void joinScene(const UIWindow& window)
{
    if (objc_getClass("UIWindowScene") == nullptr)
        return;
    if (const UIWindowScene scene = UIApplication::current().connectedWindowScene())
        window.setWindowScene(scene);
}

} // namespace

void PNOController::createUI() const
{
    const InstanceVariables* const self = fields();
    if (self == nullptr)
        return;
    if (processValues.replaceHUD && !processValues.presentedViaActivator)
        refreshShownMixer();
    if (!self->_window)
        buildWindow();
    self->_window.makeKeyAndVisible();
}

/// Stops a fade in either direction and starts the time to the dismissal anew. Runs before the first build as well:
/// the timer is armed all the same.
void PNOController::refreshShownMixer() const
{
    const InstanceVariables* const self = fields();
    self->_containerView.layer().removeAllAnimations();
    self->_containerView.setAlpha(1);
    self->_blurBackdropView.layer().removeAllAnimations();
    self->_blurBackdropView.setBlurRadius(fadedInBlurRadius);
    rescheduleDismissal(processValues.autoDismiss);
}

void PNOController::buildWindow() const
{
    InstanceVariables* const self = fields();
    self->_window = PNOWindow::initWithFrame(CGRectMake(0, 0, self->_boundsWidth, self->_boundsHeight));
    joinScene(self->_window);
    self->_window.setWindowLevel(UIWindowLevelAlert + levelAboveAlerts);

    self->_rootView = UIView::initWithFrame(self->_window.frame());
    self->_rootView.setTransform(rootViewTransform());
    self->_rootView.setFrame(self->_window.frame()); // turned, it still covers the window

    switch (MixerStyle { processValues.activeStyle }) {
    case MixerStyle::Panel:
        buildPanel();
        break;
    case MixerStyle::Banner:
        buildBanner();
        break;
    default:
        self->_window.addSubview(self->_rootView);
        break;
    }
}

void PNOController::buildPanel() const
{
    InstanceVariables* const self = fields();
    self->_blurBackdropView = makeTouchableBackdrop(fullScreenBlurStyle);
    self->_blurBackdropView.setBlurRadius(initialBlurRadius);

    self->_containerView = UIView::init();
    self->_rootView.addSubview(self->_containerView);
    self->_containerView.setFrame(
        panelFrame(self->_containerView.superview().bounds().size, self->referenceSize(), Aspect::Portrait));
    self->_containerView.setAlpha(0);
    shapeContainer(self->_containerView, panelCornerRadius(self->_containerView.frame().size));

    self->_rootBackdropView = makeTouchableBackdrop(plainBackdropStyle);
    self->_containerView.addSubview(self->_rootBackdropView);
    buildGroups(MixerStyle::Panel);
    buildSliders(MixerStyle::Panel);

    self->_window.addSubview(self->_blurBackdropView);
    self->_window.addSubview(self->_rootView);
    self->_window.bringSubviewToFront(self->_rootView);
    mixerSkinOptions();
    importVolumeLevelsToRam();
    layoutSubviews();
    fadeIn();
}

void PNOController::buildBanner() const
{
    InstanceVariables* const self = fields();
    self->_containerView = UIView::init();
    self->_rootView.addSubview(self->_containerView);
    self->_containerView.setFrame(bannerFrame(self->_window.frame().size.width, self->referenceSize()));
    self->_containerView.setAlpha(0);
    if (processValues.dismissOnTouch)
        self->_rootView.setBackgroundColor(makeColor(touchCatchingColor));
    shapeContainer(self->_containerView, bannerCornerRadius(self->_containerView.frame().size));
    self->_containerView.layer().setBorderColor(makeColor(bannerSkin.border));

    self->_rootBackdropView = makeTouchableBackdrop(plainBackdropStyle);
    self->_rootBackdropView.transitionToStyle(bannerSkin.backdropStyle);
    self->_containerView.addSubview(self->_rootBackdropView);
    buildGroups(MixerStyle::Banner);
    buildSliders(MixerStyle::Banner);
    layOutBanner();

    self->_window.addSubview(self->_rootView);
    self->_window.bringSubviewToFront(self->_rootView);
    mixerSkinOptions();
    importVolumeLevelsToRam();
    layoutSubviews();
    fadeIn();
    self->_containerView.setTransform(CGAffineTransformMakeScale(processValues.scale, processValues.scale));
}

/// The groups in order, then their titles in order. The banner's are placed once and for all; the panel's get their
/// frames from the layout.
void PNOController::buildGroups(MixerStyle style) const
{
    InstanceVariables* const self = fields();
    const bool isBanner = style == MixerStyle::Banner;
    const MixerLayout layout = isBanner ? bannerLayout(self->_containerView.frame().size) : MixerLayout {};
    const UIView content = self->_rootBackdropView.contentView();
    for (std::size_t group = 0; group < groupCount; ++group) {
        self->_groupView[group] = isBanner ? UIView::initWithFrame(layout.groups[group]) : UIView::init();
        content.addSubview(self->_groupView[group]);
    }
    for (std::size_t group = 0; group < groupCount; ++group) {
        const UILabel title = makeLabel(titleFontSize);
        if (isBanner)
            title.setFrame(layout.title);
        title.setText(NSString::constant(isBanner ? groupTitles[group].banner : groupTitles[group].panel));
        self->_groupView[group].addSubview(title);
        self->_groupLabel[group] = title;
    }
}

void PNOController::buildSliders(MixerStyle style) const
{
    InstanceVariables* const self = fields();
    for (const VolumeSlot& slot : volumeSlots) {
        const PNOVolumeView slider = PNOVolumeView::alloc();
        if (style == MixerStyle::Panel)
            slider.initWithName(NSString::constant(slot.name), slot.number, slot.canGoToZero);
        else
            slider.initWithImage(NSString::constant(slot.image), slot.number, slot.canGoToZero);
        self->_volumeView[slot.number] = slider;
        self->_groupView[static_cast<std::size_t>(slot.group)].addSubview(slider);
    }
}

void PNOController::layOutBanner() const
{
    InstanceVariables* const self = fields();
    const MixerLayout layout = bannerLayout(self->_containerView.frame().size);
    for (const VolumeSlot& slot : volumeSlots) {
        const CGFloat level = self->_volumeView[slot.bannerLevelSlot].volume();
        self->_volumeView[slot.number].setFrame2(frameOfSlider(slot, layout), level);
    }
}

void PNOController::fadeIn() const
{
    const InstanceVariables* const self = fields();
    UIView::animateWithDuration(
        halfFadeInSeconds, 0, UIViewAnimationOptionAllowUserInteraction,
        [self] { self->_blurBackdropView.setBlurRadius(fadedInBlurRadius); }, // the banner has none
        [controller = *this](bool) {
            UIView::animateWithDuration(halfFadeInSeconds, 0, UIViewAnimationOptionAllowUserInteraction,
                [controller] { controller.fields()->_containerView.setAlpha(1); }, {});
        });
}

} // namespace panotra
