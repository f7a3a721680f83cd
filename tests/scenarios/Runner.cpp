/// Plays the scenario of one folder in this process and compares its trace with the one that is expected.
///
///     scenario_tests FOLDER
///
/// FOLDER holds `scenario` and `trace.jsonl`. The trace that was played is left in the current folder when it differs.
#include "simulator/Files.h"
#include "simulator/Library.h"
#include "simulator/Play.h"
#include "tests/support/TraceComparison.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <variant>

namespace {

using namespace panotra;

/// The text of a file; the test fails without it.
std::string textOf(const std::filesystem::path& file)
{
    auto text = sim::readFile(file.string());
    if (const auto* error = std::get_if<sim::FileError>(&text)) {
        std::fprintf(stderr, "%s\n", error->message.c_str());
        std::exit(EXIT_FAILURE);
    }
    return std::get<std::string>(std::move(text));
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: scenario_tests FOLDER\n");
        return EXIT_FAILURE;
    }
    const std::filesystem::path folder = arguments[1];
    const auto expected = textOf(folder / "trace.jsonl");

    // Named after the case, so that cases which run at the same time do not meet.
    const auto trace = folder.parent_path().filename().string() + '.' + folder.filename().string() + ".found.jsonl";
    const sim::PlayOptions options {
        .scenarioFile = (folder / "scenario").string(),
        .preferencesFolder = {},
        .format = sim::TraceFormat::JsonLines,
        .traceFile = trace,
    };
    const auto status = sim::play(options, sim::loadedLibrary());
    if (status != sim::ExitStatus::AllWell) {
        std::fprintf(stderr, "the play ended with status %d\n", static_cast<int>(status));
        return EXIT_FAILURE;
    }
    if (const auto difference = testing::firstDifference(expected, textOf(trace))) {
        std::fprintf(stderr, "%s\nthe whole trace that was found: %s\n", difference->c_str(),
            std::filesystem::absolute(trace).c_str());
        return EXIT_FAILURE;
    }
    std::filesystem::remove(trace);
    return EXIT_SUCCESS;
}
