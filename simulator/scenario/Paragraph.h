/// Words laid out in lines that are no wider than a terminal.
#pragma once

#include "simulator/scenario/TextLook.h"

#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

/// What a piece of text is, for its colour.
enum class Ink { Plain, Time, Command, Remark, Level, Measure };

struct Phrase {
    std::string text;
    Ink ink = Ink::Plain; ///< levels and measures are not broken at their blanks

    friend bool operator==(const Phrase&, const Phrase&) = default;
};

/// What stands before the words of a paragraph: on its first line, and on all others.
struct Margin {
    std::string first;
    std::string others;
    Ink ink = Ink::Plain;
};

/// The phrases one after the other, each line ended. A line is broken between words; a word that no line could hold is
/// broken where the line ends. A margin that leaves no room is cut.
std::string paragraph(const Margin& margin, const std::vector<Phrase>& phrases, const TextLook& look);

/// A line as somebody wrote it, with its own blanks if it fits.
std::string writtenLine(const Margin& margin, const std::vector<Phrase>& line, const TextLook& look);

} // namespace panotra::sim
