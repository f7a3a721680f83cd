/// Plays the scenario of each folder in this process and compares its trace with the one that is expected.
///
///     scenario_tests FOLDER...
///
/// FOLDER holds `scenario` and `trace.jsonl`. The trace that was played is left in the current folder when it differs.
#include "simulator/Files.h"
#include "simulator/LinkedLibrary.h"
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

/// Whether the scenario of the folder leaves the trace that it should.
bool passes(const std::filesystem::path& folder)
{
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
        std::fprintf(stderr, "%s: the play ended with status %d\n", folder.c_str(), static_cast<int>(status));
        return false;
    }
    if (const auto difference = testing::firstDifference(expected, textOf(trace))) {
        std::fprintf(stderr, "%s: %s\nthe whole trace that was found: %s\n", folder.c_str(), difference->c_str(),
            std::filesystem::absolute(trace).c_str());
        return false;
    }
    std::filesystem::remove(trace);
    return true;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount < 2) {
        std::fprintf(stderr, "usage: scenario_tests FOLDER...\n");
        return EXIT_FAILURE;
    }
    bool allPass = true;
    for (int index = 1; index < argumentCount; ++index)
        allPass = passes(arguments[index]) && allPass;
    return allPass ? EXIT_SUCCESS : EXIT_FAILURE;
}
