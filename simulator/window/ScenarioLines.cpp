/// The lines of a scenario that is played in a session: recorded as they were written, comments included.
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/scenario/Forms.h"
#include "simulator/window/Session.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace panotra::sim {

void Session::remember(const Command& command)
{
    for (const std::string_view remark : command.remarks)
        remember(remark);
    remember(command.source);
}

void Session::playCommand(const Command& command)
{
    recordTime();
    remember(command);
    if (m_watcher)
        m_watcher(command);
    m_player.play(command);
    m_looks.follow(command);
    m_lines.finish();
    m_isLoaded = m_isLoaded || command.form->phase == Phase::Load;
    m_lineTime = m_device.runLoop->now();
    noteSetting(command);
}

/// What the scenario stores is nothing that others have stored.
void Session::noteSetting(const Command& command)
{
    const std::string_view name = command.form->syntax.command();
    if (name != "pref" && name != "unpref")
        return;
    const std::string& domain = command.arguments.text(0);
    const std::string& key = command.arguments.text(1);
    const Json all = m_device.preferences->all();
    if (all.contains(domain) && all.at(domain).contains(key))
        m_settings[domain][key] = all.at(domain).at(key);
    else if (m_settings.contains(domain))
        m_settings[domain].erase(key);
}

void Session::passPartOfWait(std::chrono::microseconds time)
{
    m_waited += time;
    passTime(time);
}

void Session::finishWait(const Command& wait, std::chrono::microseconds rest)
{
    // Unless another line has come between, the wait is one line, and its end is where that line leads.
    if (std::exchange(m_waited, {}) != m_sinceLine)
        return passTime(rest);
    moveClockTo(m_lineTime + secondsOfWait(wait).value_or(0));
    m_sinceLine = {};
    remember(wait);
    m_lineTime = m_device.runLoop->now();
}

} // namespace panotra::sim
