/// The window's menu: which phone it is, and what is behind its home screen.
#pragma once

#include "simulator/window/Sheet.h"

#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

class Session;
struct Attention;
class Desk;

enum class MenuRow { Device, System, Wallpaper, Sound, Forget };

/// Of the systems in the menu: none, that is all of what 10 to 12 have, then from the oldest to the newest.
std::vector<std::optional<int>> systemChoices();
/// A wallpaper as the menu calls it, "Dusk", as it is asked for, "dusk"; and back. A file is called as it is.
std::string wallpaperOfMenu(const std::string& name);
std::string menuNameOf(const std::string& wallpaper);
/// What the choices of a row are called.
std::vector<std::string> choicesOf(MenuRow row, const Attention& attention);

} // namespace panotra::sim
