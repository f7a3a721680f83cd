/// Numbers as the scenario language reads them back: the very same.
#pragma once

#include <array>
#include <charconv>
#include <chrono>
#include <concepts>
#include <string>

namespace panotra::sim {

/// The shortest digits that give the finite number back.
template <std::floating_point Number> std::string numeral(Number number)
{
    std::array<char, 64> text {};
    return { text.data(), std::to_chars(text.begin(), text.end(), number).ptr };
}

/// Whole microseconds as seconds. Reading the text gives the nearest double, as dividing by a million does.
inline std::string inSeconds(std::chrono::microseconds time)
{
    constexpr std::size_t decimals = 6;
    std::string text = std::to_string(time.count());
    if (text.size() <= decimals)
        text.insert(0, decimals + 1 - text.size(), '0');
    text.insert(text.size() - decimals, 1, '.');
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

} // namespace panotra::sim
