/// Looking up in the tables, whatever the case of the letters.
#include "simulator/sound/SoundTables.h"

#include "facts/AudioNames.h"
#include "simulator/text/SmallLetters.h"

#include <algorithm>

namespace panotra::sound {

namespace {

bool saysSomething(const std::string& portType)
{
    return !portType.empty() && std::ranges::find(portTypesThatSayNothing, portType) == portTypesThatSayNothing.end();
}

} // namespace

OutputRoute routeOf(const OutputTraits& output)
{
    if (output.name == standInOutput)
        return { "none", false };
    const std::string portType = inSmallLetters(output.portType);
    const std::string kind = saysSomething(portType) ? portType : inSmallLetters(output.formFactor);
    const bool isBluetooth = inSmallLetters(output.bus) == "bluetooth";
    const auto row = std::ranges::find(routeRows, kind, &RouteRow::kind);
    const char* route = isBluetooth ? route::headphonesBT : nullptr;
    if (row != routeRows.end())
        route = isBluetooth ? row->routeByBluetooth : row->route;
    return route != nullptr ? OutputRoute { route, true } : OutputRoute { kind, false };
}

std::optional<std::string> categoryOfRole(std::string_view role)
{
    const auto row = std::ranges::find(roleRows, inSmallLetters(role), &RoleRow::role);
    if (row == roleRows.end())
        return category::audioVideo;
    return row->category != nullptr ? std::optional<std::string>(row->category) : std::nullopt;
}

} // namespace panotra::sound
