/// The table of the window's own keys.
#include "simulator/window/WindowKeys.h"

#include <algorithm>
#include <array>

namespace panotra::sim {

namespace {

constexpr const char* window = "Window";
constexpr const char* player = "Time";

constexpr std::array keys {
    WindowKey { WindowAct::Pause, player, "Space", "Space", "Pause, go on" },
    WindowKey { WindowAct::NextLine, player, "Right", "\u2192", "Next line of the scenario" },
    WindowKey { WindowAct::NextFrame, player, ".", ".", "Next frame" },
    WindowKey { WindowAct::Slower, player, "-", "\u2212", "Slower" },
    WindowKey { WindowAct::Faster, player, "+", "+", "Faster" },
    WindowKey { WindowAct::FromStart, player, "Home", "Home", "From the start" },
    WindowKey { WindowAct::Help, window, "?", "?", "This list" },
    WindowKey { WindowAct::Menu, window, "F10", "F10", "Menu: device, system" },
    WindowKey { WindowAct::Inspector, window, "I", "I", "Inspector" },
    WindowKey { WindowAct::OtherSystem, window, "O", "O", "Next system" },
    WindowKey { WindowAct::Recording, window, "F9", "F9", "Record, or end it" },
    WindowKey { WindowAct::Picture, window, "F12", "F12", "Take a picture" },
    WindowKey { WindowAct::Sound, window, "K", "K", "Clicks and tones" },
    WindowKey { WindowAct::Quit, window, "Q", "Q", "Quit" },
};

} // namespace

std::span<const WindowKey> windowKeys()
{
    return keys;
}

const WindowKey* findWindowKey(std::string_view key)
{
    const auto found = std::ranges::find(keys, key, &WindowKey::key);
    return found == keys.end() ? nullptr : &*found;
}

const WindowKey& keyOf(WindowAct act)
{
    return *std::ranges::find(keys, act, &WindowKey::act);
}

bool isTyped(const WindowKey& key)
{
    const std::string_view name = key.key;
    return name.size() == 1 && (name.front() < 'A' || name.front() > 'Z');
}

} // namespace panotra::sim
