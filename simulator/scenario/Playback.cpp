/// A place in the list of commands, and how much of the wait at that place is over.
#include "simulator/scenario/Playback.h"

#include "simulator/scenario/Forms.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace panotra::sim {

using std::chrono::microseconds;

namespace {

/// Longer than anybody waits, short enough that sums fit.
constexpr double longestWait = 1e15; // microseconds

microseconds lengthOfWait(double seconds)
{
    return microseconds(std::llround(std::ceil(std::min(seconds * 1e6, longestWait))));
}

} // namespace

std::optional<double> secondsOfWait(const Command& command)
{
    if (command.form->syntax.command() != "wait")
        return std::nullopt;
    return command.arguments.number(0);
}

double lengthOf(const Scenario& scenario)
{
    double length = 0;
    for (const Command& command : scenario.commands)
        length += secondsOfWait(command).value_or(0);
    return std::min(length, std::numeric_limits<double>::max());
}

Playback::Playback(const Scenario& scenario, Stage& stage)
    : m_scenario(scenario)
    , m_stage(stage)
    , m_captions(captionsOf(scenario))
    , m_length(lengthOf(scenario))
{
}

const Command* Playback::next() const
{
    return m_next < m_scenario.commands.size() ? &m_scenario.commands[m_next] : nullptr;
}

microseconds Playback::restOfWait() const
{
    return lengthOfWait(secondsOfWait(*next()).value_or(0)) - m_waited;
}

void Playback::playLine()
{
    if (isAtEnd())
        return;
    if (const auto seconds = secondsOfWait(*next())) {
        m_stage.finishWait(*next(), restOfWait());
        m_elapsedBefore += *seconds;
        m_waited = {};
    } else {
        m_stage.playCommand(*next());
    }
    ++m_next;
}

microseconds Playback::passTime(microseconds time)
{
    while (!isAtEnd()) {
        const microseconds rest = restOfWait();
        if (rest > time) {
            if (time.count() > 0) {
                m_waited += time;
                m_stage.passPartOfWait(time);
            }
            return {};
        }
        time -= rest;
        playLine();
    }
    return time;
}

void Playback::playUntilLine(std::size_t line)
{
    while (!isAtEnd() && next()->line < line)
        playLine();
}

std::optional<microseconds> Playback::untilNextLine() const
{
    return isAtEnd() ? std::nullopt : std::optional(restOfWait());
}

double Playback::elapsed() const
{
    return std::min(m_elapsedBefore + static_cast<double>(m_waited.count()) / 1e6, m_length);
}

const Caption* Playback::caption() const
{
    const std::size_t begun = m_next + (m_waited.count() > 0 ? 1 : 0);
    const auto later = std::ranges::lower_bound(m_captions, begun, {}, &Caption::command);
    return later == m_captions.begin() ? nullptr : &*std::prev(later);
}

} // namespace panotra::sim
