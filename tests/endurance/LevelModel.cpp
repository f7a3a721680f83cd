/// The rules by which the levels must change, an event at a time.
#include "tests/endurance/LevelModel.h"

#include <algorithm>

namespace panotra::testing {
namespace {

constexpr const char* media = "Audio/Video";
constexpr const char* calls = "PhoneCall";
constexpr const char* ringer = "Ringtone";
constexpr const char* alarm = "Alarm";
constexpr const char* notifications = "Notifications";
constexpr const char* assistant = "VoiceCommand";

constexpr int none = -1;
constexpr std::size_t ringerSlot = 7;
constexpr std::size_t notificationsSlot = 9;

constexpr float unknownLevel = 0.5f;
constexpr float startLevel = 0.5f;
constexpr double restoreSeconds = 0.1;
constexpr double step = 0.0625;

} // namespace

LevelModel::LevelModel()
{
    for (const char* const category : { media, calls, ringer, alarm, notifications, assistant })
        system[category] = startLevel;
}

int LevelModel::slotOf(const std::string& category, const std::string& route)
{
    if (category == ringer)
        return ringerSlot;
    if (category == alarm)
        return 8;
    if (category == notifications)
        return notificationsSlot;
    if (category == assistant)
        return 10;
    const bool isCall = category == calls;
    if (!isCall && category != media)
        return none;
    if (route == "Receiver")
        return isCall ? 3 : 11;
    if (route == "Speaker")
        return isCall ? 4 : 0;
    if (route == "Headphone" || route == "Headset")
        return isCall ? 5 : 1;
    if (route == "HeadphonesBT" || route == "HeadsetBT")
        return isCall ? 6 : 2;
    return none;
}

float LevelModel::rememberedFor(const std::string& category) const
{
    const int slot = slotOf(category, m_route);
    return slot == none ? unknownLevel : remembered[static_cast<std::size_t>(slot)];
}

void LevelModel::set(const std::string& category, float level)
{
    const bool isNew = system[category] != level;
    system[category] = level;
    if (isNew)
        m_toAnnounce.push_back({ category, true, level });
}

void LevelModel::take(const Announcement& announcement)
{
    if (m_soundIsUnderWay) {
        m_soundIsUnderWay = false;
        m_restores.push_back(m_now + restoreSeconds);
        return;
    }
    const float own = rememberedFor(announcement.category);
    if (announcement.level == own)
        return;
    const int slot = slotOf(announcement.category, m_route);
    if (!announcement.isExplicit)
        set(announcement.category, own);
    else if (!m_isPanning && slot != none && slot != static_cast<int>(notificationsSlot))
        remembered[static_cast<std::size_t>(slot)] = announcement.level;
}

void LevelModel::settle()
{
    while (!m_toAnnounce.empty()) {
        const Announcement next = m_toAnnounce.front();
        m_toAnnounce.pop_front();
        take(next);
    }
}

void LevelModel::press(bool isUp)
{
    const double moved = static_cast<double>(system[m_category]) + (isUp ? step : -step);
    system[m_category] = static_cast<float>(std::clamp(moved, 0.0, 1.0));
    take({ m_category, true, system[m_category] });
    settle();
}

void LevelModel::changeRoute(const std::string& name)
{
    m_route = name;
    take({ m_category, false, system[m_category] });
    settle();
}

void LevelModel::changeCategory(const std::string& name)
{
    m_category = name;
    take({ m_category, false, system[m_category] });
    settle();
}

void LevelModel::setByProgram(const std::string& category, float level)
{
    set(category, level);
    settle();
}

void LevelModel::playSound()
{
    m_soundIsUnderWay = true;
    set(ringer, remembered[notificationsSlot]);
    settle();
}

void LevelModel::reloadSettings()
{
    set(ringer, remembered[ringerSlot]);
    settle();
}

void LevelModel::drag(std::size_t slot, float level)
{
    remembered[slot] = level;
    if (slot == ringerSlot)
        set(ringer, level);
    else if (slot == 8)
        set(alarm, level);
    else if (slot == 10)
        set(assistant, level);
    else if (static_cast<int>(slot) == slotOf(media, m_route))
        set(media, level);
    else if (static_cast<int>(slot) == slotOf(calls, m_route))
        set(calls, level);
    settle();
}

void LevelModel::pass(double seconds)
{
    const double end = m_now + seconds;
    while (!m_restores.empty() && m_restores.front() <= end) {
        m_now = std::max(m_now, m_restores.front());
        m_restores.erase(m_restores.begin());
        set(ringer, remembered[ringerSlot]);
        settle();
    }
    m_now = end;
}

} // namespace panotra::testing
