/// Columns: the buttons, the phone, the panel.
#include "simulator/window/Layout.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace panotra::sim {

namespace {

constexpr double margin = 24;
constexpr double controlsWidth = 228;
constexpr double panelWidth = 392;
constexpr double mostPanelWidth = 640;
constexpr double foldedWidth = 320;
constexpr double playerHeight = 124;
constexpr double sideButtonDepth = 4; ///< of what stands out of the body, points

/// Below this many pixels a unit on a plain display, text is too small to be read, above it is larger than anybody
/// needs.
constexpr double smallestUnit = 0.65;
constexpr double largestUnit = 1.5;

struct Arrangement {
    double width;
    bool isFolded;
};

constexpr std::array arrangements {
    Arrangement { sheetWidth, false },
    Arrangement { 660, true },
};

bool isLandscape(std::int64_t orientation)
{
    return orientation == 3 || orientation == 4;
}

/// A quarter turn of the phone's body from upright to how it is held, as (cosine, sine).
Point turnOf(std::int64_t orientation)
{
    switch (orientation) {
    case 2:
        return { -1, 0 };
    case 3:
        return { 0, -1 };
    case 4:
        return { 0, 1 };
    default:
        return { 1, 0 };
    }
}

/// The phone in the middle of the area, as large as it can be.
PhonePlace placeIn(const Area& area, double unit, const ScreenSize& screen, std::int64_t orientation)
{
    // As many pixels a point as fit, and a whole number of them on the screen's long side.
    const PhoneBody body = bodyOf(screen);
    const double bodyWidth = screen.width + 2 * (body.beside + sideButtonDepth);
    const double bodyHeight = screen.height + 2 * body.above;
    const bool lies = isLandscape(orientation);
    const double fitting
        = std::min(area.width / (lies ? bodyHeight : bodyWidth), area.height / (lies ? bodyWidth : bodyHeight));
    const double longSide = std::max(screen.width, screen.height);
    const double pixels = std::max(std::floor(longSide * fitting * unit), 1.0);
    const double pixelsPerPoint = pixels / longSide;

    // Its top left corner on a whole pixel.
    const auto centered = [&](double start, double length, double points) {
        const double size = points * pixelsPerPoint;
        return (std::round((start + length / 2) * unit - size / 2) + size / 2) / unit;
    };
    const Point center { centered(area.x, area.width, lies ? screen.height : screen.width),
        centered(area.y, area.height, lies ? screen.width : screen.height) };
    return PhonePlace(screen, orientation, center, pixelsPerPoint / unit);
}

} // namespace

PhonePlace::PhonePlace(ScreenSize screen, std::int64_t orientation, Point center, double unitsPerPoint)
    : m_screen(screen)
    , m_orientation(orientation)
    , m_center(center)
    , m_unitsPerPoint(unitsPerPoint)
{
}

Area PhonePlace::onSheet(const Area& upright) const
{
    const Point turn = turnOf(m_orientation);
    const auto place = [&](double x, double y) {
        const double fromMiddleX = (x - m_screen.width / 2) * m_unitsPerPoint;
        const double fromMiddleY = (y - m_screen.height / 2) * m_unitsPerPoint;
        return Point { m_center.x + fromMiddleX * turn.x - fromMiddleY * turn.y,
            m_center.y + fromMiddleX * turn.y + fromMiddleY * turn.x };
    };
    const Point one = place(upright.x, upright.y);
    const Point other = place(upright.right(), upright.bottom());
    return { std::min(one.x, other.x), std::min(one.y, other.y), std::abs(other.x - one.x), std::abs(other.y - one.y) };
}

Point PhonePlace::onScreen(Point sheetPoint) const
{
    const Point turn = turnOf(m_orientation);
    const double x = (sheetPoint.x - m_center.x) / m_unitsPerPoint;
    const double y = (sheetPoint.y - m_center.y) / m_unitsPerPoint;
    return { x * turn.x + y * turn.y + m_screen.width / 2, y * turn.x - x * turn.y + m_screen.height / 2 };
}

PhonePlace PhonePlace::movedBy(double right, double unit) const
{
    PhonePlace moved = *this;
    moved.m_center.x += std::round(right * unit) / unit;
    return moved;
}

Area PhonePlace::body() const
{
    return onSheet(Area { 0, 0, m_screen.width, m_screen.height }.inset(-shape().beside, -shape().above));
}

Layout layOut(PixelSize window, const ScreenSize& screen, std::int64_t orientation, Footer footer, double scale)
{
    Layout layout;
    const Arrangement* arrangement = &arrangements.back();
    for (const Arrangement& each : arrangements) {
        layout.unit = std::min(window.width / each.width, window.height / sheetHeight);
        // A window may be low as well as narrow: then folding helps nothing.
        if (layout.unit >= std::min(smallestUnit * scale, window.height / sheetHeight)) {
            arrangement = &each;
            break;
        }
    }
    layout.unit = std::min(layout.unit, largestUnit * scale);
    layout.sheet = { 0, 0, window.width / layout.unit, window.height / layout.unit };

    Area rest = layout.sheet.inset(margin, margin);
    if (arrangement->isFolded) {
        layout.folded = rest.takeRight(foldedWidth);
        rest.takeRight(margin);
    } else {
        layout.controls = rest.takeLeft(controlsWidth);
        rest.takeLeft(margin);
        // What is left over is shared: the trace has long lines.
        const double spare = std::max(layout.sheet.width - sheetWidth, 0.0);
        layout.panel = rest.takeRight(std::min(panelWidth + spare / 3, mostPanelWidth));
        rest.takeRight(margin);
    }

    if (footer == Footer::Player) {
        layout.player = rest.takeBottom(playerHeight);
        rest.takeBottom(margin / 2);
    }
    layout.stand = rest;

    layout.phone = placeIn(rest, layout.unit, screen, orientation);
    return layout;
}

Layout layOutAlone(PixelSize picture, const ScreenSize& screen, std::int64_t orientation, Strip strip)
{
    constexpr double height = 760; // units
    constexpr double rim = 20;
    constexpr double captionHeight = 76;
    Layout layout;
    layout.unit = picture.height / height;
    layout.sheet = { 0, 0, picture.width / layout.unit, height };
    layout.stand = layout.sheet.inset(rim, rim);
    if (strip == Strip::Caption) {
        layout.player = layout.stand.takeBottom(captionHeight);
        layout.stand.takeBottom(rim / 2);
    }
    layout.phone = placeIn(layout.stand, layout.unit, screen, orientation);
    return layout;
}

} // namespace panotra::sim
