/// What the views ask of the mixer's controller and helper. Declared here and defined in controller/, so that
/// includes point one way. All of it is harmless without a controller, as in processes other than the home screen.
#pragma once

#include "platform/NSBundle.h"
#include "platform/UIView.h"

namespace panotra {

class PNOVolumeView;

namespace mixerDelegate {

/// Writes the twelve levels to the preference domain, subject to the store's guard.
void saveVolumeLevelsToDisk() noexcept;
/// The active route, as the audio service names it; null if there is none.
NSString pickedRoute() noexcept;
/// Brings the slider into focus.
void autoAnimateView(const PNOVolumeView& view) noexcept;
/// Returns every slider to rest.
void resetTransforms() noexcept;
/// Forgets a pending dismissal and has the mixer dismissed `seconds` from now.
void rescheduleDismissal(double seconds) noexcept;
/// Whether the overlay takes a touch on `touchedView`: the view itself, or null to let it pass.
UIView returnViewFromTouchedView(const UIView& touchedView) noexcept;
/// The bundle that holds the icons.
NSBundle resourceBundle() noexcept;

} // namespace mixerDelegate
} // namespace panotra
