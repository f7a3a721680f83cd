/// The states that a gesture recogniser goes through, with the platform's values.
#pragma once

#include <array>
#include <cstdint>

namespace panotra {

enum class UIGestureRecognizerState : std::int64_t {
    Possible = 0,
    Began = 1,
    Changed = 2,
    Ended = 3,
    Cancelled = 4,
    Failed = 5,
};

/// As those carry it who know no recognisers.
constexpr std::int64_t stateNumber(UIGestureRecognizerState state)
{
    return static_cast<std::int64_t>(state);
}

/// By value.
inline constexpr std::array gestureStateNames { "possible", "began", "changed", "ended", "cancelled", "failed" };

} // namespace panotra
