/// How a level is shown: as a percentage.
#include "model/Percentage.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace panotra {
namespace {

/// A conversion of a float outside the integer's range is undefined, and a crash here is the home screen's.
std::int32_t saturated(float value)
{
    if (std::isnan(value))
        return 0;
    constexpr float limit = 2147483648.0f;
    if (value >= limit)
        return std::numeric_limits<std::int32_t>::max();
    if (value < -limit)
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(value);
}

} // namespace

PercentageText percentageText(CGFloat level)
{
    PercentageText text {};
    const float percent = std::round(static_cast<float>(level * CGFloat(100)));
    char* const end = std::to_chars(text.data(), text.data() + text.size() - 2, saturated(percent)).ptr;
    *end = '%';
    return text;
}

} // namespace panotra
