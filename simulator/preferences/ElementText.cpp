/// Values as XML property lists write them: what stands between the tags of an element.
#include "simulator/preferences/ElementText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>

namespace panotra::preferences {

namespace {

namespace chrono = std::chrono;

constexpr std::string_view blanksOfXml = " \t\r\n";
constexpr chrono::sys_days epochOfDates { chrono::year { 2001 } / 1 / 1 };
constexpr std::string_view alphabetOfBase64 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string_view withoutBlanksAround(std::string_view text)
{
    const auto first = text.find_first_not_of(blanksOfXml);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanksOfXml) - first + 1);
}

/// Answers whether there was one of these characters.
bool skipOneOf(std::string_view& text, std::string_view characters)
{
    const bool isThere = !text.empty() && characters.find(text.front()) != characters.npos;
    text.remove_prefix(isThere);
    return isThere;
}

std::size_t skipDigits(std::string_view& text)
{
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count;
}

bool isDecimalNumber(std::string_view text)
{
    skipOneOf(text, "+-");
    std::size_t digitCount = skipDigits(text);
    if (skipOneOf(text, "."))
        digitCount += skipDigits(text);
    if (digitCount == 0)
        return false;
    if (skipOneOf(text, "eE")) {
        skipOneOf(text, "+-");
        if (skipDigits(text) == 0)
            return false;
    }
    return text.empty();
}

std::string inLowerCase(std::string_view text)
{
    std::string lower(text);
    for (char& character : lower) {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    }
    return lower;
}

/// The number that is written with these digits at this place of the text.
unsigned decimal(std::string_view text, std::size_t at, std::size_t width)
{
    unsigned value = 0;
    for (const char digit : text.substr(at, width))
        value = 10 * value + static_cast<unsigned>(digit - '0');
    return value;
}

std::string withoutAnyBlanks(std::string_view text)
{
    std::string rest(text);
    std::erase_if(rest, [](char character) { return blanksOfXml.find(character) != blanksOfXml.npos; });
    return rest;
}

} // namespace

std::optional<Integer> integerOf(std::string_view text)
{
    text = withoutBlanksAround(text);
    const bool isNegative = text.starts_with('-');
    skipOneOf(text, "+-");
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (isHexadecimal)
        text.remove_prefix(2);
    std::uint64_t magnitude = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, magnitude, isHexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    constexpr auto beyondSigned = std::uint64_t { 1 } << 63;
    if (magnitude > beyondSigned && isNegative)
        return std::nullopt;
    if (isNegative)
        return static_cast<std::int64_t>(-magnitude);
    if (magnitude < beyondSigned)
        return static_cast<std::int64_t>(magnitude);
    return magnitude;
}

std::optional<double> realOf(std::string_view text)
{
    text = withoutBlanksAround(text);
    if (!isDecimalNumber(text)) {
        std::string word = inLowerCase(text);
        if (word == "nan")
            return std::numeric_limits<double>::quiet_NaN();
        const bool isNegative = word.starts_with('-');
        if (isNegative || word.starts_with('+'))
            word.erase(0, 1);
        if (word != "inf" && word != "infinity")
            return std::nullopt;
        return isNegative ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    }
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double real = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), real).ec == std::errc())
        return real;
    // Out of range, on the one side or the other.
    real = std::strtod(std::string(text).c_str(), nullptr);
    return std::isfinite(real) ? std::optional(real) : std::nullopt;
}

std::optional<Date> dateOf(std::string_view text)
{
    text = withoutBlanksAround(text);
    constexpr std::string_view shape = "0000-00-00T00:00:00Z";
    const auto fits = [](char actual, char expected) {
        return expected == '0' ? actual >= '0' && actual <= '9' : actual == expected;
    };
    if (!std::ranges::equal(text, shape, fits))
        return std::nullopt;
    const chrono::year_month_day day { chrono::year { static_cast<int>(decimal(text, 0, 4)) },
        chrono::month { decimal(text, 5, 2) }, chrono::day { decimal(text, 8, 2) } };
    const unsigned hours = decimal(text, 11, 2), minutes = decimal(text, 14, 2), seconds = decimal(text, 17, 2);
    if (!day.ok() || hours > 23 || minutes > 59 || seconds > 59)
        return std::nullopt;
    const chrono::seconds time = chrono::sys_days { day } - epochOfDates + chrono::hours { hours }
        + chrono::minutes { minutes } + chrono::seconds { seconds };
    return Date { static_cast<double>(time.count()) };
}

std::optional<Data> dataOf(std::string_view text)
{
    std::string characters = withoutAnyBlanks(text);
    if (characters.size() % 4 != 0)
        return std::nullopt;
    std::size_t fillers = 0;
    while (fillers < 2 && characters.ends_with('=')) {
        characters.pop_back();
        ++fillers;
    }
    Data data;
    std::uint32_t bits = 0;
    int bitCount = 0;
    for (const char character : characters) {
        const auto sextet = alphabetOfBase64.find(character);
        if (sextet == alphabetOfBase64.npos)
            return std::nullopt;
        bits = bits << 6 | static_cast<std::uint32_t>(sextet);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            data.bytes.push_back(static_cast<char>(bits >> bitCount & 0xFF));
        }
    }
    // What is left of the last character belongs to no byte. It was zero unless something was lost.
    const bool isWhole = (bits & ((1u << bitCount) - 1)) == 0;
    return isWhole ? std::optional(std::move(data)) : std::nullopt;
}

std::string textOfReal(double real)
{
    if (std::isnan(real))
        return "nan";
    if (std::isinf(real))
        return real < 0 ? "-infinity" : "+infinity";
    // As many digits as any double needs, which is what the platform's own tools write.
    std::array<char, 32> text {};
    constexpr int digitsOfDouble = std::numeric_limits<double>::max_digits10;
    const auto [end, error]
        = std::to_chars(text.data(), text.data() + text.size(), real, std::chars_format::general, digitsOfDouble);
    return { text.data(), end };
}

std::optional<std::string> textOfDate(Date date)
{
    constexpr double mostSeconds = 1e12; // beyond the year 9999, and far from what an integer cannot hold
    if (!(std::abs(date.seconds) < mostSeconds) || date.seconds != std::floor(date.seconds)
        || (date.seconds == 0 && std::signbit(date.seconds)))
        return std::nullopt;
    const chrono::sys_seconds time = epochOfDates + chrono::seconds { static_cast<std::int64_t>(date.seconds) };
    const auto midnight = chrono::floor<chrono::days>(time);
    const chrono::year_month_day day { midnight };
    const chrono::hh_mm_ss clock { time - midnight };
    const int year = static_cast<int>(day.year());
    if (year < 0 || year > 9999)
        return std::nullopt;
    std::array<char, 64> text {};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", year, static_cast<unsigned>(day.month()),
        static_cast<unsigned>(day.day()), static_cast<int>(clock.hours().count()),
        static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return text.data();
}

std::string textOfData(const Data& data)
{
    std::string text;
    const auto byteAt = [&](std::size_t at) -> std::uint32_t {
        return at < data.bytes.size() ? static_cast<unsigned char>(data.bytes[at]) : 0;
    };
    for (std::size_t at = 0; at < data.bytes.size(); at += 3) {
        const std::uint32_t bits = byteAt(at) << 16 | byteAt(at + 1) << 8 | byteAt(at + 2);
        for (int shift = 18; shift >= 0; shift -= 6)
            text.push_back(alphabetOfBase64[bits >> shift & 0x3F]);
    }
    const std::size_t fillers = (3 - data.bytes.size() % 3) % 3;
    text.replace(text.size() - fillers, fillers, fillers, '=');
    return text;
}

} // namespace panotra::preferences
