/// PNOController: the one object that owns the mixer. It builds, shows, lays out, dismisses and tears down the
/// overlay, and keeps the volume model: the twelve remembered levels and the way to them.
///
/// The class is written in several files, one a concern:
///   PNOController.cpp           the class, the singleton, the measures of the screen
///   PNOControllerDismissal.cpp  fade-out, tear-down, the dismissal that is pending
///   PNOControllerVolumes.cpp    levels by category and route, the active route
///   PNOControllerStore.cpp      the preference domain: one key, all twelve, loading
///   PNOControllerTree.cpp       createUI: what is built and in which order
///   PNOControllerSkin.cpp       the look of the panel
///   PNOControllerLayout.cpp     orientation, frames, the banner's centre
///   PNOControllerFocus.cpp      the slider that swells
///   PNOControllerTouch.cpp      which touches the overlay takes
///
/// Main thread only. A null controller, which is what every process but the home screen gets, ignores everything
/// and answers zero or null.
#pragma once

#include "controller/MixerLayout.h"
#include "facts/MixerStyle.h"
#include "facts/VolumeSlots.h"
#include "platform/UIBackdropView.h"
#include "platform/UILabel.h"
#include "views/PNOVolumeView.h"
#include "views/PNOWindow.h"

#include <array>

namespace panotra {

class PNOController : public NSObject {
public:
    using NSObject::NSObject;

    static const ClassDescription& description() noexcept;
    /// Created on first use and never freed. Null, and tried again the next time, outside the home screen.
    static const PNOController& sharedInstance() noexcept;
    /// Measures the screen. Null in any process but the home screen.
    PNOController init() const;

    // Showing and dismissing.

    /// Presents the mixer: builds it if it is not there. Where it replaces the indicator and was not shown on
    /// demand, its dismissal is armed anew.
    void createUI() const;
    /// Saves the levels, fades the mixer out and has it torn down.
    void destroyHUDWindow() const;
    /// Tears the views down if the mixer is invisible; otherwise does nothing at all.
    void releaseObjects() const;
    /// Forgets a pending dismissal and asks for one `seconds` from now.
    void rescheduleDismissal(double seconds) const;

    // The volume model. Levels run from 0.0 to 1.0; a null category or route is a normal case.

    /// Records the level of a pair: in its slider while the mixer is built, else in the preference domain.
    /// A pair that no slot takes, notifications among them: nothing.
    void setVolumeLevel(float level, const NSString& category, const NSString& route) const;
    /// The remembered level: the slider's, else the stored one, 0.0 if never stored. Unknown pair: 0.5.
    float getVolumeLevel(const NSString& category, const NSString& route) const;
    /// The active route as the audio service names it; null if it has none.
    NSString pickedRoute() const;

    void saveVolume(float level, const NSString& key) const;
    /// 0.0 for a key that was never stored.
    float getVolume(const NSString& key) const;
    /// Writes all twelve levels from the sliders, unless one of sliders 3 to 10 is missing or at exactly 0.0.
    void saveVolumeLevelsToDisk() const;
    /// Loads all twelve sliders: what is remembered, else the system's level.
    void importVolumeLevelsToRam() const;

    // Look, layout, focus, touch.

    void mixerSkinOptions() const;
    /// Upright in the current interface orientation. Null answers no turn.
    CGAffineTransform rootViewTransform() const;
    void layoutSubviews() const;
    void animateForCategory(const NSString& category, const NSString& route) const;
    /// Enlarges the slider and, unless a drag holds it, lets it shrink back.
    void autoAnimateView(const PNOVolumeView& view) const;
    void resetAnimation(const PNOVolumeView& view) const;
    /// Returns every slider to rest.
    void resetTransforms() const;
    /// `touchedView` itself if the overlay takes the touch, null to let it pass to the app below.
    UIView returnViewFromTouchedView(const UIView& touchedView) const;

    // Fields of the overlay that hooks read; null while it is not built.

    PNOWindow window() const;
    UIView rootView() const;
    PNOVolumeView volumeView(SlotNumber slot) const;

    /// The fields that the host reads by name. View fields are null while nothing is built.
    struct InstanceVariables {
        PNOWindow _window;
        UIView _rootView;
        CGFloat _boundsWidth = 0; ///< the screen, points, upright
        CGFloat _boundsHeight = 0;
        CGFloat _iphone4Width = 0; ///< the panel's reference size, points
        CGFloat _iphone4Height = 0;
        UIView _containerView; ///< fades in and out: its alpha is the mixer's visibility
        UIBackdropView _rootBackdropView;
        UIBackdropView _blurBackdropView; ///< outlives the tear-down
        // Read as `_groupView0`, `_groupView1` and so on.
        std::array<UIView, groupCount> _groupView;
        std::array<UILabel, groupCount> _groupLabel;
        std::array<PNOVolumeView, volumeSlotCount> _volumeView;
        float _volume = 0; ///< what `getVolume` read last

        CGSize referenceSize() const { return { _iphone4Width, _iphone4Height }; }
    };

private:
    InstanceVariables* fields() const noexcept;

    void refreshShownMixer() const;
    void buildWindow() const;
    void buildPanel() const;
    void buildBanner() const;
    void buildGroups(MixerStyle style) const;
    void buildSliders(MixerStyle style) const;
    void layOutBanner() const;
    void fadeIn() const;

    void turnRootView(std::int64_t orientation) const;
    void layOutPanel(Aspect aspect) const;
    CGRect frameOfSlider(const VolumeSlot& slot, const MixerLayout& layout) const;
    void centerBanner(Aspect aspect) const;
};

} // namespace panotra
