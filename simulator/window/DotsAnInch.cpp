/// Reads the dots an inch from the text of an X server's resources.
#include "simulator/window/X11Scale.h"

#include <algorithm>
#include <charconv>

namespace panotra::sim {

std::optional<double> dotsAnInch(std::string_view resources)
{
    constexpr std::string_view name = "Xft.dpi:";
    while (!resources.empty()) {
        const std::string_view line = resources.substr(0, resources.find('\n'));
        resources.remove_prefix(std::min(line.size() + 1, resources.size()));
        if (!line.starts_with(name))
            continue;
        std::string_view text = line.substr(name.size());
        text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
        double value = 0;
        const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        const bool isNumber = error == std::errc {} && rest == text.data() + text.size();
        return isNumber && value > 0 ? std::optional(value) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace panotra::sim
