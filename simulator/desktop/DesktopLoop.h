/// The loop of the mixer that runs: it sleeps until the sound server, the clock, a setting, a request or a signal
/// wakes it.
#pragma once

#include "simulator/desktop/DesktopMixer.h"
#include "simulator/desktop/DesktopPhone.h"
#include "simulator/desktop/DesktopRequests.h"
#include "simulator/preferences/FileDescriptor.h"

#include <functional>
#include <optional>
#include <string>

namespace panotra::sim {

/// Wakes the loop. From any thread.
class DesktopBell {
public:
    DesktopBell();
    bool works() const { return m_event.isOpen(); }
    void ring() const;
    /// Somebody has changed settings; rings, too.
    void ringForSettings() const;

    int descriptor() const { return m_event.get(); }
    struct Rung {
        bool hasRung = false;
        bool isForSettings = false;
    };
    Rung silence() const;

private:
    preferences::FileDescriptor m_event;
};

class DesktopLoop {
public:
    /// `present`: shows the mixer, and answers whether it can.
    DesktopLoop(
        DesktopPhone& phone, DesktopMixer& mixer, const DesktopBell& bell, int door, std::function<bool()> present);

    /// How to wait: at most `longest` milliseconds, negative: as long as it takes; and until there is something to be
    /// read from `descriptor`, if it is not negative.
    struct Pause {
        int longest = -1;
        int descriptor = -1;
    };

    /// Does what there is to be done, then waits for more of it. `show` shows what has come about, and answers how to
    /// wait; without one nothing is shown. Answers false once a signal has asked for the end.
    bool turn(const std::function<Pause()>& show = {});

private:
    void wait(const Pause& pause);

    DesktopPhone& m_phone;
    DesktopMixer& m_mixer;
    const DesktopBell& m_bell;
    DesktopRequests m_requests;
    preferences::FileDescriptor m_signals;
    bool m_isOver = false;
};

/// Has the signals that end a program wait until the loop asks for them. Before any thread is made.
void holdEndingSignals();
/// Can be read from once one of them has come.
preferences::FileDescriptor openEndingSignals();

} // namespace panotra::sim
