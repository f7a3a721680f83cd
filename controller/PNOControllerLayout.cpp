/// Orientation and layout: turns the root view and gives panel, groups, titles and sliders their frames.
/// Runs on every reorientation and every change of the status bar; it makes and removes no view.
#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "platform/SpringBoard.h"

namespace panotra {
namespace {

/// Where the home screen has no such duration it comes with every change of the orientation, and the last one holds.
double rotationDuration()
{
    const SpringBoard home = SpringBoard::sharedApplication();
    if (home && !home.respondsToSelector("windowRotationDuration"))
        return processValues.rotationDuration;
    return home.windowRotationDuration();
}

/// What the panel is divided into: the content view, which fills its backdrop. A host may size it no sooner than at the
/// next layout of the backdrop, which is then asked for now.
CGSize contentSizeOf(const UIBackdropView& backdrop)
{
    const CGSize whole = backdrop.bounds().size;
    CGSize content = backdrop.contentView().frame().size;
    if (content != whole) {
        backdrop.layoutIfNeeded();
        content = backdrop.contentView().frame().size;
    }
    const bool isEmpty = !(content.width > 0 && content.height > 0);
    return isEmpty ? whole : content;
}

/// The bar beside which a banner in landscape stands; null while it is hidden.
UIView shownStatusBar()
{
    const SpringBoard home = SpringBoard::sharedApplication();
    if (home && !home.respondsToSelector("isSpringBoardStatusBarHidden")) {
        // As on all systems the bar is found only where the application's public class is.
        const UIView bar = objc_getClass("UIApplication") == nullptr ? nullptr : home.statusBarForEmbeddedDisplay();
        return bar.isHidden() ? nullptr : bar;
    }
    return home.isSpringBoardStatusBarHidden() ? nullptr : UIApplication::sharedApplication().statusBar();
}

} // namespace

CGAffineTransform PNOController::rootViewTransform() const
{
    if (fields() == nullptr)
        return {};
    return rootTransform(UIApplication::sharedApplication().activeInterfaceOrientation());
}

/// Every call spends the process's one layout without a rotation animation, even one that finds no window.
void PNOController::layoutSubviews() const
{
    const InstanceVariables* const self = fields();
    if (self == nullptr)
        return;
    if (self->_window) {
        const std::int64_t orientation = UIApplication::sharedApplication().activeInterfaceOrientation();
        turnRootView(orientation);
        processValues.previousOrientation = orientation;
        const MixerStyle style { processValues.activeStyle };
        if (style == MixerStyle::Panel)
            layOutPanel(aspectOf(orientation));
        else if (style == MixerStyle::Banner)
            centerBanner(aspectOf(orientation));
    }
    processValues.justCreated = false;
}

void PNOController::turnRootView(std::int64_t orientation) const
{
    if (processValues.justCreated)
        return;
    double duration = rotationDuration();
    if (isHalfTurn(processValues.previousOrientation, orientation))
        duration *= 2;
    UIView::animateWithDuration(duration, 0, UIViewAnimationOptionAllowUserInteraction,
        [controller = *this] {
            const InstanceVariables* const self = controller.fields();
            self->_rootView.setTransform(controller.rootViewTransform());
            self->_rootView.setFrame(self->_window.frame());
        },
        {});
}

/// Laid out at full reference size, then shrunk as a whole.
void PNOController::layOutPanel(Aspect aspect) const
{
    InstanceVariables* const self = fields();
    resetTransforms();
    self->_containerView.setTransform(CGAffineTransformIdentity);
    self->_containerView.setFrame(
        panelFrame(self->_containerView.superview().bounds().size, self->referenceSize(), aspect));
    const MixerLayout layout = panelLayout(contentSizeOf(self->_rootBackdropView), aspect);
    for (std::size_t group = 0; group < groupCount; ++group)
        self->_groupView[group].setFrame(layout.groups[group]);
    for (const VolumeSlot& slot : volumeSlots) {
        const PNOVolumeView& slider = self->_volumeView[slot.number];
        slider.setFrame(frameOfSlider(slot, layout), slider.volume());
    }
    for (std::size_t group = 0; group < groupCount; ++group)
        self->_groupLabel[group].setFrame(layout.title);
    self->_containerView.setTransform(CGAffineTransformMakeScale(processValues.scale, processValues.scale));
}

/// The media sliders stand where the layout says, every other one where the media slider of its cell stands by now: a
/// frame that the superclass adjusted is adjusted for all.
CGRect PNOController::frameOfSlider(const VolumeSlot& slot, const MixerLayout& layout) const
{
    if (slot.group == Group::Media)
        return layout.cells[slot.cell];
    const VolumeSlot& media = volumeSlots[slot.cell]; // the media rows come first, in the order of their cells
    return fields()->_volumeView[media.number].frame();
}

/// The banner's frames were set once, when it was built; only its horizontal centre follows the orientation.
void PNOController::centerBanner(Aspect aspect) const
{
    const InstanceVariables* const self = fields();
    resetTransforms();
    const CGPoint root = self->_rootView.center();
    CGFloat x = root.x;
    if (aspect == Aspect::Landscape) {
        // The root view is turned a quarter: its y runs across the screen.
        const UIView bar = shownStatusBar();
        x = bar ? bar.center().x : root.y;
    }
    self->_containerView.setCenter({ x, self->_containerView.center().y });
}

} // namespace panotra
