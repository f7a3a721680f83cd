/// A scenario played bit by bit, for those who have a clock of their own: a window that follows the real one, a film
/// that takes a picture every so often, a person who wants to see one line after the other.
///
/// To play it from the start again, make another playback on another stage: a phone that has been played with is not
/// as it came from the shop.
#pragma once

#include "simulator/scenario/Captions.h"
#include "simulator/scenario/Grammar.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

namespace panotra::sim {

/// The phone on which a scenario is played.
class Stage {
public:
    virtual ~Stage() = default;
    /// Any command but `wait`.
    virtual void playCommand(const Command& command) = 0;
    /// Time passes that is less than what is left of the wait.
    virtual void passPartOfWait(std::chrono::microseconds time) = 0;
    /// The rest of a wait passes. The clock stands afterwards where the wait in one piece would have put it: `rest` is
    /// what is left of it in full microseconds, rounded up.
    virtual void finishWait(const Command& wait, std::chrono::microseconds rest) = 0;
};

/// How many seconds a command waits; none for any other command.
std::optional<double> secondsOfWait(const Command& command);

/// How long the scenario takes, in seconds.
double lengthOf(const Scenario& scenario);

class Playback {
public:
    /// Nothing is played yet. `scenario`, free of mistakes, and `stage` must outlive the playback.
    Playback(const Scenario& scenario, Stage& stage);

    /// The command that is played next, or the wait that has begun; null at the end.
    const Command* next() const;
    bool isAtEnd() const { return next() == nullptr; }

    /// One line: what it does, or the rest of a wait. Nothing at the end.
    void playLine();
    /// All that happens until so much time has passed, lines at its very end included. Answers how much of it is left
    /// when the scenario is over.
    std::chrono::microseconds passTime(std::chrono::microseconds time);
    /// All before the first command at or after that line of the file.
    void playUntilLine(std::size_t line);

    /// How much time passes before the next line is played, a wait aside; none at the end.
    std::optional<std::chrono::microseconds> untilNextLine() const;
    /// Seconds since the start, and all there are.
    double elapsed() const;
    double length() const { return m_length; }
    /// What the comments tell of what is happening; null if none has said anything so far.
    const Caption* caption() const;

private:
    std::chrono::microseconds restOfWait() const;

    const Scenario& m_scenario;
    Stage& m_stage;
    const std::vector<Caption> m_captions;
    const double m_length;
    std::size_t m_next = 0;
    double m_elapsedBefore = 0; ///< seconds of the waits that are over
    std::chrono::microseconds m_waited { 0 }; ///< of the wait that is next
};

} // namespace panotra::sim
