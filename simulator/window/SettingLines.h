/// Settings as lines of a scenario, and what is announced when they change.
#pragma once

#include "simulator/device/Device.h"

#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

/// `pref DOMAIN KEY TYPE VALUE`. A value that no line can hold gives a comment that says so.
std::string lineOfSetting(const std::string& domain, const std::string& key, const Json& value);

/// The lines that make {domain: {key: value}} `after` of `before`.
std::vector<std::string> linesOfChanges(const Json& before, const Json& after);
std::vector<std::string> changedDomains(const Json& before, const Json& after);

/// The notification with which a settings page announces a change in the domain, or none.
std::optional<std::string> announcementOf(const std::string& domain);

} // namespace panotra::sim
