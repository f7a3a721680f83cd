/// Where the window stood and how large it was when it was closed last, in a file of the person's.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace panotra::sim {

/// In units of the display, as window managers count.
struct WindowPlace {
    int x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

std::string textOf(const WindowPlace& place);
/// None where the text is something else, or no place for a window.
std::optional<WindowPlace> placeIn(std::string_view text);

/// Below $XDG_STATE_HOME, or ~/.local/state; none where there is no home.
std::optional<std::string> placeFile();
/// None where nothing was remembered.
std::optional<WindowPlace> rememberedPlace();
/// Silent where it cannot: the window then opens as usual.
void rememberPlace(const WindowPlace& place);

} // namespace panotra::sim
