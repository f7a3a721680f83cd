/// The audio service in memory, which nothing asks any more, keeps what lines have told of the server. So the lines say
/// what is new, and a recording plays on a phone without a server.
#include "simulator/desktop/WiredPhone.h"

#include "facts/PublicNames.h"
#include "simulator/desktop/OverlayPlan.h"
#include "simulator/device/AudioService.h"
#include "simulator/window/Numerals.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace panotra::sim {

namespace {

/// A server may call an output without a slot anything; a line takes no such word, and for the mixer it is nowhere.
std::string wordFor(const sound::OutputRoute& route)
{
    const bool isWord = std::ranges::all_of(
        route.name, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-'; });
    return isWord && !route.name.empty() ? route.name : "nil";
}

} // namespace

WiredPhone::WiredPhone(const Setup& setup, const Library& library, sound::SoundServer& server)
    : m_session(sessionSetup(setup), library)
    , m_phone(m_session.device(), SoundChoice::Others)
    , m_mixer(m_session.device(), server, setup.limit, setup.complain,
          [this](const sound::Announcement& happened) { announce(happened); })
{
}

SessionSetup WiredPhone::sessionSetup(const Setup& setup)
{
    SessionSetup session;
    session.preferencesFolder = setup.preferencesFolder;
    session.resourceFolder = setup.resourceFolder;
    session.fileFailed = setup.complain;
    session.isUnannounced = StandInLevels::isLevel;
    session.isOnlyPhone = true;
    return session;
}

void WiredPhone::present()
{
    if (viewToShow(m_session.device()) == nullptr)
        m_session.playAll(m_phone.sendGesture(listener::present));
}

void WiredPhone::announce(const sound::Announcement& happened)
{
    // A level that was taken over for a pair is on disk by now, and stands before its announcement.
    if (happened.reason != sound::Reason::ExplicitVolume)
        m_session.lookForForeignChanges();
    const AudioService& told = *m_session.device().audio;
    Lines lines;
    const std::string route = wordFor(happened.route);
    if (route != told.route.value_or("nil"))
        lines.push_back("route " + route);
    if (happened.category != told.activeCategory)
        lines.push_back("category " + happened.category);
    for (const auto& [category, level] : m_mixer.audio().allLevels()) {
        if (level != told.level(category))
            lines.push_back("system " + category + ' ' + numeral(level));
    }
    lines.push_back("announce " + happened.category + ' ' + nameOf(happened.reason) + ' ' + numeral(happened.level));
    m_session.playAll(lines);
}

} // namespace panotra::sim
