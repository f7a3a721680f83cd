/// What is planted, what is called equivalent, and what became of each mutant.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace panotra::mutants {

struct Planted {
    int number = 0;
    std::string room;
    std::string place; ///< FILE:LINE
    std::string function; ///< FILE FUNCTION
    std::string name; ///< what it is whatever line it stands in: FILE: FUNCTION: KIND: CHANGE
    bool isInConstexpr = false;
};

struct Fate {
    std::string state; ///< caught, survived, unreached or compiled
    std::string by;
};

/// Ends the program with a line of complaint and the status.
[[noreturn]] void fail(int status, const std::string& message);

/// The list that plant_mutants wrote.
std::vector<Planted> readList(const std::string& file);

/// The reason by the mutant's name. A name stands at the margin, its reason indented below it; several names may share
/// one. Lines of '#' and empty ones say nothing.
std::map<std::string, std::string> readEquivalent(const std::string& file);

/// `count` of them, as many of each room where there are so many.
std::vector<Planted> sample(std::vector<Planted> all, std::size_t count, unsigned seed);

/// What is known of every mutant, kept in a file as it comes.
class Record {
public:
    explicit Record(const std::string& file);

    /// Null for one that was not tried.
    const Fate* find(const std::string& name) const;
    void add(const Planted& mutant, const Fate& fate);

private:
    std::string m_file;
    std::map<std::string, Fate> m_fates; ///< by the mutant's name
};

} // namespace panotra::mutants
