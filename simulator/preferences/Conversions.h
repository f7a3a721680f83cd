/// The platform's conversions of a stored value to the type that a program asks for.
///
/// Null, and whatever else is no number, boolean or string, gives zero or false.
#pragma once

#include "simulator/preferences/Json.h"

#include <cstdint>

namespace panotra::preferences {

/// A number is true unless it is zero. A string is true if, after white space, it begins with Y, y, T or t, or with
/// an optional sign, any zeros and a digit from 1 to 9.
bool booleanOf(const Json& value);

/// A string is the decimal number with which it begins, after white space: sign, digits, decimals, exponent. Zero if
/// there is none; a number too large for a double is infinite.
double numberOf(const Json& value);

/// Truncated toward zero, then modulo 65536: -1 is 65535. Integers, also in a string, are exact up to 64 bits. What is
/// not finite is zero.
std::uint16_t unsignedShortOf(const Json& value);

} // namespace panotra::preferences
