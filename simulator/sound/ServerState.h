/// What a sound server was seen to be, and the numbers by which its changes are put in order.
#pragma once

#include "simulator/sound/SoundTables.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace panotra::sound {

/// Everything that is asked of the server or heard from it gets the next number: of two, the later has the greater one.
using Serial = std::uint64_t;

/// A volume by channel as the server has it, on its cubic scale: 65536 is what its tools show as 100%.
using ChannelVolumes = std::vector<std::uint32_t>;

inline constexpr std::uint32_t fullVolume = 65536;

struct Output {
    std::uint32_t index = 0; ///< the server's, never used twice in its life
    OutputTraits traits {};
    std::string port {}; ///< the active one's name; empty: the output has none
    ChannelVolumes volumes {};
};

struct Stream {
    std::uint32_t index = 0;
    std::uint32_t output = 0; ///< that plays it
    std::string role {}; ///< the property media.role
    bool isPaused = false;
};

/// The server at a moment: it was asked with that number, so all that it had been told before is in it.
struct Snapshot {
    Serial asked = 0;
    Serial changed = 0; ///< when it last said that anything had changed, before that
    std::string server {}; ///< its name and version
    std::string defaultOutput {}; ///< by name; it may be none of the outputs
    std::vector<Output> outputs {};
    std::vector<Stream> streams {};

    /// Null: none.
    const Output* find(std::string_view name) const
    {
        for (const Output& output : outputs) {
            if (output.traits.name == name)
                return &output;
        }
        return nullptr;
    }
};

/// The server's answer to a set of ours.
struct Answer {
    Serial set = 0; ///< the number of the set
    Serial heard = 0;
    bool isDone = false;
};

/// There is no server any more, or none to begin with. Reported once until there is one again.
struct Loss {
    std::string why {};
};

using Report = std::variant<Snapshot, Answer, Loss>;

/// Volumes that the server is to be told.
struct VolumeSet {
    Serial serial = 0;
    std::uint32_t output = 0;
    ChannelVolumes volumes {};
};

} // namespace panotra::sound
