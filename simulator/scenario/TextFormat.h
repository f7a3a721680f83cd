/// Values as people read them.
#pragma once

#include "simulator/device/Device.h"

#include <string>
#include <vector>

namespace panotra::sim {

/// Six significant digits at most: 0.5, 26.88, 667.
std::string shortNumber(double number);
/// A level as a percentage of four significant digits at most: 50%, 6.25%.
std::string percent(double level);
std::string percent(const Json& level);
/// Strings bare, booleans as yes and no, null as nil, lists in parentheses, numbers short.
std::string shortValue(const Json& value);
/// `start`, then "a, b, c", broken into lines of about a hundred characters; `start` stands at the column `indent`, and
/// later lines begin there.
std::string wrapped(const std::string& start, const std::vector<std::string>& items, std::size_t indent);

/// The first column of a line, in which the time stands; two blanks follow.
inline constexpr std::size_t timeColumnWidth = 10;

} // namespace panotra::sim
