/// The search, depth by depth, each depth in shares that processes of their own look at.
#include "tests/interleavings/Explorer.h"

#include "tests/interleavings/Processes.h"
#include "tests/interleavings/StateKey.h"
#include "tests/property/Reduction.h"

#include "simulator/device/RunLoop.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <unordered_set>
#include <vector>

namespace panotra::testing {
namespace {

/// How a state was come to: by which letter from which other one.
struct State {
    std::uint32_t from;
    Letter letter;
};

bool isPause(Letter letter)
{
    return letter >= happenings().size();
}

double secondsOf(Letter letter)
{
    return pauses()[letter - happenings().size()];
}

/// All states, in the order in which they were found; the first is the beginning.
class States {
public:
    States() { m_list.push_back({ 0, 0 }); }

    std::size_t size() const { return m_list.size(); }
    void add(const Step& step) { m_list.push_back({ step.from, step.letter }); }

    std::vector<Letter> wayTo(std::size_t index) const
    {
        std::vector<Letter> way;
        for (; index != 0; index = m_list[index].from)
            way.push_back(m_list[index].letter);
        std::ranges::reverse(way);
        return way;
    }

private:
    std::vector<State> m_list;
};

std::string linesOf(Letter letter, World& world)
{
    return isPause(letter) ? lineOfPause(secondsOf(letter)) : happenings()[letter].lines(world.situation());
}

void follow(World& world, const std::vector<Letter>& way)
{
    for (const Letter letter : way)
        world.repeat(linesOf(letter, world));
}

/// The lines that the way stands for; they depend on what they find.
std::string scenarioOf(const std::vector<Letter>& way, Plant plant)
{
    std::string text = beginning;
    World world(plant);
    for (const Letter letter : way) {
        const std::string lines = linesOf(letter, world);
        world.repeat(lines);
        text += lines;
    }
    return text;
}

/// One process's part of the search: the states it leaves behind, and what it comes to from there.
class Share {
public:
    Share(const Search& search, const States& states, const std::unordered_set<std::uint64_t>& known)
        : m_search(search)
        , m_states(states)
        , m_known(known)
    {
    }

    void leave(std::uint32_t from)
    {
        const std::vector<Letter> way = m_states.wayTo(from);
        for (Letter letter = 0; letter < happenings().size(); ++letter) {
            World world(m_search.plant);
            follow(world, way);
            const std::string lines = linesOf(letter, world);
            if (lines.empty())
                continue; // there is nothing to let go of
            world.play(lines, happenings()[letter].name);
            take(world, from, letter);
        }
        pass(from, way);
    }

    std::size_t transitions() const { return m_transitions; }
    const std::vector<Step>& found() const { return m_found; }

private:
    /// One process lets the pauses pass one after another; a state that is new is come to once more to see its end.
    void pass(std::uint32_t from, const std::vector<Letter>& way)
    {
        std::vector<std::pair<std::uint64_t, Letter>> fresh;
        {
            World world(m_search.plant);
            follow(world, way);
            const sim::RunLoop& loop = *world.device().runLoop;
            const double start = loop.now();
            bool isAnythingDue = true; // if not, nothing will ever change but the time
            for (std::size_t i = 0; i < pauses().size() && isAnythingDue && !world.violation(); ++i) {
                const double target = start + pauses()[i];
                double seconds = target - loop.now();
                while (loop.now() + seconds < target) // what is due at the target must run
                    seconds = std::nextafter(seconds, target);
                isAnythingDue = loop.pendingCount() != 0;
                world.pass(seconds);
                ++m_transitions;
                const auto key = keyOf(world.state());
                if (isNew(key) || world.violation())
                    fresh.emplace_back(key, static_cast<Letter>(happenings().size() + i));
            }
        }
        for (const auto& [key, letter] : fresh) {
            World world(m_search.plant);
            follow(world, way);
            world.play(lineOfPause(secondsOf(letter)));
            finish(world, key, from, letter);
        }
    }

    void take(World& world, std::uint32_t from, Letter letter)
    {
        ++m_transitions;
        const auto key = keyOf(world.state());
        if (world.violation() || isNew(key))
            finish(world, key, from, letter);
    }

    bool isNew(std::uint64_t key) { return !m_known.contains(key) && m_own.insert(key).second; }

    void finish(World& world, std::uint64_t key, std::uint32_t from, Letter letter)
    {
        std::uint8_t seen = 0;
        for (const std::size_t allowance : world.end())
            seen |= static_cast<std::uint8_t>(1u << allowance);
        m_found.push_back({ key, from, letter, seen, world.violation().has_value() });
    }

    const Search& m_search;
    const States& m_states;
    const std::unordered_set<std::uint64_t>& m_known;
    std::unordered_set<std::uint64_t> m_own;
    std::vector<Step> m_found;
    std::size_t m_transitions = 0;
};

class Exploration {
public:
    explicit Exploration(const Search& search)
        : m_search(search)
    {
        World world(search.plant);
        m_known.insert(keyOf(world.state()));
    }

    Found run()
    {
        std::size_t first = 0;
        while (m_found.depth < m_search.depth && !m_found.violation) {
            const std::size_t end = m_states.size();
            const std::size_t left = leaveAll(first, end, m_found.depth + 1);
            if (left < end - first) {
                m_found.partOfNext = static_cast<double>(left) / static_cast<double>(end - first);
                break;
            }
            first = end;
            ++m_found.depth;
        }
        m_found.states = m_states.size();
        return m_found;
    }

private:
    bool isLate() const
    {
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - m_start;
        return m_search.seconds > 0 && taken.count() > m_search.seconds;
    }

    /// Leaves the states behind that were found at the depth before. Answers how many there was time for.
    std::size_t leaveAll(std::size_t first, std::size_t end, unsigned depth)
    {
        if (m_search.processes > 1)
            return leaveTogether(first, end, depth);
        Share share(m_search, m_states, m_known);
        std::size_t state = first;
        for (; state < end && !isLate(); ++state) {
            share.leave(static_cast<std::uint32_t>(state));
            tell(depth, state + 1 - first, end - first);
        }
        m_found.transitions += share.transitions();
        merge(share.found());
        return state - first;
    }

    /// Each process takes the next state as soon as it is free.
    std::size_t leaveTogether(std::size_t first, std::size_t end, unsigned depth)
    {
        const SharedCounter next;
        const std::vector<Report> reports(m_search.processes);
        std::vector<pid_t> processes;
        for (const Report& report : reports) {
            const pid_t process = fork();
            if (process == 0) {
                Share share(m_search, m_states, m_known);
                while (!isLate()) {
                    const std::size_t state = first + next.take();
                    if (state >= end)
                        break;
                    share.leave(static_cast<std::uint32_t>(state));
                }
                report.write(share.transitions(), share.found());
                _exit(EXIT_SUCCESS);
            }
            processes.push_back(process);
        }
        std::vector<Step> steps;
        for (std::size_t i = 0; i < processes.size(); ++i) {
            waitFor(processes[i], [&] { tell(depth, std::min(next.taken(), end - first), end - first); });
            std::ranges::copy(reports[i].read(m_found.transitions), std::back_inserter(steps));
        }
        // In the order of the states that were left, whoever was free first.
        std::ranges::sort(steps, [](const Step& one, const Step& other) {
            return std::pair(one.from, one.letter) < std::pair(other.from, other.letter);
        });
        merge(steps);
        return std::min(next.taken(), end - first);
    }

    static void waitFor(pid_t process, const std::function<void()>& meanwhile)
    {
        constexpr useconds_t glance = 20000;
        int status = 0;
        while (waitpid(process, &status, WNOHANG) == 0) {
            meanwhile();
            usleep(glance);
        }
        if (status != 0) {
            std::fprintf(stderr, "a process of the search died\n");
            std::exit(EXIT_FAILURE);
        }
    }

    void tell(unsigned depth, std::size_t done, std::size_t all) const
    {
        if (m_search.progress)
            m_search.progress(depth, done, all);
    }

    void merge(const std::vector<Step>& steps)
    {
        for (const Step& step : steps) {
            std::vector<Letter> way = m_states.wayTo(step.from);
            way.push_back(step.letter);
            if (step.isViolation) {
                complain(way);
                return;
            }
            if (!m_known.insert(step.key).second)
                continue;
            m_states.add(step);
            for (std::size_t i = 0; i < allowances().size(); ++i) {
                if ((step.allowances >> i & 1) != 0 && !m_found.allowed.contains(i))
                    m_found.allowed[i] = scenarioOf(way, m_search.plant);
            }
        }
    }

    /// Played line by line: whatever is left of a scenario is looked at like the whole.
    std::optional<std::string> violationOf(const std::string& scenario) const
    {
        World world(m_search.plant);
        const std::string_view begun = beginning;
        if (!scenario.starts_with(begun))
            return std::nullopt;
        std::string_view rest = std::string_view(scenario).substr(begun.size());
        while (!rest.empty()) {
            const auto end = std::min(rest.find('\n') + 1, rest.size());
            world.play(std::string(rest.substr(0, end)));
            rest.remove_prefix(end);
        }
        world.end();
        return world.violation();
    }

    void complain(const std::vector<Letter>& way)
    {
        m_found.violation = violationOn(way);
        m_found.scenario = reduced(
            scenarioOf(way, m_search.plant), [this](const std::string& left) { return violationOf(left).has_value(); });
    }

    std::optional<std::string> violationOn(const std::vector<Letter>& way) const
    {
        World world(m_search.plant);
        for (const Letter letter : way)
            world.play(linesOf(letter, world), isPause(letter) ? "" : happenings()[letter].name);
        world.end();
        return world.violation();
    }

    const Search& m_search;
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    States m_states;
    std::unordered_set<std::uint64_t> m_known;
    Found m_found;
};

} // namespace

Found explore(const Search& search)
{
    return Exploration(search).run();
}

} // namespace panotra::testing
