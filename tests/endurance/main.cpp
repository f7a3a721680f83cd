/// Lives a year with the mixer in as little time as that takes, and says what came of it.
///
///     endurance [DAYS [SEED]]
///
/// Status 1: a level was wrong, something was left over, or memory grew.
#include "tests/endurance/Year.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

using namespace panotra::testing;

int main(int argumentCount, char** arguments)
{
    YearAsked asked;
    if (argumentCount > 1)
        asked.days = static_cast<unsigned>(std::strtoul(arguments[1], nullptr, 10));
    if (argumentCount > 2)
        asked.seed = std::strtoull(arguments[2], nullptr, 10);
    const bool isWatched = isatty(STDERR_FILENO) == 1;
    asked.midnight = [&](unsigned days) {
        if (isWatched)
            std::fprintf(stderr, "\rday %u of %u%s", days, asked.days, days == asked.days ? "\n" : "");
    };

    const auto start = std::chrono::steady_clock::now();
    const YearLived lived = liveAYear(asked);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;

    // A day's events differ from another's: what a table has grown to, it keeps.
    constexpr std::size_t slack = 16384;
    const bool hasGrown = lived.heapAtTheEnd > lived.heapAfterFirstDays + slack;
    if (lived.complaint)
        std::printf("%s\n", lived.complaint->c_str());
    if (hasGrown)
        std::printf("memory grows\n");
    std::printf(
        "%u days, %zu events, %zu showings, %zu moves of a finger, seed %llu: %s; %zu objects at midnight; heap "
        "%zu bytes after three days, %zu at the end; %.1f seconds\n",
        lived.days, lived.events, lived.showings, lived.drags, static_cast<unsigned long long>(asked.seed),
        lived.complaint ? "not well" : "levels right after each", lived.objects, lived.heapAfterFirstDays,
        lived.heapAtTheEnd, taken.count());
    return lived.complaint || hasGrown || lived.days == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
