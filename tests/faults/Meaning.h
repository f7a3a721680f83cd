/// Values of property lists as texts: one text for one meaning.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace panotra::preferences::testing {

inline std::string hexadecimal(std::uint64_t bits)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    do
        text.insert(text.begin(), digits[bits & 0xF]);
    while (bits >>= 4);
    return text;
}

/// With its length before it, so that no text runs into what follows.
inline std::string meaningOfBytes(char kind, const std::string& bytes)
{
    return kind + std::to_string(bytes.size()) + ':' + bytes;
}

inline std::string meaningOfBoolean(bool value)
{
    return value ? "true" : "false";
}

/// The sign, then the magnitude.
inline std::string meaningOfInteger(bool isNegative, std::uint64_t magnitude)
{
    return (isNegative && magnitude != 0 ? "-i" : "i") + std::to_string(magnitude);
}

/// `kind`: r for a real, t for a time. The bits of the double.
inline std::string meaningOfDouble(char kind, std::uint64_t bits)
{
    return kind + hexadecimal(bits);
}

inline std::string meaningOfArray(const std::vector<std::string>& elements)
{
    std::string text = "[";
    for (const std::string& element : elements)
        text += element + ',';
    return text + ']';
}

/// Of a key that comes again, the last value counts, and the first place.
inline std::string meaningOfDictionary(const std::vector<std::pair<std::string, std::string>>& entries)
{
    std::vector<std::pair<std::string, std::string>> merged;
    for (const auto& entry : entries) {
        bool isKnown = false;
        for (auto& earlier : merged) {
            if (earlier.first == entry.first) {
                earlier.second = entry.second;
                isKnown = true;
            }
        }
        if (!isKnown)
            merged.push_back(entry);
    }
    std::string text = "{";
    for (const auto& [key, value] : merged)
        text += meaningOfBytes('k', key) + '=' + value + ',';
    return text + '}';
}

} // namespace panotra::preferences::testing
