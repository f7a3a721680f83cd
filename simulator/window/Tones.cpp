/// Samples, made when they are asked for: they are few.
#include "simulator/window/Tones.h"

#include "simulator/device/SoundService.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace panotra::sim {

namespace {

/// A decaying wave of that frequency.
Samples wave(double seconds, double frequency, double loudness)
{
    constexpr double loudest = 32767;
    constexpr double attack = 0.004; ///< seconds; a wave that begins at once would crack
    Samples samples(static_cast<std::size_t>(seconds * samplesPerSecond));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = static_cast<double>(i) / samplesPerSecond;
        const double envelope = std::min(time / attack, 1.0) * (1 - time / seconds);
        samples[i] = static_cast<std::int16_t>(
            std::lround(loudest * loudness * envelope * std::sin(2 * std::numbers::pi * frequency * time)));
    }
    return samples;
}

std::string pairOf(const SoundService& sound)
{
    return sound.categoryInUse() + ' ' + sound.activeRoute().value_or(std::string());
}

} // namespace

Samples click()
{
    constexpr double loudness = 0.12;
    return wave(0.012, 1800, loudness);
}

Samples tone(double level)
{
    constexpr double loudness = 0.5; ///< at full level
    return wave(0.12, 880, loudness * std::clamp(level, 0.0, 1.0));
}

LevelWatch::LevelWatch(const SoundService& sound)
    : m_sound(sound)
    , m_pair(pairOf(sound))
    , m_level(sound.level(sound.categoryInUse()))
{
}

bool LevelWatch::hasStepped()
{
    const bool isSamePair = std::exchange(m_pair, pairOf(m_sound)) == m_pair;
    const double before = std::exchange(m_level, m_sound.level(m_sound.categoryInUse()));
    return isSamePair && before != m_level;
}

} // namespace panotra::sim
