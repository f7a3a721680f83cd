/// How fast the phone's time passes: as the real one, slower, faster, or not at all.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace panotra::sim {

/// From a sixteenth to sixteen times the real speed, in steps of two.
class Pace {
public:
    bool isPaused() const { return m_isPaused; }
    void pause() { m_isPaused = true; }
    void pauseOrGoOn() { m_isPaused = !m_isPaused; }
    /// Each does nothing at the end of the range.
    void slower();
    void faster();
    /// "1/4×", "1×", "16×".
    std::string speed() const;

    /// The phone's time that passes in so much real time. What is less than a microsecond is kept for the next call.
    std::chrono::microseconds pass(std::chrono::microseconds realTime);
    /// How much real time it takes until so much of the phone's has passed; none while it stands still.
    std::optional<std::chrono::microseconds> realTimeFor(std::chrono::microseconds time) const;

private:
    /// The phone's time in sixteenths of the real one.
    std::int64_t sixteenths() const { return std::int64_t { 1 } << m_step; }

    int m_step = 4; ///< from 0, a sixteenth, to 8, sixteen times
    std::int64_t m_rest = 0; ///< sixteenths of a microsecond
    bool m_isPaused = false;
};

} // namespace panotra::sim
