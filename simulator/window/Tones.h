/// What a phone is heard with, as samples: the click of a button and a tone as loud as the level that it leaves.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace panotra::sim {

class SoundService;

inline constexpr int samplesPerSecond = 48000;

/// One channel, 16 bits a sample.
using Samples = std::vector<std::int16_t>;

Samples click();
/// `level`: from 0, which is silent, to 1.
Samples tone(double level);

/// Notices that the level that is heard has changed. Where another category or route is heard, that is no step.
class LevelWatch {
public:
    explicit LevelWatch(const SoundService& sound);
    /// Whether it has since the last call.
    bool hasStepped();
    double level() const { return m_level; }

private:
    const SoundService& m_sound;
    std::string m_pair;
    double m_level = 0;
};

} // namespace panotra::sim
