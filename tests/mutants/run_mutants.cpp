/// Lets mutants live, one at a time, and sees whether a test notices.
///
///     run_mutants LIST TESTS EQUIVALENT RECORD JOBS [COUNT [SEED] | survivors]
///
/// LIST is what plant_mutants wrote, TESTS what `ctest --show-only=json-v1` prints of the planted build. EQUIVALENT
/// names mutants that change nothing which anybody could see, each with the reason below it. RECORD gets a line for
/// each mutant that was tried; one that stands there already is not tried again, so a run that was stopped goes on.
/// JOBS mutants live at a time, each in processes of its own. COUNT of them are chosen by chance, evenly over the
/// rooms; without it all are. `survivors` tries those again that survived.
///
/// Status 0: enough were caught, and in hooks and model all. 1: too few; a test fails without any mutant; EQUIVALENT
/// names a mutant that is not planted, or one that is caught. 2: wrong arguments, or a file cannot be read.
#include "tests/mutants/Ledger.h"
#include "tests/mutants/Trials.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <limits>
#include <map>
#include <mutex>
#include <set>
#include <thread>
#include <unistd.h>

namespace {

using namespace panotra::mutants;

constexpr double leastScore = 0.98;
const std::set<std::string> roomsWithoutSurvivors { "hooks", "model" };
/// Tried one by one, before all others of their program are tried together.
constexpr std::size_t triedAlone = 6;
/// Of those that cannot be joined with others of their program, which take most of the time. Whoever survives is tried
/// by all of them in the end.
constexpr std::size_t mostApart = 40;
const std::string triedBySome = "some"; ///< stands for the test that caught it, until all have tried

bool isAlive(const Fate& fate)
{
    return fate.state == "survived" || fate.state == "unreached";
}

struct Row {
    int planted = 0;
    int caught = 0;
    int equivalent = 0;
    int survived = 0;
};

/// Finds for each mutant a test that notices it.
class Hunt {
public:
    Hunt(std::vector<Trial> trials, std::string folder)
        : m_trials(std::move(trials))
        , m_folder(std::move(folder))
    {
    }

    /// `apart`: at most so many that cannot be joined are tried.
    Fate fateOf(const Planted& mutant, int worker, std::size_t apart)
    {
        auto reaching = trialsReaching(mutant);
        if (reaching.empty())
            return { mutant.isInConstexpr ? "compiled" : "unreached", "-" };
        const std::size_t alone = std::min(triedAlone, reaching.size());
        for (std::size_t i = 0; i < alone; ++i) {
            if (notices(*reaching[i], mutant, worker)) {
                const std::lock_guard lock(m_mutex);
                m_noticed[mutant.function] = reaching[i];
                return { "caught", reaching[i]->name };
            }
        }
        for (const Trial& trial :
            together({ reaching.begin() + static_cast<std::ptrdiff_t>(alone), reaching.end() }, apart)) {
            if (notices(trial, mutant, worker))
                return { "caught", trial.name };
        }
        return { "survived", apart < reaching.size() ? triedBySome : "-" };
    }

private:
    /// First the one that noticed another mutant of the function, then those that reach the fewest mutants: what a test
    /// is about, it reaches on purpose.
    std::vector<const Trial*> trialsReaching(const Planted& mutant)
    {
        std::vector<const Trial*> reaching;
        for (const Trial& trial : m_trials) {
            if (trial.reached[static_cast<std::size_t>(mutant.number)])
                reaching.push_back(&trial);
        }
        std::sort(reaching.begin(), reaching.end(), [](const Trial* a, const Trial* b) {
            return std::pair(a->reachedCount, a->name) < std::pair(b->reachedCount, b->name);
        });
        const std::lock_guard lock(m_mutex);
        const auto known = m_noticed.find(mutant.function);
        if (known != m_noticed.end()) {
            const auto same = std::find(reaching.begin(), reaching.end(), known->second);
            if (same != reaching.end())
                std::rotate(reaching.begin(), same, same + 1);
        }
        return reaching;
    }

    static std::vector<Trial> together(const std::vector<const Trial*>& trials, std::size_t apart)
    {
        std::vector<Trial> result;
        std::map<std::string, std::vector<const Trial*>> byProgram;
        for (const Trial* const trial : trials) {
            if (trial->canBeJoined)
                byProgram[trial->command.front()].push_back(trial);
        }
        for (const auto& [program, joinable] : byProgram)
            result.push_back(joined(joinable));
        std::sort(result.begin(), result.end(), [](const Trial& a, const Trial& b) { return a.seconds < b.seconds; });
        for (const Trial* const trial : trials) {
            if (!trial->canBeJoined && apart > 0) {
                result.push_back(*trial);
                --apart;
            }
        }
        return result;
    }

    bool notices(const Trial& trial, const Planted& mutant, int worker) const
    {
        const std::string place = m_folder + "/worker" + std::to_string(worker);
        const Result result
            = runTrial(trial, "PANOTRA_MUTANT=" + std::to_string(mutant.number), place, 3 + 5 * trial.seconds);
        return result.outcome != Outcome::Passed;
    }

    std::vector<Trial> m_trials;
    std::string m_folder;
    std::mutex m_mutex;
    std::map<std::string, const Trial*> m_noticed;
};

void showProgress(std::size_t done, std::size_t all, int survivors)
{
    if (::isatty(STDOUT_FILENO) != 0) {
        constexpr std::size_t width = 40;
        const std::size_t filled = done * width / all;
        std::printf("\r[%s%s] %zu of %zu, %d survive", std::string(filled, '#').c_str(),
            std::string(width - filled, ' ').c_str(), done, all, survivors);
        std::fflush(stdout);
    } else if (done * 10 / all != (done - 1) * 10 / all) {
        std::printf("%zu of %zu, %d survive\n", done, all, survivors);
        std::fflush(stdout);
    }
}

/// Tries the mutants, `jobs` at a time, and records what became of them.
void tryAll(const std::vector<Planted>& mutants, Hunt& hunt, Record& record, int jobs, std::size_t apart)
{
    if (mutants.empty())
        return;
    std::printf("Trying %zu mutants\n", mutants.size());
    std::fflush(stdout);
    std::atomic<std::size_t> next = 0;
    std::size_t done = 0;
    int alive = 0;
    std::mutex mutex;
    std::vector<std::thread> workers;
    for (int worker = 0; worker < jobs; ++worker) {
        workers.emplace_back([&, worker] {
            for (std::size_t i = next++; i < mutants.size(); i = next++) {
                const Fate fate = hunt.fateOf(mutants[i], worker, apart);
                const std::lock_guard lock(mutex);
                record.add(mutants[i], fate);
                alive += isAlive(fate) ? 1 : 0;
                showProgress(++done, mutants.size(), alive);
            }
        });
    }
    for (std::thread& worker : workers)
        worker.join();
    std::printf("\n");
}

double scoreOf(const Row& row)
{
    const int counted = row.planted - row.equivalent;
    return counted == 0 ? 1 : static_cast<double>(row.caught) / counted;
}

void printRow(const std::string& name, const Row& row)
{
    std::printf("%-14s %8d %8d %11d %9d %7.2f %%\n", name.c_str(), row.planted, row.caught, row.equivalent,
        row.survived, 100 * scoreOf(row));
}

/// Answers the status of the program.
int conclude(const std::vector<Planted>& chosen, const Record& record,
    const std::map<std::string, std::string>& equivalent, bool isWhole)
{
    std::map<std::string, Row> rows;
    Row all;
    int compiled = 0;
    bool isEnough = true;
    std::set<std::string> seen;
    for (const Planted& mutant : chosen) {
        seen.insert(mutant.name);
        const Fate* const fate = record.find(mutant.name);
        if (fate == nullptr || fate->state == "compiled") {
            ++compiled;
            continue;
        }
        Row& row = rows[mutant.room];
        ++row.planted;
        const bool isCaught = fate->state == "caught";
        const bool isEquivalent = equivalent.contains(mutant.name);
        if (isCaught && isEquivalent) {
            std::printf("called equivalent, but caught by %s: %s\n", fate->by.c_str(), mutant.name.c_str());
            isEnough = false;
        }
        if (isCaught)
            ++row.caught;
        else if (isEquivalent)
            ++row.equivalent;
        else {
            ++row.survived;
            const std::string what = mutant.name.substr(mutant.name.find(": ") + 2);
            std::printf("%s: %s: %s\n", mutant.place.c_str(), fate->state.c_str(), what.c_str());
        }
    }
    for (const auto& [name, reason] : equivalent) {
        if (isWhole && !seen.contains(name)) {
            std::printf("called equivalent, but not planted: %s\n", name.c_str());
            isEnough = false;
        }
    }
    std::printf("\n%-14s %8s %8s %11s %9s %9s\n", "room", "planted", "caught", "equivalent", "survived", "score");
    for (const auto& [room, row] : rows) {
        printRow(room, row);
        all.planted += row.planted;
        all.caught += row.caught;
        all.equivalent += row.equivalent;
        all.survived += row.survived;
        isEnough = isEnough && (row.survived == 0 || !roomsWithoutSurvivors.contains(room));
    }
    printRow("all", all);
    if (compiled != 0)
        std::printf("left out, for the compiler alone evaluates them: %d\n", compiled);
    return isEnough && scoreOf(all) >= leastScore ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount < 6 || argumentCount > 8) {
        std::fprintf(stderr, "usage: run_mutants LIST TESTS EQUIVALENT RECORD JOBS [COUNT [SEED] | survivors]\n");
        return 2;
    }
    const std::vector<Planted> all = readList(arguments[1]);
    const auto equivalent = readEquivalent(arguments[3]);
    const std::string recordFile = arguments[4];
    const int jobs = std::max(1, std::atoi(arguments[5]));
    const std::string choice = argumentCount > 6 ? arguments[6] : "";
    const bool isSecondTry = choice == "survivors";
    const std::size_t count = choice.empty() || isSecondTry ? 0 : std::stoul(choice);
    const unsigned seed = argumentCount > 7 ? static_cast<unsigned>(std::stoul(arguments[7])) : 1;
    const std::vector<Planted> chosen = count != 0 ? sample(all, count, seed) : all;
    Record record(recordFile);

    const auto thoseThat = [&](const auto& isOne) {
        std::vector<Planted> found;
        std::copy_if(chosen.begin(), chosen.end(), std::back_inserter(found),
            [&](const Planted& mutant) { return isOne(record.find(mutant.name)); });
        return found;
    };
    const auto left = thoseThat(
        [&](const Fate* fate) { return isSecondTry ? fate != nullptr && isAlive(*fate) : fate == nullptr; });
    // What is called equivalent need not be tried by all of them.
    const auto undecided = [&] {
        auto found = thoseThat([](const Fate* fate) { return fate != nullptr && fate->by == triedBySome; });
        std::erase_if(found, [&](const Planted& mutant) { return equivalent.contains(mutant.name); });
        return found;
    };
    if (!left.empty() || !undecided().empty()) {
        std::vector<Trial> trials = readTrials(arguments[2]);
        const std::string folder = std::filesystem::absolute(recordFile).string() + ".work";
        std::printf("Running %zu tests without a mutant\n", trials.size());
        std::fflush(stdout);
        const auto failed = measure(trials, static_cast<int>(all.size()), folder, jobs);
        for (const std::string& name : failed)
            std::printf("fails without a mutant: %s\n", name.c_str());
        if (!failed.empty())
            return EXIT_FAILURE;
        Hunt hunt(std::move(trials), folder);
        tryAll(left, hunt, record, jobs, mostApart);
        tryAll(undecided(), hunt, record, jobs, std::numeric_limits<std::size_t>::max());
        std::filesystem::remove_all(folder);
    }
    return conclude(chosen, record, equivalent, count == 0 && !isSecondTry);
}
