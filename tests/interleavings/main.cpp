/// Looks at every interleaving of what races in real use, up to a depth, and says what it found.
///
///     interleavings [--depth N] [--seconds S] [--processes P] [--allowed FOLDER]
///
/// Without --depth it goes as deep as S seconds allow, 600 unless said otherwise, and ends then, wherever it is.
/// --allowed writes the shortest scenario of everything that is allowed though it looks wrong into the folder. Status
/// 1: something did not hold, and a scenario that shows it is on standard output; 2: the command line is wrong.
#include "tests/interleavings/Explorer.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <thread>

namespace {

using namespace panotra::testing;

unsigned numberFrom(std::string_view word)
{
    unsigned number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || number == 0) {
        std::fprintf(stderr, "interleavings: found %.*s, expected a whole number from 1 on\n",
            static_cast<int>(word.size()), word.data());
        std::exit(2);
    }
    return number;
}

/// A bar for somebody who watches; a log gets one line a depth.
void showProgress(unsigned depth, std::size_t done, std::size_t all)
{
    static const bool isWatched = isatty(STDERR_FILENO) == 1;
    static std::size_t shown = 0;
    constexpr std::size_t width = 40;
    const std::size_t filled = all == 0 ? width : width * done / all;
    if (!isWatched || (filled == shown && done != all))
        return;
    shown = filled;
    std::fprintf(stderr, "\rdepth %u [%s%s] %zu of %zu states%s", depth, std::string(filled, '#').c_str(),
        std::string(width - filled, ' ').c_str(), done, all, done == all ? "\n" : "");
}

void writeAllowed(const Found& found, const std::string& folder)
{
    for (const auto& [number, scenario] : found.allowed)
        std::ofstream(folder + "/" + allowances()[number].scenario + ".scenario") << scenario;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    Search search;
    search.depth = 0;
    search.seconds = 600;
    search.processes = std::max(1u, std::thread::hardware_concurrency());
    search.progress = showProgress;
    std::string allowedFolder;
    for (int index = 1; index < argumentCount; index += 2) {
        const std::string_view word = arguments[index];
        const bool isLast = index + 1 == argumentCount;
        if (!isLast && word == "--depth")
            search.depth = numberFrom(arguments[index + 1]);
        else if (!isLast && word == "--seconds")
            search.seconds = numberFrom(arguments[index + 1]);
        else if (!isLast && word == "--processes")
            search.processes = numberFrom(arguments[index + 1]);
        else if (!isLast && word == "--allowed")
            allowedFolder = arguments[index + 1];
        else {
            std::fprintf(stderr, "interleavings [--depth N] [--seconds S] [--processes P] [--allowed FOLDER]\n");
            return 2;
        }
    }
    if (search.depth == 0)
        search.depth = ~0u;
    else
        search.seconds = 0;

    const auto start = std::chrono::steady_clock::now();
    const Found found = explore(search);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (!allowedFolder.empty())
        writeAllowed(found, allowedFolder);
    if (found.violation)
        std::printf("# %s\n%s", found.violation->c_str(), found.scenario.c_str());
    for (std::size_t i = 0; i < allowances().size(); ++i)
        std::printf("%s: %s\n", found.allowed.contains(i) ? "allowed, and seen" : "not seen", allowances()[i].name);
    std::printf("depth %u and %.0f %% of the next, %zu states, %zu transitions, %zu rules, %s, %.0f seconds\n",
        found.depth, 100 * found.partOfNext, found.states, found.transitions,
        invariants().size() + rules().size() + rulesAtRest().size() + 1,
        found.violation ? "1 violation" : "no violation", taken.count());
    return found.violation ? EXIT_FAILURE : EXIT_SUCCESS;
}
