/// One process in which happenings take place, and everything that is looked at in it.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/Player.h"
#include "tests/interleavings/Happenings.h"
#include "tests/interleavings/Rules.h"

#include <optional>
#include <string>
#include <vector>

namespace panotra::testing {

/// Changes a process once it has launched, to see whether that is noticed.
using Plant = void (*)(sim::Device& device);

class World {
public:
    /// Plays the beginning.
    explicit World(Plant plant);

    /// The same without looking: what leads to a state that was looked at before.
    void repeat(const std::string& lines);
    /// Plays the lines and looks. `happening`: the name of what they bring about; empty for a pause.
    void play(const std::string& lines, const std::string& happening = "");
    /// Lets so much time pass, and looks.
    void pass(double seconds);
    /// The end: everything comes to rest, and the mixer is dismissed. Answers which allowances were seen at rest.
    std::vector<std::size_t> end();

    Situation situation() { return { m_device, m_isRingerMuted }; }
    sim::Device& device() { return m_device; }
    std::string state() const;
    bool expectationsHeld() const { return m_player.expectationsHeld(); }
    /// The first thing that did not hold, after the name of its rule; none if all was well.
    const std::optional<std::string>& violation() const { return m_violation; }

private:
    Course course();
    void note(const char* rule, const std::optional<std::string>& violation);
    void look();
    void followDrag();

    sim::Device m_device;
    sim::Player m_player;
    std::optional<std::string> m_violation;
    bool m_isRingerMuted = false;
    bool m_ringerWasMuted = false;
    bool m_wasDragging = false;
    bool m_isDragLost = false;
};

} // namespace panotra::testing
