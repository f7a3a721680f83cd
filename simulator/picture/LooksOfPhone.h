/// A phone's screen and wallpaper as a command line names them.
#pragma once

#include "simulator/picture/ShownMixer.h"
#include "simulator/render/Wallpaper.h"

#include <optional>
#include <string>

namespace panotra::sim {

/// "WxH@S", each a number above 0.
std::optional<ScreenSize> parseScreen(const std::string& text);
/// What is wrong with a text that is no screen: "found …, expected …".
std::string whyNoScreen(const std::string& text);

/// Whether the wallpaper is a file, not one of those with names.
bool isWallpaperFile(const std::string& name);

/// "dusk", "dawn" or a PNG file. None and the reason in `failure` if the file is no readable PNG.
std::optional<render::Wallpaper> findWallpaper(const std::string& name, std::string& failure);

} // namespace panotra::sim
