/// A real number as an integer of 64 bits, the same on every host.
#pragma once

#include <cmath>
#include <cstdint>

namespace panotra {

/// Truncated toward zero, then modulo 2^64, as a two's complement number; what is not finite gives 0. The platform
/// leaves open what lies beyond 64 bits, and processors differ.
inline std::int64_t wrappedInteger(double number) noexcept
{
    constexpr double twoTo64 = 18446744073709551616.0;
    if (!std::isfinite(number))
        return 0;
    const double wrapped = std::fmod(std::trunc(number), twoTo64);
    const auto magnitude = static_cast<std::uint64_t>(std::fabs(wrapped));
    return static_cast<std::int64_t>(wrapped < 0 ? std::uint64_t { 0 } - magnitude : magnitude);
}

} // namespace panotra
