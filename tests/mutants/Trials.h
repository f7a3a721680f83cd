/// Tests as processes: which there are, and running some of them with a mutant alive.
#pragma once

#include <string>
#include <vector>

namespace panotra::mutants {

/// One test that runs in a process of its own, or together with others of its program.
struct Trial {
    std::string name;
    std::vector<std::string> command;
    std::vector<std::string> environment;
    bool isCase = false; ///< of a GoogleTest program, whose filter chooses it
    bool canBeJoined = false; ///< one process can run several

    // Found out by running it without a mutant.
    double seconds = 0; ///< of processor time
    std::vector<bool> reached; ///< by the mutants' numbers
    int reachedCount = 0;
};

/// Reads what `ctest --show-only=json-v1` printed and asks GoogleTest programs for their cases. Ends the program with a
/// line of complaint where that cannot be done.
std::vector<Trial> readTrials(const std::string& jsonFile);

/// Makes one process of several trials of one program.
Trial joined(const std::vector<const Trial*>& trials);

enum class Outcome { Passed, Failed, TimedOut };

struct Result {
    Outcome outcome;
    double seconds; ///< of processor time
};

/// Runs the trial in `folder`, what it prints goes nowhere. `variable` is added to its environment. It is stopped after
/// `seconds` of processor time, or ten times that on the clock.
Result runTrial(const Trial& trial, const std::string& variable, const std::string& folder, double seconds);

/// Runs each of the trials alone without a mutant, and finds out its time and which of `count` mutants it reaches.
/// Answers the names of those that fail.
std::vector<std::string> measure(std::vector<Trial>& trials, int count, const std::string& folder, int jobs);

} // namespace panotra::mutants
