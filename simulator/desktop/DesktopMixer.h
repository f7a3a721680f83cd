/// The mixer of a computer: what its sound server reports becomes the phone's announcements, what the mixer sets
/// becomes the server's volume.
#pragma once

#include "simulator/desktop/StandInLevels.h"
#include "simulator/device/Device.h"
#include "simulator/sound/ServerAudio.h"
#include "simulator/sound/SoundServer.h"

#include <functional>
#include <string>

namespace panotra::sim {

/// As the platform calls it.
const char* nameOf(sound::Reason reason);

class DesktopMixer {
public:
    /// How the home screen is told of what happened, once the audio service shows it.
    using Announce = std::function<void(const sound::Announcement& happened)>;

    /// `device` has launched; from now on the server makes its sound. `limit`: how loud what is put back may be, 0
    /// to 1. `tell` gets a line for what a person should know. `announce`: none: as a system does. The server must
    /// outlive this.
    DesktopMixer(Device& device, sound::SoundServer& server, float limit,
        std::function<void(const std::string& line)> tell, Announce announce = {});
    ~DesktopMixer();
    DesktopMixer(const DesktopMixer&) = delete;
    DesktopMixer& operator=(const DesktopMixer&) = delete;

    /// Does what follows from all that the server has reported. Sets what there is to set.
    void turn();
    /// Sets what a person has chosen since, by a drag or a key.
    void send();

    /// Of the next snapshot that is asked for; once one of that number or later was seen and nothing is left to be
    /// set, all that had happened before is done.
    sound::Serial askAnew();
    bool isDone(sound::Serial asked) const;

    const sound::ServerReading& reading() const { return m_reading; }
    const sound::ServerAudio& audio() const { return m_audio; }
    StandInLevels& levels() { return m_levels; }
    float limit() const { return m_limit; }

private:
    void handle(const sound::Snapshot& snapshot);
    void handle(const sound::Answer& answer) { m_reading.hear(answer); }
    void handle(const sound::Loss& loss);
    void announce(const sound::Announcement& happened);
    void takeOver(SlotNumber slot, const sound::Announcement& happened);

    Device& m_device;
    sound::SoundServer& m_server;
    const float m_limit;
    std::function<void(const std::string& line)> m_tell;
    sound::ServerReading m_reading;
    sound::ServerAudio m_audio;
    Announce m_announce;
    StandInLevels m_levels;
    sound::Serial m_seen = 0; ///< the last snapshot
};

} // namespace panotra::sim
