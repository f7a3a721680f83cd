/// How text for people is to look, and how much of it there is to be.
#pragma once

#include "simulator/scenario/EventFilter.h"

#include <cstddef>

namespace panotra::sim {

/// What no terminal is narrower than, and what nobody likes to read wider.
inline constexpr std::size_t narrowestText = 20;
inline constexpr std::size_t widestText = 120;

struct TextLook {
    /// No line of the story has more columns. The verbose text, which others lay out for themselves, keeps its own.
    std::size_t width = 80;
    bool hasColours = false; ///< of a terminal; the verbose text has none
    EventFilter only {}; ///< the events that are told of; whatever brought none of them about is left out as well
};

} // namespace panotra::sim
