/// Texts cut at slashes.
#include "platform/ios/rootless/Surroundings.h"

#include <algorithm>

namespace panotra::ios {

bool pathInFolderAround(
    std::string_view inside, std::size_t level, std::string_view path, std::array<char, longestPath>& text) noexcept
{
    std::string_view folder = inside;
    for (std::size_t outwards = 0; outwards <= level; ++outwards) {
        const std::size_t slash = folder.rfind('/');
        if (slash == std::string_view::npos)
            return false;
        folder = folder.substr(0, slash);
    }
    if (folder.size() >= text.size() || path.size() >= text.size() - folder.size())
        return false;
    *std::copy(path.begin(), path.end(), std::copy(folder.begin(), folder.end(), text.begin())) = '\0';
    return true;
}

} // namespace panotra::ios
