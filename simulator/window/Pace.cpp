/// Powers of two, so that no time is lost to rounding.
#include "simulator/window/Pace.h"

#include <algorithm>

namespace panotra::sim {

namespace {

constexpr int realSpeed = 4; ///< the step at which both times are the same
constexpr int fastest = 8;
constexpr std::int64_t parts = 1 << realSpeed;

} // namespace

void Pace::slower()
{
    m_step = std::max(m_step - 1, 0);
}

void Pace::faster()
{
    m_step = std::min(m_step + 1, fastest);
}

std::string Pace::speed() const
{
    constexpr const char* times = "\u00d7";
    return m_step < realSpeed ? "1/" + std::to_string(1 << (realSpeed - m_step)) + times
                              : std::to_string(1 << (m_step - realSpeed)) + times;
}

std::chrono::microseconds Pace::pass(std::chrono::microseconds realTime)
{
    if (m_isPaused)
        return {};
    const std::int64_t time = realTime.count() * sixteenths() + m_rest;
    m_rest = time % parts;
    return std::chrono::microseconds(time / parts);
}

std::optional<std::chrono::microseconds> Pace::realTimeFor(std::chrono::microseconds time) const
{
    if (m_isPaused)
        return std::nullopt;
    // Whole days are waited for in parts, lest the product be too large.
    const std::int64_t atMost = std::chrono::microseconds(std::chrono::hours(24)).count();
    const std::int64_t inParts = std::min<std::int64_t>(time.count(), atMost) * parts;
    return std::chrono::microseconds((inParts + sixteenths() - 1) / sixteenths());
}

} // namespace panotra::sim
