/// The settings of one preference domain: keys and values in the order in which they were first stored.
#include "simulator/preferences/Settings.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace panotra::preferences {

namespace {

bool isNegative(const Json& value)
{
    return value.is_number_integer() && !value.is_number_unsigned() && value.get<std::int64_t>() < 0;
}

} // namespace

const Json* Settings::find(const std::string& key) const
{
    const auto found = std::ranges::find(m_settings, key, &Setting::key);
    return found == m_settings.end() ? nullptr : &found->value;
}

bool Settings::apply(const Change& change)
{
    const auto found = std::ranges::find(m_settings, change.key, &Setting::key);
    if (found == m_settings.end()) {
        if (change.value)
            append(change.key, *change.value);
        return change.value.has_value();
    }
    if (!change.value) {
        m_settings.erase(found);
        return true;
    }
    if (isIdentical(found->value, *change.value))
        return false;
    found->value = *change.value;
    return true;
}

bool isStorable(const Json& value)
{
    return value.is_number() || value.is_boolean() || value.is_string();
}

bool isIdentical(const Json& one, const Json& other)
{
    // The JSON library compares an integer with a real by value, and takes the bits of an unsigned integer for signed.
    if (one.is_number_float() && other.is_number_float())
        return std::bit_cast<std::uint64_t>(one.get<double>()) == std::bit_cast<std::uint64_t>(other.get<double>());
    return one.is_number_float() == other.is_number_float() && isNegative(one) == isNegative(other) && one == other;
}

} // namespace panotra::preferences
