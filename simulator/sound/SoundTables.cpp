/// Looking up in the tables, whatever the case of the letters.
#include "simulator/sound/SoundTables.h"

#include "facts/AudioNames.h"

#include <algorithm>

namespace panotra::sound {

namespace {

/// Only the letters of ASCII: roles and form factors have no others.
std::string inSmallLetters(std::string_view text)
{
    std::string small(text);
    std::ranges::transform(
        small, small.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return small;
}

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
