/// The grammar of numbers, and std::from_chars for their values.
#include "simulator/scenario/Numbers.h"

#include <cstddef>

namespace panotra::sim {

namespace {

std::string_view takeSign(std::string_view& text)
{
    const std::size_t length = !text.empty() && (text.front() == '+' || text.front() == '-') ? 1 : 0;
    const auto sign = text.substr(0, length);
    text.remove_prefix(length);
    return sign;
}

std::string_view takeDigits(std::string_view& text)
{
    const auto digits = text.substr(0, text.find_first_not_of("0123456789"));
    text.remove_prefix(digits.size());
    return digits;
}

/// A number taken apart; views into the text.
struct Decimal {
    std::string_view sign, whole, fraction, exponentSign, exponent;

    /// Whether the value is nearer to 0 than 1 is. Not for zero.
    bool isBelowOne() const
    {
        long long power = 0;
        const auto error = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power).ec;
        if (error == std::errc::result_out_of_range)
            return exponentSign == "-";
        if (exponentSign == "-")
            power = -power;
        const auto first = whole.find_first_not_of('0');
        const auto digitsBeforePoint = first != whole.npos ? static_cast<long long>(whole.size() - first)
                                                           : -static_cast<long long>(fraction.find_first_not_of('0'));
        return digitsBeforePoint + power <= 0;
    }
};

std::optional<Decimal> takeApart(std::string_view text)
{
    Decimal decimal;
    decimal.sign = takeSign(text);
    decimal.whole = takeDigits(text);
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        decimal.fraction = takeDigits(text);
    }
    if (decimal.whole.empty() && decimal.fraction.empty())
        return std::nullopt;
    if (text.starts_with('e') || text.starts_with('E')) {
        text.remove_prefix(1);
        decimal.exponentSign = takeSign(text);
        decimal.exponent = takeDigits(text);
        if (decimal.exponent.empty())
            return std::nullopt;
    }
    return text.empty() ? std::optional(decimal) : std::nullopt;
}

template <typename Real> std::optional<Real> parseReal(std::string_view text)
{
    const auto decimal = takeApart(text);
    if (!decimal)
        return std::nullopt;
    if (decimal->sign == "+")
        text.remove_prefix(1);
    Real value {};
    const auto error = std::from_chars(text.data(), text.data() + text.size(), value).ec;
    if (error == std::errc())
        return value;
    // Out of range at either end, and only one end is a mistake.
    if (!decimal->isBelowOne())
        return std::nullopt;
    return decimal->sign == "-" ? -Real {} : Real {};
}

} // namespace

std::optional<double> parseDouble(std::string_view text)
{
    return parseReal<double>(text);
}

std::optional<float> parseFloat(std::string_view text)
{
    return parseReal<float>(text);
}

bool isInteger(std::string_view text)
{
    takeSign(text);
    const auto digits = takeDigits(text);
    return !digits.empty() && text.empty();
}

} // namespace panotra::sim
