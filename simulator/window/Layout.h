/// Where everything is in a window of a given size: pure geometry.
///
/// The whole sheet grows and shrinks with the window, so that a display with more pixels to the inch, whose windows
/// have more pixels, needs nothing but its scale. In a narrow window buttons and panel share a column, which shows one
/// of them at a time.
#pragma once

#include "simulator/picture/ShownMixer.h"
#include "simulator/window/PhoneModels.h"
#include "simulator/window/Sheet.h"

#include <cstdint>
#include <optional>

namespace panotra::sim {

struct PixelSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// The size, in units, for which the sheet is made.
inline constexpr double sheetWidth = 1200;
inline constexpr double sheetHeight = 800;

/// A phone as its viewer holds it, interface upright.
class PhonePlace {
public:
    PhonePlace() = default;
    /// `center` and `unitsPerPoint`: on the sheet.
    PhonePlace(ScreenSize screen, std::int64_t orientation, Point center, double unitsPerPoint);

    /// An area in points of the upright screen, which may lie beside the screen on the phone's body.
    Area onSheet(const Area& upright) const;
    /// The point of the upright screen, in points.
    Point onScreen(Point sheetPoint) const;
    PhoneBody shape() const { return bodyOf(m_screen); }
    Area screen() const { return onSheet({ 0, 0, m_screen.width, m_screen.height }); }
    Area body() const;
    /// Beside its place by so many units, taken to whole pixels.
    PhonePlace movedBy(double right, double unit) const;
    double unitsPerPoint() const { return m_unitsPerPoint; }
    std::int64_t orientation() const { return m_orientation; }
    const ScreenSize& screenSize() const { return m_screen; }

private:
    ScreenSize m_screen;
    std::int64_t m_orientation = 1;
    Point m_center;
    double m_unitsPerPoint = 1;
};

struct Layout {
    double unit = 1; ///< pixels
    Area sheet;
    std::optional<Area> controls;
    std::optional<Area> panel;
    std::optional<Area> folded; ///< instead of both: one of them, below tabs
    std::optional<Area> player; ///< below the phone, where a scenario is played
    Area stand; ///< where the phone has room
    PhonePlace phone;

    Point onSheet(double pixelX, double pixelY) const { return { pixelX / unit, pixelY / unit }; }
};

/// What stands below the phone.
enum class Footer { None, Player };

/// The phone's screen lies on whole pixels. `scale`: how many pixels of the display do what one does on a plain one.
Layout layOut(PixelSize window, const ScreenSize& screen, std::int64_t orientation, Footer footer = Footer::None,
    double scale = 1);

/// Whether there is room for words below a phone that stands alone.
enum class Strip { None, Caption };

/// Nothing but the phone, as in a film; the words stand where the player would.
Layout layOutAlone(PixelSize picture, const ScreenSize& screen, std::int64_t orientation, Strip strip);

} // namespace panotra::sim
