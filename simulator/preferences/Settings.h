/// The settings of one preference domain: keys and values in the order in which they were first stored.
#pragma once

#include "simulator/preferences/Json.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

namespace panotra::preferences {

/// A value is an integer, a real, a boolean or a string. Null stands for a value of any other kind, which stays
/// where it is stored and is nothing that a program could read as a setting.
struct Setting {
    std::string key;
    Json value;
};

/// A key set, or removed where there is no value.
struct Change {
    std::string key;
    std::optional<Json> value;
};

class Settings {
public:
    /// Null if the key is absent.
    const Json* find(const std::string& key) const;
    /// Whether anything is different now.
    bool apply(const Change& change);
    /// For a reader that knows the key to be new.
    void append(std::string key, Json value) { m_settings.push_back({ std::move(key), std::move(value) }); }

    auto begin() const { return m_settings.begin(); }
    auto end() const { return m_settings.end(); }
    bool empty() const { return m_settings.empty(); }

private:
    std::vector<Setting> m_settings;
};

/// Whether the value can be stored: an integer, a real, a boolean or a string.
bool isStorable(const Json& value);

/// The same kind and the same value to the bit: 1 is not 1.0, and 0.0 is not -0.0.
bool isIdentical(const Json& one, const Json& other);

} // namespace panotra::preferences
