/// What the window itself does when a key is pressed, the phone aside: one table for the keys, the buttons and the list
/// of keys.
#pragma once

#include <span>
#include <string_view>

namespace panotra::sim {

enum class WindowAct {
    Help,
    Menu,
    Inspector,
    CopyTrace,
    OtherSystem,
    Picture,
    Recording,
    Sound,
    Pause,
    NextLine,
    NextFrame,
    Slower,
    Faster,
    FromStart,
    Quit
};

struct WindowKey {
    WindowAct act;
    const char* group; ///< the heading under which it stands in the list of keys
    const char* key; ///< as SDL names it, "F9"; or the character that it types, if that is no letter
    const char* cap; ///< as it stands on the key
    const char* label;
};

std::span<const WindowKey> windowKeys();

/// Null if no key is called so.
const WindowKey* findWindowKey(std::string_view key);
const WindowKey& keyOf(WindowAct act);

/// Whether the character counts, wherever it is on the keyboard, not the key.
bool isTyped(const WindowKey& key);

} // namespace panotra::sim
