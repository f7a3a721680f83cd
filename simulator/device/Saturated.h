/// Numbers in narrower types.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace panotra::sim {

/// The nearest number that the type can hold.
template <typename Narrow> constexpr Narrow saturated(std::int64_t number)
{
    return static_cast<Narrow>(
        std::clamp<std::int64_t>(number, std::numeric_limits<Narrow>::min(), std::numeric_limits<Narrow>::max()));
}

} // namespace panotra::sim
