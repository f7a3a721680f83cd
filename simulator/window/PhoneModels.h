/// Phones by name, and what each looks like around its screen: what the window, films and pictures draw.
#pragma once

#include "simulator/picture/ShownMixer.h"

#include <array>
#include <string>
#include <string_view>

namespace panotra::sim {

struct PhoneModel {
    const char* name;
    ScreenSize screen;
};

inline constexpr std::array phoneModels {
    PhoneModel { "5s", { 320, 568, 2 } },
    PhoneModel { "6", { 375, 667, 2 } },
    PhoneModel { "6 Plus", { 414, 736, 3 } },
    PhoneModel { "X", { 375, 812, 3 } },
};

/// The one that has the screen, or null.
const PhoneModel* modelOf(const ScreenSize& screen);
/// Upper and lower case, blanks and hyphens are all the same: "6-plus". Null if there is none.
const PhoneModel* findModel(std::string_view name);
/// Its name, or its size in points: "6 Plus", "768 x 1024".
std::string nameOfPhone(const ScreenSize& screen);

/// What is around a screen, in points.
struct PhoneBody {
    double beside;
    double above; ///< and below
    double radius; ///< of the body's corners
    double screenRadius;
    bool hasHomeButton; ///< without one the screen reaches to the edges, and has a notch
};

/// A long screen leaves no room for a home button.
PhoneBody bodyOf(const ScreenSize& screen);

} // namespace panotra::sim
