/// A phone with the mixer on its screen, for pictures that need no scenario.
#pragma once

#include "facts/VolumeSlots.h"
#include "simulator/device/Device.h"
#include "simulator/scenario/Library.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace panotra::sim {

struct ScreenSize {
    double width = 375; ///< points, upright
    double height = 667;
    double scale = 2; ///< pixels a point
};

struct SlotLevel {
    SlotNumber slot;
    double level;
};

/// What to show. What is left out is as on a phone where nobody chose anything.
struct MixerShowing {
    ScreenSize screen;
    std::int64_t orientation = 1; ///< the platform's number
    std::optional<std::int64_t> style;
    std::optional<std::int64_t> skin;
    std::optional<double> mixerScale; ///< the setting `scale`
    std::vector<SlotLevel> levels; ///< the others are different and pleasant to look at
    std::optional<int> focusedSlot; ///< its slider is held by a finger and enlarged
};

/// Makes a new device so, loads the library into it and shows the mixer. It is built, its fade-in has not begun to
/// move; it stays until it is dismissed.
void beginToShow(Device& device, const Library& library, const MixerShowing& showing);

/// Lets the fade-in end; puts the finger on the slider to be focused and waits until it is enlarged.
void finishShowing(Device& device, const MixerShowing& showing);

/// A finger goes down on the slider and begins to drag; the level stays. Nothing where there is no slider.
void holdSlider(Device& device, int slot);
/// The finger moves to where the level is `level`, 0 to 1.
void moveHeldSlider(Device& device, int slot, double level);

/// The slider of a slot, or null while there is none.
struct View* sliderOf(Device& device, int slot);
/// The level that a slider holds; 0 for null.
double levelOf(Device& device, View* slider);

} // namespace panotra::sim
