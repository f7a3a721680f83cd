/// The computer's speaker, as long as something sounds: an open one would wake the process all the time.
#pragma once

#include "simulator/window/Tones.h"

#include <SDL.h>

#include <chrono>
#include <optional>

namespace panotra::sim {

class Speaker {
public:
    using Moment = std::chrono::time_point<std::chrono::steady_clock, std::chrono::microseconds>;

    Speaker() = default;
    ~Speaker();
    Speaker(const Speaker&) = delete;
    Speaker& operator=(const Speaker&) = delete;

    /// Instead of what still sounds. Silent where there is no sound device.
    void play(const Samples& samples, Moment now);
    /// When it is to be closed; none: it is closed.
    const std::optional<Moment>& closesAt() const { return m_closesAt; }
    void closeIfDue(Moment now);

private:
    bool open();
    void close();

    SDL_AudioDeviceID m_device = 0; ///< 0: closed
    bool m_isMissing = false; ///< there is no sound device; nobody is asked again
    std::optional<Moment> m_closesAt;
};

} // namespace panotra::sim
