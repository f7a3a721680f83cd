/// Plays the scenario of each folder and compares its trace with the one that is expected.
///
///     scenario_tests [--apart] [--write] FOLDER...
///
/// FOLDER holds `scenario` and `trace.jsonl`. The trace that was played is left in the current folder when it differs.
/// With --write the trace is left in FOLDER, and nothing is compared. With --apart each play has a process of its own:
/// for a library that can be loaded only once a process.
#include "simulator/Files.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/Play.h"
#include "tests/support/TraceComparison.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
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

bool plays(const std::filesystem::path& folder, const std::string& trace)
{
    const sim::PlayOptions options {
        .scenarioFile = (folder / "scenario").string(),
        .preferencesFolder = {},
        .format = sim::TraceFormat::JsonLines,
        .traceFile = trace,
    };
    const auto status = sim::play(options, sim::loadedLibrary());
    if (status != sim::ExitStatus::AllWell)
        std::fprintf(stderr, "%s: the play ended with status %d\n", folder.c_str(), static_cast<int>(status));
    return status == sim::ExitStatus::AllWell;
}

/// Whether the scenario of the folder leaves the trace that it should.
bool passes(const std::filesystem::path& folder)
{
    const auto expected = textOf(folder / "trace.jsonl");

    // Named after the case, so that cases which run at the same time do not meet.
    const auto trace = folder.parent_path().filename().string() + '.' + folder.filename().string() + ".found.jsonl";
    if (!plays(folder, trace))
        return false;
    if (const auto difference = testing::firstDifference(expected, textOf(trace))) {
        std::fprintf(stderr, "%s: %s\nthe whole trace that was found: %s\n", folder.c_str(), difference->c_str(),
            std::filesystem::absolute(trace).c_str());
        return false;
    }
    std::filesystem::remove(trace);
    return true;
}

/// The check in a process of its own.
bool holdsApart(bool (*check)(const std::filesystem::path&), const std::filesystem::path& folder)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(check(folder) ? EXIT_SUCCESS : EXIT_FAILURE); // the process goes as it stands
    int status = 0;
    if (waitpid(child, &status, 0) == child && WIFEXITED(status))
        return WEXITSTATUS(status) == EXIT_SUCCESS;
    std::fprintf(stderr, "%s: the process died\n", folder.c_str());
    return false;
}

bool writes(const std::filesystem::path& folder)
{
    return plays(folder, (folder / "trace.jsonl").string());
}

} // namespace

int main(int argumentCount, char** arguments)
{
    auto* check = passes;
    bool apart = false;
    int index = 1;
    for (; index < argumentCount && std::string_view(arguments[index]).starts_with("--"); ++index) {
        apart |= std::string_view(arguments[index]) == "--apart";
        if (std::string_view(arguments[index]) == "--write")
            check = writes;
    }
    if (index == argumentCount) {
        std::fprintf(stderr, "usage: scenario_tests [--apart] [--write] FOLDER...\n");
        return EXIT_FAILURE;
    }
    sim::loadedLibrary(); // what the library's process takes to start is there before it makes others of itself
    bool allPass = true;
    for (; index < argumentCount; ++index)
        allPass = (apart ? holdsApart(check, arguments[index]) : check(arguments[index])) && allPass;
    return allPass ? EXIT_SUCCESS : EXIT_FAILURE;
}
