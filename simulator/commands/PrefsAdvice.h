/// What a person should know who sets a key that nobody reads, or to a value that nobody could choose.
#pragma once

#include "simulator/preferences/Settings.h"

#include <optional>
#include <string>

namespace panotra::preferences {

/// A line about a domain or a key that is none of the mixer's but nearly one, about a key that the mixer's domain does
/// not have, or about a value out of its range. Nothing where all is well, and about the domains of others.
std::optional<std::string> adviceOnSetting(const std::string& domain, const std::string& key, const Json& value);

} // namespace panotra::preferences
