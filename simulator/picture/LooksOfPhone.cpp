/// Reading screens and wallpapers.
#include "simulator/picture/LooksOfPhone.h"

#include "simulator/scenario/Numbers.h"
#include "simulator/text/Printable.h"

namespace panotra::sim {

std::optional<ScreenSize> parseScreen(const std::string& text)
{
    const auto cross = text.find('x');
    const auto at = text.find('@');
    if (cross == text.npos || at == text.npos || at < cross)
        return std::nullopt;
    const auto width = parseDouble(text.substr(0, cross));
    const auto height = parseDouble(text.substr(cross + 1, at - cross - 1));
    const auto scale = parseDouble(text.substr(at + 1));
    if (!width || !height || !scale || !(*width > 0) || !(*height > 0) || !(*scale > 0))
        return std::nullopt;
    return ScreenSize { *width, *height, *scale };
}

std::string whyNoScreen(const std::string& text)
{
    return "found " + inQuotes(text) + ", expected WIDTHxHEIGHT@SCALE, each a number above 0, as in 375x667@2";
}

bool isWallpaperFile(const std::string& name)
{
    return name != "dusk" && name != "dawn";
}

std::optional<render::Wallpaper> findWallpaper(const std::string& name, std::string& failure)
{
    if (isWallpaperFile(name))
        return render::Wallpaper::fromFile(name, failure);
    return name == "dusk" ? render::Wallpaper::dusk() : render::Wallpaper::dawn();
}

} // namespace panotra::sim
