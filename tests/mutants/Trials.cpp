/// Tests as processes: which there are, and running some of them with a mutant alive.
#include "tests/mutants/Trials.h"

#include <nlohmann/json.hpp>

#include <atomic>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace panotra::mutants {
namespace {

[[noreturn]] void fail(const std::string& message)
{
    std::fprintf(stderr, "run_mutants: %s\n", message.c_str());
    std::exit(EXIT_FAILURE);
}

/// The names under a GoogleTest program's list: suites at the margin, their cases below.
std::vector<std::string> casesOf(const std::string& program)
{
    std::vector<std::string> cases;
    FILE* const list = ::popen(("'" + program + "' --gtest_list_tests").c_str(), "r");
    if (list == nullptr)
        fail("cannot run " + program);
    std::string suite;
    char line[1024];
    while (std::fgets(line, sizeof line, list) != nullptr) {
        std::string name = line;
        name.resize(std::min(name.find_first_of(" \n#", 2), name.size()));
        if (line[0] != ' ')
            suite = name;
        else
            cases.push_back(suite + name.substr(2));
    }
    if (::pclose(list) != 0 || cases.empty())
        fail(program + " does not list its tests");
    return cases;
}

std::vector<std::string> property(const nlohmann::json& test, const char* name)
{
    for (const auto& each : test.value("properties", nlohmann::json::array())) {
        if (each.value("name", "") == name)
            return each.at("value").get<std::vector<std::string>>();
    }
    return {};
}

/// What the process answers a parent that may have been told to stop it.
Result waitFor(pid_t process, double seconds)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds * 10);
    int status = 0;
    rusage usage {};
    bool isStopped = false;
    auto pause = std::chrono::microseconds(200);
    while (::wait4(process, &status, isStopped ? 0 : WNOHANG, &usage) == 0) {
        if (Clock::now() > end) {
            ::kill(-process, SIGKILL);
            isStopped = true;
        }
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 5 / 4, std::chrono::microseconds(5000));
    }
    ::kill(-process, SIGKILL); // whatever it left running
    const auto secondsOf = [](timeval time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    const double used = secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
    const bool isOverTime
        = isStopped || (WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL));
    if (isOverTime)
        return { Outcome::TimedOut, used };
    return { WIFEXITED(status) && WEXITSTATUS(status) == 0 ? Outcome::Passed : Outcome::Failed, used };
}

std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> result;
    for (std::string& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

} // namespace

std::vector<Trial> readTrials(const std::string& jsonFile)
{
    std::ifstream stream(jsonFile);
    const auto list = nlohmann::json::parse(stream, nullptr, false);
    if (list.is_discarded() || !list.contains("tests"))
        fail("no list of tests: " + jsonFile);
    std::vector<Trial> trials;
    for (const auto& test : list.at("tests")) {
        if (!test.contains("command"))
            fail("not built: " + test.value("name", "a test"));
        Trial trial;
        trial.name = test.at("name").get<std::string>();
        trial.command = test.at("command").get<std::vector<std::string>>();
        trial.environment = property(test, "ENVIRONMENT");
        if (trial.command.back() == "--gtest_brief=1") {
            for (const std::string& name : casesOf(trial.command.front())) {
                Trial one = trial;
                one.name += '/' + name;
                one.command
                    = { trial.command.front(), "--gtest_brief=1", "--gtest_fail_fast", "--gtest_filter=" + name };
                one.isCase = one.canBeJoined = true;
                trials.push_back(std::move(one));
            }
            continue;
        }
        trial.canBeJoined = trial.command.front().ends_with("/scenario_tests")
            && !trial.command.front().ends_with("/objc_scenario_tests");
        trials.push_back(std::move(trial));
    }
    return trials;
}

Trial joined(const std::vector<const Trial*>& trials)
{
    Trial all = *trials.front();
    for (std::size_t i = 1; i < trials.size(); ++i) {
        const std::string& argument = trials[i]->command.back();
        if (all.isCase)
            all.command.back() += ':' + argument.substr(argument.find('=') + 1);
        else
            all.command.push_back(argument);
        all.seconds += trials[i]->seconds;
    }
    if (trials.size() > 1)
        all.name = all.command.front().substr(all.command.front().rfind('/') + 1) + ", one of "
            + std::to_string(trials.size());
    return all;
}

Result runTrial(const Trial& trial, const std::string& variable, const std::string& folder, double seconds)
{
    std::vector<std::string> command = trial.command;
    std::vector<std::string> environment = trial.environment;
    for (char** each = ::environ; *each != nullptr; ++each)
        environment.emplace_back(*each);
    environment.push_back(variable);
    const auto commandPointers = pointers(command);
    const auto environmentPointers = pointers(environment);
    const auto limit = static_cast<rlim_t>(std::ceil(seconds));

    const pid_t process = ::fork();
    if (process == 0) {
        ::setpgid(0, 0);
        const rlimit processor { limit, limit };
        const rlimit memory { rlim_t { 4 } << 30, rlim_t { 4 } << 30 };
        const rlimit none { 0, 0 };
        ::setrlimit(RLIMIT_CPU, &processor);
        ::setrlimit(RLIMIT_AS, &memory);
        ::setrlimit(RLIMIT_CORE, &none);
        const int nowhere = ::open("/dev/null", O_RDWR);
        for (const int stream : { 0, 1, 2 })
            ::dup2(nowhere, stream);
        if (::chdir(folder.c_str()) == 0)
            ::execve(commandPointers[0], commandPointers.data(), environmentPointers.data());
        ::_exit(127);
    }
    if (process < 0)
        fail("cannot start a process");
    ::setpgid(process, process);
    return waitFor(process, seconds);
}

std::vector<std::string> measure(std::vector<Trial>& trials, int count, const std::string& folder, int jobs)
{
    std::atomic<std::size_t> next = 0;
    std::mutex mutex;
    std::vector<std::string> failed;
    const auto work = [&](int worker) {
        const std::string place = folder + "/worker" + std::to_string(worker);
        std::filesystem::create_directories(place);
        const std::string reachedFile = place + "/reached";
        for (std::size_t i = next++; i < trials.size(); i = next++) {
            Trial& trial = trials[i];
            std::ofstream(reachedFile, std::ios::binary) << std::string(static_cast<std::size_t>(count), '\0');
            const Result result = runTrial(trial, "PANOTRA_MUTANTS_REACHED=" + reachedFile, place, 60);
            trial.seconds = result.seconds;
            std::ifstream stream(reachedFile, std::ios::binary);
            const std::string bytes(std::istreambuf_iterator<char>(stream), {});
            trial.reached.assign(static_cast<std::size_t>(count), false);
            for (std::size_t mutant = 0; mutant < bytes.size(); ++mutant) {
                trial.reached[mutant] = bytes[mutant] != '\0';
                trial.reachedCount += bytes[mutant] != '\0' ? 1 : 0;
            }
            if (result.outcome != Outcome::Passed) {
                const std::lock_guard lock(mutex);
                failed.push_back(trial.name);
            }
        }
    };
    std::vector<std::thread> workers;
    for (int worker = 0; worker < jobs; ++worker)
        workers.emplace_back(work, worker);
    for (std::thread& worker : workers)
        worker.join();
    return failed;
}

} // namespace panotra::mutants
