/// Where the overlay stands on the desktop, and where on the phone a pointer over it is. No display in sight.
///
/// The mixer is a view on the screen of a phone. That screen lies, invisible, on the monitor; the overlay is the part
/// of it that the mixer takes.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/picture/ShownMixer.h"
#include "simulator/render/Shapes.h"

namespace panotra::sim {

struct View;

/// The phone's screen: large enough for the largest panel, and of no size that changes its proportions.
inline constexpr ScreenSize overlayScreen { 480, 720, 2 };

/// The panel or the banner, or null while none is to be seen.
View* viewToShow(const Device& device);

/// On the desktop, in the units of its pointer.
struct PhoneOnDesktop {
    double x = 0, y = 0; ///< of the screen's upper left corner
    double unitsPerPoint = 1;

    Point onPhone(double pointerX, double pointerY) const;
};

/// The larger the monitor, the larger the phone, in steps of a quarter: 1 to 4 units a point.
double unitsPerPointOn(const render::PixelRect& monitor);

/// In the middle of the part of a monitor that programs may use. A mixer near the top of its screen stands near the
/// top of the monitor. `mixer`: in points, on the phone's screen.
PhoneOnDesktop placePhone(const render::PixelRect& usable, const Rect& mixer);

} // namespace panotra::sim
