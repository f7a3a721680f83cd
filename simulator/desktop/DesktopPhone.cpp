/// Real time, and what other processes write.
#include "simulator/desktop/DesktopPhone.h"

#include "facts/MixerSettings.h"
#include "facts/PublicNames.h"
#include "facts/VolumeSlots.h"
#include "simulator/desktop/StandInLevels.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Screen.h"
#include "simulator/window/SettingLines.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace panotra::sim {

DesktopPhone::DesktopPhone(const Setup& setup, const Library& library)
    : m_device(setup.preferencesFolder)
    , m_complain(setup.complain)
{
    m_device.resourceFolder = setup.resourceFolder;
    m_device.screen->width = setup.screen.width;
    m_device.screen->height = setup.screen.height;
    m_device.screen->scale = setup.screen.scale;
    m_settings = settings();
    if (setup.isSeen) {
        // It is to be seen, and where there is no other way to send it away a press beside it does.
        chooseWhereNobodyHas(mixerSetting("replaceHUD").key);
        chooseWhereNobodyHas(mixerSetting("dismissOnTouch").key);
    }
    library.load();
    m_device.home->finishLaunching();
    m_device.runLoop->turn();
    passOnWarnings();
}

void DesktopPhone::chooseWhereNobodyHas(const char* setting)
{
    if (m_settings.contains(ownDomain) && m_settings[ownDomain].contains(setting))
        return;
    m_device.preferences->set(ownDomain, setting, true);
    m_settings = settings();
}

void DesktopPhone::follow()
{
    const double now = std::chrono::duration<double>(Clock::now() - m_begin).count();
    m_device.runLoop->wait(std::max(now - m_device.runLoop->now(), 0.0));
    passOnWarnings();
}

std::optional<std::chrono::microseconds> DesktopPhone::untilDue() const
{
    const auto due = m_device.runLoop->nextDue();
    if (!due)
        return std::nullopt;
    constexpr double longest = 3600; // whatever is later than that is looked at again then
    const double left = *due - std::chrono::duration<double>(Clock::now() - m_begin).count();
    return std::chrono::microseconds(std::llround(std::ceil(std::clamp(left, 0.0, longest) * 1e6)));
}

void DesktopPhone::lookForForeignChanges()
{
    const Json before = std::exchange(m_settings, settings());
    for (const std::string& domain : changedDomains(before, m_settings)) {
        if (const auto announcement = announcementOf(domain))
            m_device.home->notify(*announcement);
    }
    m_device.runLoop->turn();
    passOnWarnings();
}

/// All of them but the levels, which are read whenever they are needed, and mostly written by ourselves.
Json DesktopPhone::settings() const
{
    Json all = m_device.preferences->all();
    all.erase(StandInLevels::domain);
    if (const auto own = all.find(ownDomain); own != all.end()) {
        for (const VolumeSlot& slot : volumeSlots)
            own->erase(slot.preferenceKey);
    }
    return all;
}

void DesktopPhone::passOnWarnings()
{
    const auto& warnings = m_device.preferences->warnings();
    for (; m_warningsPassedOn < warnings.size(); ++m_warningsPassedOn) {
        m_filesWorked = false;
        m_complain(warnings[m_warningsPassedOn]);
    }
}

} // namespace panotra::sim
