/// Where preferences live when nobody says otherwise.
#include "simulator/preferences/DefaultFolder.h"

#include <cstdlib>

namespace panotra::preferences {

namespace {

/// The base directory rules have relative paths ignored.
std::optional<std::filesystem::path> absolutePathIn(const char* variable)
{
    const char* value = std::getenv(variable);
    if (value == nullptr || value[0] != '/')
        return std::nullopt;
    return std::filesystem::path(value);
}

} // namespace

std::optional<std::filesystem::path> defaultFolder()
{
    auto data = absolutePathIn("XDG_DATA_HOME");
    if (!data) {
        const auto home = absolutePathIn("HOME");
        if (!home)
            return std::nullopt;
        data = *home / ".local" / "share";
    }
    return *data / "panotra" / "preferences";
}

} // namespace panotra::preferences
