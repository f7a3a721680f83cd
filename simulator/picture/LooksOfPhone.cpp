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

std::optional<render::Wallpaper> findWallpaper(const std::string& name, std::string& failure)
{
    if (name == "dusk")
        return render::Wallpaper::dusk();
    if (name == "dawn")
        return render::Wallpaper::dawn();
    return render::Wallpaper::fromFile(name, failure);
}

} // namespace panotra::sim
