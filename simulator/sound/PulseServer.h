/// The session's sound server by libpulse: PulseAudio, or PipeWire through its PulseAudio service.
///
/// libpulse runs on a thread of its own, which sleeps while the server says nothing. Where there is no server it is
/// looked for when its socket appears, and every now and then, each time later.
#pragma once

#include "simulator/sound/SoundServer.h"

#include <functional>
#include <memory>

namespace panotra::sound {

class PulseServer final : public SoundServer {
public:
    /// Begins to connect. `wake` is called on the thread of libpulse whenever there is something to take. Null where
    /// the system has no thread or memory for it.
    static std::unique_ptr<PulseServer> make(std::function<void()> wake);
    /// `wake` is not called any more afterwards. The server keeps its volumes.
    ~PulseServer() override;

    std::vector<Report> take() override;
    Serial nextSerial() override;
    void set(const VolumeSet& set) override;
    void ask() override;

private:
    PulseServer();
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace panotra::sound
