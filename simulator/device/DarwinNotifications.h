/// Darwin notifications: named signals between processes, each with a state.
#pragma once

#include "simulator/device/Device.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace panotra::sim {

/// Names, states, tokens and observers.
class DarwinNotifications {
public:
    explicit DarwinNotifications(Device& device);

    void setState(const std::string& name, std::uint64_t state);
    std::uint64_t state(const std::string& name) const;
    /// Tokens count from 1. Traced as `register`.
    std::int32_t registerCheck(const std::string& name);
    std::uint64_t stateOf(std::int32_t token) const;
    /// Traced as `observe`.
    void addObserver(const std::string& name, std::function<void()> callback);
    /// Calls the observers in this process; leaves no event of its own.
    void deliver(const std::string& name);
    /// `notify_post`. Traced as `post`, then delivered.
    void post(const std::string& name);

private:
    Device& m_device;
    std::map<std::string, std::uint64_t> m_states;
    std::vector<std::string> m_tokens;
    std::vector<std::pair<std::string, std::function<void()>>> m_observers;
};

} // namespace panotra::sim
