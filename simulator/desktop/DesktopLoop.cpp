/// poll, and nothing that asks again and again.
#include "simulator/desktop/DesktopLoop.h"

#include "simulator/desktop/DesktopAnswers.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace panotra::sim {

using preferences::FileDescriptor;

namespace {

/// What the bell counts: the low half each ring, the high half those for settings.
constexpr std::uint64_t ringOfAny = 1;
constexpr std::uint64_t ringForSettings = std::uint64_t { 1 } << 32;

sigset_t endingSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : { SIGTERM, SIGINT, SIGHUP })
        sigaddset(&signals, signal);
    return signals;
}

void add(const FileDescriptor& event, std::uint64_t ring)
{
    static_cast<void>(::write(event.get(), &ring, sizeof ring));
}

} // namespace

void holdEndingSignals()
{
    const sigset_t signals = endingSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

FileDescriptor openEndingSignals()
{
    const sigset_t signals = endingSignals();
    return FileDescriptor(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

DesktopBell::DesktopBell()
    : m_event(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

void DesktopBell::ring() const
{
    add(m_event, ringOfAny);
}

void DesktopBell::ringForSettings() const
{
    add(m_event, sim::ringForSettings);
}

DesktopBell::Rung DesktopBell::silence() const
{
    std::uint64_t rings = 0;
    if (::read(m_event.get(), &rings, sizeof rings) != static_cast<ssize_t>(sizeof rings))
        return {};
    return { true, rings >= sim::ringForSettings };
}

DesktopLoop::DesktopLoop(
    DesktopPhone& phone, DesktopMixer& mixer, const DesktopBell& bell, int door, std::function<bool()> present)
    : m_phone(phone)
    , m_mixer(mixer)
    , m_bell(bell)
    , m_requests(door, answersOf(mixer, std::move(present)))
    , m_signals(openEndingSignals())
{
}

bool DesktopLoop::turn(const std::function<Pause()>& show)
{
    m_phone.follow();
    if (m_bell.silence().isForSettings)
        m_phone.lookForForeignChanges();
    m_mixer.turn();
    m_requests.serve();
    const Pause pause = show ? show() : Pause {};
    m_mixer.send();
    if (!m_isOver)
        wait(pause);
    return !m_isOver;
}

void DesktopLoop::wait(const Pause& pause)
{
    std::vector<pollfd> waitingFor { { m_signals.get(), POLLIN, 0 }, { m_bell.descriptor(), POLLIN, 0 } };
    if (pause.descriptor >= 0)
        waitingFor.push_back({ pause.descriptor, POLLIN, 0 });
    m_requests.addTo(waitingFor);
    int milliseconds = pause.longest;
    if (const auto due = m_phone.untilDue()) {
        const auto untilDue = static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(*due).count());
        milliseconds = pause.longest < 0 ? untilDue : std::min(pause.longest, untilDue);
    }
    if (::poll(waitingFor.data(), waitingFor.size(), milliseconds) > 0)
        m_isOver = waitingFor.front().revents != 0;
}

} // namespace panotra::sim
