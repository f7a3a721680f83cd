/// The controller's class, its singleton and the measures of the screen.
#include "controller/PNOController.h"

#include "controller/PNOHelperController.h"
#include "model/ProcessValues.h"
#include "platform/MethodEntry.h"
#include "platform/UIScreen.h"
#include "views/MixerDelegate.h"

#include <cstddef>
#include <memory>

namespace panotra {
namespace {

using Fields = PNOController::InstanceVariables;

constexpr NumberedNames<groupCount> groupViewNames("_groupView");
constexpr NumberedNames<groupCount> groupLabelNames("_groupLabel");
constexpr NumberedNames<volumeSlotCount> volumeViewNames("_volumeView");

constexpr auto controllerInstanceVariables = joined(
    std::array {
        instanceVariable<PNOWindow>("_window", offsetof(Fields, _window)),
        instanceVariable<UIView>("_rootView", offsetof(Fields, _rootView)),
        instanceVariable<CGFloat>("_boundsWidth", offsetof(Fields, _boundsWidth)),
        instanceVariable<CGFloat>("_boundsHeight", offsetof(Fields, _boundsHeight)),
        instanceVariable<CGFloat>("_iphone4Width", offsetof(Fields, _iphone4Width)),
        instanceVariable<CGFloat>("_iphone4Height", offsetof(Fields, _iphone4Height)),
        instanceVariable<UIView>("_containerView", offsetof(Fields, _containerView)),
        instanceVariable<UIBackdropView>("_rootBackdropView", offsetof(Fields, _rootBackdropView)),
        instanceVariable<UIBackdropView>("_blurBackdropView", offsetof(Fields, _blurBackdropView)),
    },
    numberedInstanceVariables<UIView>(groupViewNames, offsetof(Fields, _groupView)),
    numberedInstanceVariables<UILabel>(groupLabelNames, offsetof(Fields, _groupLabel)),
    numberedInstanceVariables<PNOVolumeView>(volumeViewNames, offsetof(Fields, _volumeView)),
    std::array {
        instanceVariable<float>("_volume", offsetof(Fields, _volume)),
    });

} // namespace

const ClassDescription& PNOController::description() noexcept
{
    static const Method methodTable[] = {
        methodEntry<&PNOController::init>("init"),
        methodEntry<&PNOController::createUI>("createUI"),
        methodEntry<&PNOController::destroyHUDWindow>("destroyHUDWindow"),
        methodEntry<&PNOController::releaseObjects>("releaseObjects"),
        methodEntry<&PNOController::setVolumeLevel>("setVolumeLevel:forCategory:andRoute:"),
        methodEntry<&PNOController::getVolumeLevel>("getVolumeLevelForCategory:andRoute:"),
        methodEntry<&PNOController::pickedRoute>("pickedRoute"),
        methodEntry<&PNOController::saveVolume>("saveVolume:forKey:"),
        methodEntry<&PNOController::getVolume>("getVolumeForKey:"),
        methodEntry<&PNOController::saveVolumeLevelsToDisk>("saveVolumeLevelsToDisk"),
        methodEntry<&PNOController::importVolumeLevelsToRam>("importVolumeLevelsToRam"),
        methodEntry<&PNOController::mixerSkinOptions>("mixerSkinOptions"),
        methodEntry<&PNOController::rootViewTransform>("rootViewTransform"),
        methodEntry<&PNOController::layoutSubviews>("layoutSubviews"),
        methodEntry<&PNOController::animateForCategory>("animateForCategory:andRoute:"),
        methodEntry<&PNOController::autoAnimateView>("autoAnimateView:"),
        methodEntry<&PNOController::resetAnimation>("resetAnimation:"),
        methodEntry<&PNOController::resetTransforms>("resetTransforms"),
        methodEntry<&PNOController::returnViewFromTouchedView>("returnViewFromTouchedView:"),
    };
    static const Method classMethodTable[] = { methodEntry<&PNOController::sharedInstance>("sharedInstance") };
    static const ClassDescription description {
        "PNOController",
        "NSObject",
        controllerInstanceVariables,
        methodTable,
        classMethodTable,
        sizeof(Fields),
        [](void* memory) { std::construct_at(static_cast<Fields*>(memory)); },
        // The singleton is never freed while the process runs; only a refused one, with nothing built, gets here.
        [](id, void* memory) { std::destroy_at(static_cast<Fields*>(memory)); },
    };
    return description;
}

const PNOController& PNOController::sharedInstance() noexcept
{
    if (!processValues.sharedController)
        processValues.sharedController.set(adopt<PNOController>(allocate(description())).init());
    return processValues.sharedController.get();
}

PNOController PNOController::init() const
{
    PNOController self = retained<PNOController>(superInit(get(), description()));
    if (Fields* const fields = self.fields()) {
        const UIScreen screen = UIScreen::mainScreen();
        CGSize size;
        if (screen.respondsToSelector("_realDisplayBounds")) {
            const CGSize pixels = screen.realDisplayBounds().size;
            size = { pixels.width / screen.scale(), pixels.height / screen.scale() };
        } else {
            size = screen.referenceBounds().size;
        }
        const CGSize reference = referenceSizeForScreen(size);
        fields->_boundsWidth = size.width;
        fields->_boundsHeight = size.height;
        fields->_iphone4Width = reference.width;
        fields->_iphone4Height = reference.height;
    }
    return isSpringBoardProcess() ? self : nullptr;
}

PNOController::InstanceVariables* PNOController::fields() const noexcept
{
    return static_cast<Fields*>(instanceVariables(get(), description()));
}

PNOWindow PNOController::window() const
{
    const Fields* const self = fields();
    return self != nullptr ? self->_window : nullptr;
}

UIView PNOController::rootView() const
{
    const Fields* const self = fields();
    return self != nullptr ? self->_rootView : nullptr;
}

PNOVolumeView PNOController::volumeView(SlotNumber slot) const
{
    Fields* const self = fields();
    return self != nullptr && slot < volumeSlotCount ? self->_volumeView[slot] : nullptr;
}

// What the views ask of the controller.

namespace mixerDelegate {

void saveVolumeLevelsToDisk() noexcept
{
    PNOController::sharedInstance().saveVolumeLevelsToDisk();
}

NSString pickedRoute() noexcept
{
    return PNOController::sharedInstance().pickedRoute();
}

void autoAnimateView(const PNOVolumeView& view) noexcept
{
    PNOController::sharedInstance().autoAnimateView(view);
}

void resetTransforms() noexcept
{
    PNOController::sharedInstance().resetTransforms();
}

void rescheduleDismissal(double seconds) noexcept
{
    PNOController::sharedInstance().rescheduleDismissal(seconds);
}

UIView returnViewFromTouchedView(const UIView& touchedView) noexcept
{
    return PNOController::sharedInstance().returnViewFromTouchedView(touchedView);
}

NSBundle resourceBundle() noexcept
{
    return PNOHelperController::sharedInstance().bundle();
}

} // namespace mixerDelegate
} // namespace panotra
