/// Which of the twelve levels somebody has chosen, and which only stand in for what was never heard.
///
/// On a phone a level that is not there reads as 0, and opening the mixer writes one for every slider. Here neither may
/// ever reach the speakers. So all twelve are written at the very beginning, and a property list of its own says which
/// of them are stand-ins: what stands there still with the same value was chosen by nobody.
#pragma once

#include "facts/VolumeSlots.h"
#include "simulator/device/Device.h"

#include <array>
#include <optional>
#include <string_view>

namespace panotra::sim {

class StandInLevels {
public:
    static constexpr const char* domain = "net.qorvath.panotra.desktop";

    /// Whether a setting is a level, or says of one that it stands in: those are read whenever they are needed, and
    /// mostly written by this program.
    static bool isLevel(std::string_view domainOfIt, std::string_view key);

    explicit StandInLevels(Device& device);

    /// Writes a stand-in for every level that is not there.
    void fillIn(float level);
    /// The level as it is stored now; none: nobody has chosen one.
    std::optional<float> remembered(SlotNumber slot);
    /// Somebody has chosen, if only what stood there.
    void isChosen(SlotNumber slot);
    /// This is the level from now on, as if somebody had chosen it.
    void take(SlotNumber slot, float level);

private:
    std::optional<float> stored(SlotNumber slot) const;

    Device& m_device;
    std::array<std::optional<float>, volumeSlotCount> m_standIns {};
};

} // namespace panotra::sim
