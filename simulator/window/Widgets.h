/// Buttons, switches, sliders and meters made of boxes and texts.
#pragma once

#include "simulator/window/Sheet.h"

#include <span>
#include <string>
#include <string_view>

namespace panotra::sim {

inline constexpr double smallText = 11.5;
inline constexpr double plainText = 13;

enum class Emphasis { None, Hovered, On };

void addText(Sheet& sheet, const Area& area, const std::string& text, const Rgba& color, double size = plainText,
    render::TextAlignment alignment = render::TextAlignment::Left,
    render::TextWeight weight = render::TextWeight::Regular);

/// A card with its heading. Answers the area inside, below the heading.
Area addCard(Sheet& sheet, const Area& area, const std::string& heading);
/// `state` stands at the right.
void addButton(Sheet& sheet, const Area& area, const std::string& cap, const std::string& label,
    const std::string& state, Emphasis emphasis);
void addKeyCap(Sheet& sheet, const Area& area, const std::string& cap, Emphasis emphasis);
/// How wide a key of that height is: square, unless there is more than one character on it.
double widthOfCap(std::string_view cap, double height);
void addSwitch(Sheet& sheet, const Area& area, bool isOn, Emphasis emphasis);
/// One of a row of choices.
void addChoice(Sheet& sheet, const Area& area, const std::string& label, Emphasis emphasis);
/// `fraction`: from 0 to 1.
void addSlider(Sheet& sheet, const Area& area, double fraction, Emphasis emphasis);
/// A label, a bar and a number. None: there is no level yet.
void addMeter(Sheet& sheet, const Area& area, double labelWidth, const std::string& label, std::optional<double> level,
    Emphasis emphasis);

} // namespace panotra::sim
