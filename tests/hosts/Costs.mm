/// What an event costs.
#include "tests/hosts/Costs.h"

#include "tests/hosts/Crossings.h"
#include "tests/hosts/classes/UIKit.h"

#include <valgrind/callgrind.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <set>
#include <sstream>
#include <vector>

namespace panotra::hosts {

namespace {

using Cost = std::size_t Costs::*;

struct Column {
    const char* name;
    Cost cost;
};

constexpr std::array columns {
    Column { "messages", &Costs::messages },
    Column { "crossings", &Costs::crossings },
    Column { "allocations", &Costs::allocations },
    Column { "handles", &Costs::handles },
    Column { "replacements", &Costs::replacements },
    Column { "views", &Costs::views },
};

/// What stands between the bars of a row, without blanks around it; nothing for a line that is none.
std::vector<std::string> cellsOf(const std::string& line)
{
    std::vector<std::string> cells;
    if (!line.starts_with("| "))
        return cells;
    std::istringstream in(line.substr(1));
    for (std::string cell; std::getline(in, cell, '|');) {
        const auto first = cell.find_first_not_of(' ');
        const auto last = cell.find_last_not_of(' ');
        cells.push_back(first == cell.npos ? "" : cell.substr(first, last - first + 1));
    }
    return cells;
}

std::size_t numberIn(std::string cell)
{
    std::erase(cell, ',');
    return std::stoul(cell);
}

} // namespace

bool Costs::isWithin(const Costs& most) const
{
    // Where objects lie decides which of ours are looked up once more: a few crossings.
    const auto slack = [&](Cost cost) {
        return cost == &Costs::crossings ? most.crossings / 50 : 0;
    };
    return std::ranges::all_of(
        columns, [&](const Column& column) { return this->*column.cost <= most.*column.cost + slack(column.cost); });
}

std::ostream& operator<<(std::ostream& out, const Costs& costs)
{
    const char* separator = "";
    for (const Column& column : columns) {
        out << separator << costs.*column.cost << ' ' << column.name;
        separator = ", ";
    }
    return out;
}

Costs costsOfCalls(const std::function<void()>& work)
{
    std::set<void*> views;
    listenToMessages([&views](void* receiver, const char*) {
        if ([static_cast<id>(receiver) isKindOfClass:[UIView class]])
            views.insert(receiver);
    });
    forgetCrossings();
    recordCrossings(true);
    work();
    recordCrossings(false);
    listenToMessages({});
    const std::vector<std::string>& all = crossings();
    const auto count = [&all](const auto& fits) {
        return static_cast<std::size_t>(std::ranges::count_if(all, fits));
    };
    Costs costs;
    costs.messages = count([](const std::string& each) { return each[1] == '['; });
    costs.crossings = all.size();
    costs.allocations = count([](const std::string& each) { return each == "malloc" || each.ends_with(" alloc]"); });
    costs.views = views.size();
    return costs;
}

void countInstructions(const std::string& name, const std::function<void()>& work)
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
}

std::map<std::string, Costs> readCosts(const std::string& markdown)
{
    std::map<std::string, Costs> rows;
    std::istringstream in(markdown);
    bool isInTable = false;
    for (std::string line; std::getline(in, line);) {
        const std::vector<std::string> cells = cellsOf(line);
        if (cells.size() < 2 + columns.size()) {
            isInTable = isInTable && line.starts_with("|---");
        } else if (cells[1] == "own instructions") {
            isInTable = true;
        } else if (isInTable) {
            Costs& row = rows[cells[0]];
            for (std::size_t index = 0; index < columns.size(); ++index)
                row.*columns[index].cost = numberIn(cells[2 + index]);
        }
    }
    return rows;
}

} // namespace panotra::hosts
