/// Values as XML property lists write them: what stands between the tags of an element.
#pragma once

#include "simulator/preferences/PropertyListValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace panotra::preferences {

// None: the text is no such value, or none that could be kept as it is. Blanks around a text do not count.

/// Unsigned only beyond the signed range.
using Integer = std::variant<std::int64_t, std::uint64_t>;
/// Decimal, leading zeros or not, or hexadecimal after 0x; from the lowest signed to the highest unsigned integer of
/// 64 bits.
std::optional<Integer> integerOf(std::string_view text);
/// A decimal number, or one of the words nan, inf and infinity in any case, the last two perhaps with a sign. What is
/// too large for a double is none; what is too small is zero.
std::optional<double> realOf(std::string_view text);
/// 2020-01-02T03:04:05Z: a day and a time of the calendar, to the second.
std::optional<Date> dateOf(std::string_view text);
/// Base 64, filled up at its end to groups of four characters; blanks may stand anywhere.
std::optional<Data> dataOf(std::string_view text);

// Text that reads back as the very same value.

std::string textOfReal(double real);
/// None: not a whole second, or not in the years 0 to 9999.
std::optional<std::string> textOfDate(Date date);
/// Without line ends.
std::string textOfData(const Data& data);

} // namespace panotra::preferences
