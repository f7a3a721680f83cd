/// What the panel and its sliders are both made of: colours, backdrops and labels.
#pragma once

#include "facts/MixerSkins.h"
#include "platform/UIBackdropView.h"
#include "platform/UILabel.h"

namespace panotra {

/// Opaque black is the platform's own black.
UIColor makeColor(const Rgba& rgba);

/// A blur view that follows its superview's size.
UIBackdropView makeBackdrop(std::int64_t style);

/// One centred line in the light system font.
UILabel makeLabel(CGFloat fontSize);

/// Gives a backdrop the material of the skin; the black skin switches the blur off and paints the backdrop.
void applyMaterial(const MixerSkin& skin, const UIBackdropView& backdrop);

} // namespace panotra
