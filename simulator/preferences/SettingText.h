/// Settings as people write them: a type and a value in words.
#pragma once

#include "simulator/preferences/Settings.h"

#include <optional>
#include <string>
#include <string_view>

namespace panotra::preferences {

struct ReadSetting {
    std::optional<Json> value;
    /// Without a value, what was expected.
    std::string expected;
};

/// `type` is "int" (64 bits, signed or unsigned), "float" (a double, also inf, -inf and nan), "bool" (yes or no) or
/// "string" (UTF-8).
ReadSetting readSetting(std::string_view type, std::string_view text);

/// The type of which the value is; "other" for null.
std::string_view typeOf(const Json& value);

/// The value in such words that reading them gives it back. Null is empty.
std::string textOf(const Json& value);

} // namespace panotra::preferences
