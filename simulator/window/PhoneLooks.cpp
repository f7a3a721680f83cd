/// Boxes with round corners, turned with the phone.
#include "simulator/window/PhoneLooks.h"

#include "simulator/window/Palette.h"

namespace panotra::sim {

void addBody(Sheet& sheet, const PhonePlace& place)
{
    constexpr double slitWidth = 52;
    constexpr double slitHeight = 5;
    const PhoneBody shape = place.shape();
    const double points = place.unitsPerPoint();
    sheet.add(Box { place.body(), palette::body, shape.radius * points, palette::bodyEdge });
    if (shape.hasHomeButton) {
        const double x = (place.screenSize().width - slitWidth) / 2;
        sheet.add(Box { place.onSheet({ x, -(shape.above + slitHeight) / 2, slitWidth, slitHeight }), palette::hovered,
            slitHeight / 2 * points });
    }
}

void addRims(Sheet& sheet, const PhonePlace& place)
{
    const PhoneBody shape = place.shape();
    if (shape.hasHomeButton)
        return;
    constexpr double notchWidth = 200;
    constexpr double notchHeight = 26;
    constexpr double lineWidth = 130;
    constexpr double lineHeight = 5;
    const double points = place.unitsPerPoint();
    const ScreenSize& screen = place.screenSize();
    sheet.add(Rim { place.screen(), palette::body, shape.screenRadius * points });
    sheet.add(Box {
        place.onSheet({ (screen.width - notchWidth) / 2, -shape.above / 2, notchWidth, notchHeight + shape.above / 2 }),
        palette::body, notchHeight * 0.6 * points });
    sheet.add(
        Box { place.onSheet({ (screen.width - lineWidth) / 2, screen.height - 8 - lineHeight, lineWidth, lineHeight }),
            palette::bright, lineHeight / 2 * points });
}

std::optional<Area> homeButtonOf(const PhonePlace& place)
{
    constexpr double size = 32;
    const PhoneBody shape = place.shape();
    if (!shape.hasHomeButton)
        return std::nullopt;
    const ScreenSize& screen = place.screenSize();
    return place.onSheet({ (screen.width - size) / 2, screen.height + (shape.above - size) / 2, size, size });
}

void addHomeButton(Sheet& sheet, const PhonePlace& place, bool isPressed)
{
    const auto area = homeButtonOf(place);
    if (!area)
        return;
    const double depth = isPressed ? 2 * place.unitsPerPoint() : 0;
    const Area button = area->inset(depth, depth);
    sheet.add(Box { button, isPressed ? palette::black : palette::body, button.width / 2,
        isPressed ? palette::dim : palette::bodyEdge });
}

Area areaOf(const SideButton& button, const PhonePlace& place, bool isPressed)
{
    constexpr double standsOut = 4;
    constexpr double underBody = 4;
    const double out = isPressed ? standsOut / 2 : standsOut;
    const double beside = place.shape().beside;
    const double edge = button.isAtRight ? place.screenSize().width + beside : -beside;
    return { button.isAtRight ? edge - underBody : edge - out, button.y, out + underBody, button.height };
}

void addSideButton(Sheet& sheet, const PhonePlace& place, const Area& area, SideButtonLooks looks)
{
    const Rgba& fill = looks == SideButtonLooks::Pressed ? palette::accent
        : looks == SideButtonLooks::Hovered              ? palette::dim
                                                         : palette::bodyEdge;
    sheet.add(Box { place.onSheet(area), fill, 2 * place.unitsPerPoint() });
}

} // namespace panotra::sim
