/// What is planted, what is called equivalent, and what became of each mutant.
#include "tests/mutants/Ledger.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace panotra::mutants {
namespace {

std::vector<std::string> fieldsOf(const std::string& line)
{
    std::vector<std::string> fields;
    std::istringstream words(line);
    for (std::string field; std::getline(words, field, '\t');)
        fields.push_back(field);
    return fields;
}

} // namespace

void fail(int status, const std::string& message)
{
    std::fprintf(stderr, "run_mutants: %s\n", message.c_str());
    std::exit(status);
}

std::vector<Planted> readList(const std::string& file)
{
    std::ifstream stream(file);
    std::vector<Planted> planted;
    for (std::string line; std::getline(stream, line);) {
        const auto fields = fieldsOf(line);
        if (fields.size() != 9)
            fail(2, file + ": not a list of mutants: " + line);
        const std::string ordinal = fields[7] == "1" ? "" : " #" + fields[7];
        planted.push_back({ std::stoi(fields[0]), fields[1], fields[2] + ':' + fields[3], fields[2] + ' ' + fields[4],
            fields[2] + ": " + fields[4] + ": " + fields[5] + ": " + fields[6] + ordinal, fields[8] == "constexpr" });
    }
    if (planted.empty())
        fail(2, "no mutants in " + file);
    return planted;
}

std::map<std::string, std::string> readEquivalent(const std::string& file)
{
    std::ifstream stream(file);
    if (!stream)
        fail(2, "cannot read " + file);
    std::map<std::string, std::string> reasons;
    std::vector<std::string> names;
    int number = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        if (line.empty() || line[0] == '#')
            continue;
        if (line[0] != ' ') {
            names.push_back(line);
            continue;
        }
        if (names.empty())
            fail(2, file + ':' + std::to_string(number) + ": a reason of no mutant");
        for (const std::string& name : names)
            reasons[name] = line.substr(line.find_first_not_of(' '));
        names.clear();
    }
    if (!names.empty())
        fail(2, file + ": no reason: " + names.back());
    return reasons;
}

std::vector<Planted> sample(std::vector<Planted> all, std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::shuffle(all.begin(), all.end(), random);
    std::map<std::string, std::vector<Planted>> byRoom;
    for (Planted& each : all)
        byRoom[each.room].push_back(std::move(each));
    std::vector<Planted> chosen;
    for (bool isAnyLeft = true; isAnyLeft && chosen.size() < count;) {
        isAnyLeft = false;
        for (auto& [room, left] : byRoom) {
            if (left.empty() || chosen.size() == count)
                continue;
            chosen.push_back(std::move(left.back()));
            left.pop_back();
            isAnyLeft = true;
        }
    }
    return chosen;
}

Record::Record(const std::string& file)
    : m_file(file)
{
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        const auto fields = fieldsOf(line);
        if (fields.size() == 4) // else the run was stopped in the middle of it
            m_fates[fields[3]] = { fields[0], fields[1] };
    }
}

const Fate* Record::find(const std::string& name) const
{
    const auto found = m_fates.find(name);
    return found == m_fates.end() ? nullptr : &found->second;
}

void Record::add(const Planted& mutant, const Fate& fate)
{
    m_fates[mutant.name] = fate;
    std::ofstream(m_file, std::ios::app) << fate.state << '\t' << fate.by << '\t' << mutant.place << '\t' << mutant.name
                                         << '\n';
}

} // namespace panotra::mutants
