/// A value of a property list, of any kind that a file can hold.
#pragma once

#include "simulator/preferences/Json.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace panotra::preferences {

struct Value;
struct Entry;

using Array = std::vector<Value>;

/// In the order of the file; no key stands twice.
using Dictionary = std::vector<Entry>;

struct Data {
    std::string bytes;
};

struct Date {
    double seconds = 0; ///< since 2001 began, in Greenwich; binary files hold parts of seconds, and what is no number
};

/// A number by which archives refer to their own objects. Binary files only.
struct Uid {
    std::uint32_t number = 0;
};

struct Value {
    /// Texts are UTF-8, perhaps with NUL in it. An integer is unsigned only beyond the signed range.
    std::variant<bool, std::int64_t, std::uint64_t, double, std::string, Data, Date, Uid, Array, Dictionary> content;
};

struct Entry {
    std::string key;
    Value value;
};

/// Of entries with the same key the last value counts, in the place of the first.
void mergeEqualKeys(Dictionary& dictionary);

/// The value as a setting; null for a kind that no setting has.
Json settingOf(const Value& value);

/// The value that holds this setting, which must be storable.
Value valueOfSetting(const Json& setting);

// No file of preferences comes near these. A file beyond them is not taken in, and none is written.
constexpr std::size_t largestFileBytes = 4u << 20;
constexpr std::size_t deepestNesting = 128;
constexpr std::size_t mostValues = 1u << 16;
/// Of all keys, texts and data together, each counted as often as it is referred to.
constexpr std::size_t mostTextBytes = 2 * largestFileBytes;

/// Counts what a file unfolds to while it is read, so that reading stops in time.
class Extent {
public:
    /// Why no more fits; none: it still fits.
    std::optional<std::string> addValues(std::size_t count);
    std::optional<std::string> addText(std::size_t bytes);

    /// Adds all of the value.
    std::optional<std::string> add(const Value& value);

private:
    std::size_t m_values = 0;
    std::size_t m_textBytes = 0;
};

} // namespace panotra::preferences
