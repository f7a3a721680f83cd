/// Writes random scenarios: FOLDER/SEED/scenario, as the runners of scenario tests take them.
///
///     random_scenarios FOLDER FIRST-SEED COUNT
#include "tests/property/RandomScenario.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 4) {
        std::fprintf(stderr, "usage: random_scenarios FOLDER FIRST-SEED COUNT\n");
        return EXIT_FAILURE;
    }
    const std::filesystem::path folder = arguments[1];
    const std::uint64_t first = std::strtoull(arguments[2], nullptr, 10);
    const std::uint64_t count = std::strtoull(arguments[3], nullptr, 10);
    for (std::uint64_t seed = first; seed < first + count; ++seed) {
        const auto place = folder / std::to_string(seed);
        std::filesystem::create_directory(place);
        std::ofstream file(place / "scenario");
        file << panotra::testing::randomScenario(seed);
        if (!file.flush())
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
