/// Audio levels, Darwin notifications and the screen.
#include "simulator/device/Services.h"

#include <algorithm>

namespace panotra::sim {

namespace {

constexpr float initialLevel = 0.5f;
/// The centre of a status bar 20 points high.
constexpr double statusBarCenterY = 10;

} // namespace

AudioService::AudioService()
    : levels { { "Audio/Video", initialLevel }, { "PhoneCall", initialLevel }, { "Ringtone", initialLevel },
        { "Alarm", initialLevel }, { "Notifications", initialLevel }, { "VoiceCommand", initialLevel } }
{
}

float AudioService::level(const std::string& category) const
{
    const auto entry = std::ranges::find(levels, category, &decltype(levels)::value_type::first);
    return entry == levels.end() ? 0.0f : entry->second;
}

bool AudioService::hasLevel(const std::string& category) const
{
    return std::ranges::find(levels, category, &decltype(levels)::value_type::first) != levels.end();
}

void AudioService::store(const std::string& category, float level)
{
    const auto entry = std::ranges::find(levels, category, &decltype(levels)::value_type::first);
    if (entry == levels.end())
        levels.emplace_back(category, level);
    else
        entry->second = level;
}

DarwinNotifications::DarwinNotifications(Device& device)
    : m_device(device)
{
}

void DarwinNotifications::setState(const std::string& name, std::uint64_t state)
{
    m_states[name] = state;
}

std::uint64_t DarwinNotifications::state(const std::string& name) const
{
    const auto entry = m_states.find(name);
    return entry == m_states.end() ? 0 : entry->second;
}

std::int32_t DarwinNotifications::registerCheck(const std::string& name)
{
    m_device.trace("register", [&] { return Json { { "name", name } }; });
    m_tokens.push_back(name);
    return static_cast<std::int32_t>(m_tokens.size());
}

std::uint64_t DarwinNotifications::stateOf(std::int32_t token) const
{
    if (token < 1 || static_cast<std::size_t>(token) > m_tokens.size())
        return 0;
    return state(m_tokens[static_cast<std::size_t>(token) - 1]);
}

void DarwinNotifications::addObserver(const std::string& name, void (*callback)())
{
    m_device.trace("observe", [&] { return Json { { "name", name } }; });
    m_observers.emplace_back(name, callback);
}

void DarwinNotifications::deliver(const std::string& name)
{
    // Those who come to observe meanwhile have missed it.
    const std::size_t count = m_observers.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (m_observers[i].first == name)
            m_observers[i].second();
    }
}

void DarwinNotifications::post(const std::string& name)
{
    m_device.trace("post", [&] { return Json { { "name", name } }; });
    deliver(name);
}

std::pair<double, double> Screen::currentStatusBarCenter() const
{
    if (statusBarCenter.has_value())
        return *statusBarCenter;
    return { currentSize().first / 2, statusBarCenterY };
}

std::pair<double, double> Screen::currentSize() const
{
    const bool isLandscape = orientation == 3 || orientation == 4;
    return isLandscape ? std::pair { height, width } : std::pair { width, height };
}

} // namespace panotra::sim
