/// A sound server as those see it who drive a device by it: what it reports, what it is told.
#pragma once

#include "simulator/sound/ServerState.h"

#include <vector>

namespace panotra::sound {

/// All of it on the thread that drives the device; none of it waits for the server.
class SoundServer {
public:
    virtual ~SoundServer() = default;

    /// What was reported since the last call, in order. There is never more than one snapshot among it: the server is
    /// asked again once the last is taken, however often it says that something changed.
    virtual std::vector<Report> take() = 0;
    virtual Serial nextSerial() = 0;
    /// Answered by a report, and followed by a snapshot. What the server does not take is answered too.
    virtual void set(const VolumeSet& set) = 0;
    /// Has a snapshot taken that is asked after now. Nothing while there is no server.
    virtual void ask() = 0;
};

} // namespace panotra::sound
