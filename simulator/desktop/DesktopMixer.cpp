/// Announcements in the order in which things happened, and at most one push for all of them.
#include "simulator/desktop/DesktopMixer.h"

#include "facts/AudioNames.h"
#include "simulator/device/AudioService.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"

#include <utility>

namespace panotra::sim {

using sound::Announcement;
using sound::Reason;
using sound::SetLevels;

const char* nameOf(Reason reason)
{
    switch (reason) {
    case Reason::ExplicitVolume:
        return changeReason::explicitChange;
    case Reason::Route:
        return changeReason::route;
    case Reason::Category:
        return changeReason::category;
    }
    return nullptr;
}

DesktopMixer::DesktopMixer(Device& device, sound::SoundServer& server, float limit,
    std::function<void(const std::string& line)> tell, Announce announce)
    : m_device(device)
    , m_server(server)
    , m_limit(limit)
    , m_tell(std::move(tell))
    , m_audio(m_reading, limit)
    , m_announce(std::move(announce))
    , m_levels(device)
{
    m_device.sound = &m_audio;
    if (!m_announce) {
        m_announce = [this](const Announcement& happened) {
            m_device.home->announce(happened.category, nameOf(happened.reason), happened.level);
            m_device.runLoop->turn();
        };
    }
}

DesktopMixer::~DesktopMixer()
{
    m_device.sound = m_device.audio.get();
}

void DesktopMixer::turn()
{
    for (const sound::Report& report : m_server.take())
        std::visit([this](const auto& any) { handle(any); }, report);
    send();
}

void DesktopMixer::send()
{
    if (const auto set = m_reading.nextSet(m_server.nextSerial()))
        m_server.set(*set);
}

sound::Serial DesktopMixer::askAnew()
{
    const sound::Serial now = m_server.nextSerial();
    m_server.ask();
    return now;
}

bool DesktopMixer::isDone(sound::Serial asked) const
{
    return !m_reading.isConnected() || (m_seen > asked && m_reading.isAtRest());
}

void DesktopMixer::handle(const sound::Snapshot& snapshot)
{
    m_seen = snapshot.asked;
    for (const Announcement& happened : m_reading.see(snapshot))
        announce(happened);
}

void DesktopMixer::handle(const sound::Loss& loss)
{
    m_tell((m_reading.server().empty() ? "no sound server can be reached: " : "the sound server is gone: ") + loss.why
        + "; waiting for it");
    m_reading.lose();
}

void DesktopMixer::announce(const Announcement& happened)
{
    if (!m_audio.hasFollowed())
        m_levels.fillIn(happened.level);
    m_audio.follow(happened);
    const SlotNumber slot = happened.route.hasSlot ? slotToRead(happened.category, happened.route.name) : noSlot;
    if (happened.reason == Reason::ExplicitVolume) {
        // Whoever changes the volume while a put-back waits for its turn is obeyed, and that is what is remembered.
        m_reading.forgetPutBack();
        if (slot != noSlot)
            m_levels.isChosen(slot);
    } else {
        // Only the last of several changes at once is heard, and what was to be put back for the others is not.
        m_reading.forgetWish();
        const bool isKnown = slot != noSlot && m_levels.remembered(slot).has_value();
        if (slot != noSlot && !isKnown)
            takeOver(slot, happened);
        m_audio.setLevels = isKnown ? SetLevels::PutBack : SetLevels::Dropped;
    }
    m_announce(happened);
    m_audio.setLevels = SetLevels::Chosen;
}

/// What was never remembered is as it is now. A mixer that is on screen keeps levels of its own: it learns of this one
/// as of any change by hand.
void DesktopMixer::takeOver(SlotNumber slot, const Announcement& happened)
{
    m_levels.take(slot, happened.level);
    if (m_device.home->window() == nullptr)
        return;
    m_audio.setLevels = SetLevels::Dropped;
    m_announce({ Reason::ExplicitVolume, happened.category, happened.route, happened.level });
}

} // namespace panotra::sim
