/// Darwin notifications.
#include "simulator/device/DarwinNotifications.h"

#include "simulator/device/EventFields.h"

namespace panotra::sim {

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
    m_device.trace("register", [&](EventFields& fields) { fields.add("name", name); });
    m_tokens.push_back(name);
    return static_cast<std::int32_t>(m_tokens.size());
}

std::uint64_t DarwinNotifications::stateOf(std::int32_t token) const
{
    if (token < 1 || static_cast<std::size_t>(token) > m_tokens.size())
        return 0;
    return state(m_tokens[static_cast<std::size_t>(token) - 1]);
}

void DarwinNotifications::addObserver(const std::string& name, std::function<void()> callback)
{
    m_device.trace("observe", [&](EventFields& fields) { fields.add("name", name); });
    m_observers.emplace_back(name, std::move(callback));
}

void DarwinNotifications::deliver(const std::string& name)
{
    // Those who come to observe meanwhile have missed it.
    const std::size_t count = m_observers.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (m_observers[i].first == name) {
            const auto callback = m_observers[i].second; // the list may grow under it
            callback();
        }
    }
}

void DarwinNotifications::post(const std::string& name)
{
    m_device.trace("post", [&](EventFields& fields) { fields.add("name", name); });
    deliver(name);
}

} // namespace panotra::sim
