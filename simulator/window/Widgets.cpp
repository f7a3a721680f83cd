/// The looks of each widget.
#include "simulator/window/Widgets.h"

#include "simulator/scenario/TextFormat.h"
#include "simulator/window/Palette.h"

#include <algorithm>
#include <cmath>

namespace panotra::sim {

using render::TextAlignment;
using render::TextWeight;

namespace {

/// An area of that size in the middle of the height, at the left.
Area middle(const Area& area, double width, double height)
{
    return { area.x, area.y + (area.height - height) / 2, width, height };
}

const Rgba& fillOf(Emphasis emphasis)
{
    switch (emphasis) {
    case Emphasis::On:
        return palette::accentDark;
    case Emphasis::Hovered:
        return palette::hovered;
    default:
        return palette::button;
    }
}

std::string percentage(double level)
{
    return shortNumber(std::round(level * 100)) + '%'; // whatever is stored
}

} // namespace

void addText(Sheet& sheet, const Area& area, const std::string& text, const Rgba& color, double size,
    TextAlignment alignment, TextWeight weight)
{
    if (!text.empty())
        sheet.add(Text { area, text, { size, weight, alignment }, color });
}

Area addCard(Sheet& sheet, const Area& area, const std::string& heading)
{
    constexpr double paddingX = 14;
    constexpr double paddingY = 8;
    constexpr double headingHeight = 24;
    sheet.add(Box { area, palette::card, 10, palette::edge });
    Area inside = area.inset(paddingX, paddingY);
    addText(sheet, inside.takeTop(headingHeight), heading, palette::dim, smallText, TextAlignment::Left,
        TextWeight::Medium);
    return inside;
}

void addKeyCap(Sheet& sheet, const Area& area, const std::string& cap, Emphasis emphasis)
{
    const bool isOn = emphasis == Emphasis::On;
    sheet.add(Box { area, isOn ? palette::accent : palette::keyCap, 5 });
    addText(sheet, area, cap, isOn ? palette::surround : palette::text, smallText, TextAlignment::Center,
        TextWeight::Medium);
}

double widthOfCap(std::string_view cap, double height)
{
    constexpr double characterWidth = 7;
    constexpr double rims = 10;
    // Bytes that go on with a character are none of their own.
    const auto count
        = std::ranges::count_if(cap, [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80U; });
    return count > 1 ? std::max(height, static_cast<double>(count) * characterWidth + rims) : height;
}

void addButton(Sheet& sheet, const Area& area, const std::string& cap, const std::string& label,
    const std::string& state, Emphasis emphasis)
{
    constexpr double capSize = 20;
    sheet.add(Box { area, fillOf(emphasis), 7 });
    Area inside = area.inset(4, 0);
    const double capWidth = widthOfCap(cap, capSize);
    addKeyCap(sheet, middle(inside.takeLeft(capWidth), capWidth, capSize), cap, emphasis);
    inside.takeLeft(8);
    inside.takeRight(6);
    addText(sheet, inside, label, palette::text);
    addText(
        sheet, inside, state, emphasis == Emphasis::On ? palette::text : palette::dim, smallText, TextAlignment::Right);
}

void addSwitch(Sheet& sheet, const Area& area, bool isOn, Emphasis emphasis)
{
    constexpr double width = 38;
    constexpr double height = 22;
    constexpr double rim = 3;
    const Area box { area.right() - width, area.y + (area.height - height) / 2, width, height };
    const Rgba& off = emphasis == Emphasis::Hovered ? palette::keyCap : palette::track;
    sheet.add(Box { box, isOn ? palette::accent : off, height / 2 });
    const double knob = height - 2 * rim;
    const double x = isOn ? box.right() - rim - knob : box.x + rim;
    sheet.add(Box { { x, box.y + rim, knob, knob }, isOn ? palette::bright : palette::dim, knob / 2 });
}

void addChoice(Sheet& sheet, const Area& area, const std::string& label, Emphasis emphasis)
{
    sheet.add(Box { area, fillOf(emphasis), 6 });
    addText(sheet, area, label, emphasis == Emphasis::On ? palette::bright : palette::dim, smallText + 0.5,
        TextAlignment::Center);
}

void addSlider(Sheet& sheet, const Area& area, double fraction, Emphasis emphasis)
{
    constexpr double thickness = 4;
    constexpr double knob = 14;
    const Area track = middle(area, area.width, thickness);
    sheet.add(Box { track, palette::track, thickness / 2 });
    const double x = area.x + fraction * (area.width - knob);
    sheet.add(Box { { track.x, track.y, x + knob / 2 - track.x, thickness }, palette::accent, thickness / 2 });
    sheet.add(Box { { x, area.y + (area.height - knob) / 2, knob, knob },
        emphasis == Emphasis::None ? palette::text : palette::bright, knob / 2 });
}

void addMeter(Sheet& sheet, const Area& area, double labelWidth, const std::string& label, std::optional<double> level,
    Emphasis emphasis)
{
    constexpr double numberWidth = 36;
    constexpr double thickness = 5;
    Area inside = area;
    const bool isOn = emphasis == Emphasis::On;
    addText(sheet, inside.takeLeft(labelWidth), label, isOn ? palette::bright : palette::dim, smallText);
    addText(sheet, inside.takeRight(numberWidth), level ? percentage(*level) : "\u2013",
        isOn ? palette::bright : palette::text, smallText, TextAlignment::Right);
    const Area track = middle(inside, inside.width, thickness);
    sheet.add(Box { track, palette::track, thickness / 2 });
    const double filled = track.width * std::clamp(level.value_or(0), 0.0, 1.0);
    if (filled > 0)
        sheet.add(Box { { track.x, track.y, std::max(filled, thickness), thickness },
            isOn ? palette::accent : palette::dim, thickness / 2 });
}

} // namespace panotra::sim
