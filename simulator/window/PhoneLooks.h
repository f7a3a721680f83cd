/// The phone around its screen, as elements of a sheet: one design for the window, for films and for pictures.
#pragma once

#include "simulator/window/Layout.h"
#include "simulator/window/Sheet.h"

#include <array>
#include <optional>

namespace panotra::sim {

/// The body, and what is above the screen.
void addBody(Sheet& sheet, const PhonePlace& place);
/// What lies over the screen: the notch and the round corners of one that reaches to the edges.
void addRims(Sheet& sheet, const PhonePlace& place);
/// Where the home button is, if the phone has one.
std::optional<Area> homeButtonOf(const PhonePlace& place);
void addHomeButton(Sheet& sheet, const PhonePlace& place, bool isPressed);

/// A button at the side, in points of the upright screen.
struct SideButton {
    const char* key; ///< of its control
    double y;
    double height;
    bool isAtRight;
};

inline constexpr std::array sideButtons {
    SideButton { "M", 62, 26, false },
    SideButton { "Up", 116, 46, false },
    SideButton { "Down", 174, 46, false },
    SideButton { "L", 116, 60, true },
};

enum class SideButtonLooks { Plain, Hovered, Pressed };
Area areaOf(const SideButton& button, const PhonePlace& place, bool isPressed);
void addSideButton(Sheet& sheet, const PhonePlace& place, const Area& area, SideButtonLooks looks);

} // namespace panotra::sim
