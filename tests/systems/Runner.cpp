/// Plays scenarios on every system and compares each trace with what the scenario shows without one.
///
///     system_tests [--apart] [--strictly] [--systems FIRST LAST] [--random FIRST-SEED COUNT] [--odd FIRST-SEED COUNT]
///         [FILE...]
///
/// --random plays random scenarios, --odd such ones in processes that lack, or have, any classes.
/// With --apart each play has a process of its own: for a library that can be loaded only once a process.
/// With --strictly even what is known to differ counts: so the comparison shows that it finds something.
#include "simulator/Files.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/scenario/Player.h"
#include "simulator/scenario/TreeReport.h"
#include "simulator/systems/Systems.h"
#include "tests/property/RandomScenario.h"
#include "tests/support/TraceComparison.h"
#include "tests/systems/Equivalence.h"

#include <nlohmann/json.hpp>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <variant>

namespace {

using namespace panotra;

/// Instead of drawing, writes down what there is to draw.
class DrawnThings : public sim::Pictures {
public:
    explicit DrawnThings(std::vector<sim::Json>& events)
        : m_events(events)
    {
    }

    std::optional<std::string> write(sim::Device& device, const std::string&) override
    {
        sim::Json drawn = sim::treeReport(device);
        drawn["event"] = "drawn";
        if (const auto& indicator = device.home->indicator) {
            drawn["indicator"]
                = { { "level", indicator->level }, { "opacity", indicator->opacityAt(device.runLoop->now()) } };
        }
        m_events.push_back(drawn);
        return std::nullopt;
    }

private:
    std::vector<sim::Json>& m_events;
};

std::vector<sim::Json> play(const std::string& text)
{
    const auto scenario = sim::parseScenario(text);
    if (!scenario.mistakes.empty()) {
        std::fprintf(stderr, "line %zu: %s, in\n%s", scenario.mistakes.front().line,
            scenario.mistakes.front().message.c_str(), text.c_str());
        std::exit(EXIT_FAILURE);
    }
    std::vector<sim::Json> events;
    sim::Device device;
    device.traceSink = [&events](const sim::Json& event) {
        events.push_back(event);
    };
    DrawnThings pictures(events);
    sim::Player player(device, sim::loadedLibrary(), {}, &pictures);
    player.play(scenario);
    events.push_back({ { "event", "played" }, { "expectationsHeld", player.expectationsHeld() } });
    return events;
}

/// In a process of its own, which hands the events over in binary.
std::vector<sim::Json> playApart(const std::string& text)
{
    int ends[2];
    if (pipe(ends) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        const auto bytes = sim::Json::to_cbor(play(text));
        std::size_t written = 0;
        while (written < bytes.size()) {
            const ssize_t count = write(ends[1], bytes.data() + written, bytes.size() - written);
            if (count <= 0)
                _exit(EXIT_FAILURE);
            written += static_cast<std::size_t>(count);
        }
        _exit(EXIT_SUCCESS); // the process goes as it stands
    }
    close(ends[1]);
    std::vector<std::uint8_t> bytes;
    std::uint8_t block[65536];
    for (ssize_t count; (count = read(ends[0], block, sizeof block)) > 0;)
        bytes.insert(bytes.end(), block, block + count);
    close(ends[0]);
    int status = 0;
    if (waitpid(child, &status, 0) != child || status != 0)
        return { { { "event", "died" }, { "status", status } } };
    return sim::Json::from_cbor(bytes);
}

bool hasDied(const std::vector<sim::Json>& events)
{
    return events.size() == 1 && events.front()["event"] == "died";
}

std::string linesOf(const std::vector<sim::Json>& events)
{
    std::string lines;
    for (const sim::Json& event : events)
        lines += event.dump() + "\n";
    return lines;
}

struct Choice {
    bool apart = false;
    bool strictly = false;
    int oldest = systems::oldest;
    int newest = systems::newest;
    int plays = 0;
    int differences = 0;
};

/// Whether the table tells the two apart. It is all that the simulated device and the Objective-C host know of a
/// system.
bool areAlike(int system, int other)
{
    return std::ranges::all_of(
        systems::allRows(), [&](const systems::Row& row) { return row.isOn(system) == row.isOn(other); });
}

void compare(const std::string& name, const std::string& scenario, Choice& choice)
{
    const auto playOnce = choice.apart ? playApart : play;
    std::map<std::string, std::vector<sim::Json>> played; // by scenario: several systems have one equivalent
    for (int system = choice.oldest; system <= choice.newest; ++system) {
        if (system > choice.oldest && areAlike(system - 1, system))
            continue; // the same process again
        const auto equivalent = choice.strictly ? scenario : testing::equivalentOf(scenario, system);
        if (!played.contains(equivalent))
            played[equivalent] = playOnce(equivalent);
        const auto expected
            = choice.strictly ? played[equivalent] : testing::expectedOn(played[equivalent], scenario, system);
        const auto found = playOnce(testing::onSystem(scenario, system));
        ++choice.plays;
        if (hasDied(expected) || hasDied(found)) { // alike or not
            std::fprintf(stderr, "%s on %d: the process died\n", name.c_str(), system);
            ++choice.differences;
            continue;
        }
        if (expected == found)
            continue;
        if (const auto difference = testing::firstDifference(linesOf(expected), linesOf(found))) {
            std::fprintf(stderr, "%s on %d: %s\n", name.c_str(), system, difference->c_str());
            ++choice.differences;
        }
    }
}

std::string textOf(const std::string& file)
{
    auto text = sim::readFile(file);
    if (const auto* error = std::get_if<sim::FileError>(&text)) {
        std::fprintf(stderr, "%s\n", error->message.c_str());
        std::exit(EXIT_FAILURE);
    }
    return std::get<std::string>(std::move(text));
}

} // namespace

int main(int argumentCount, char** arguments)
{
    Choice choice;
    sim::loadedLibrary(); // what the library's process takes to start is there before it makes others of itself
    for (int index = 1; index < argumentCount; ++index) {
        const std::string_view word = arguments[index];
        if (word == "--apart") {
            choice.apart = true;
        } else if (word == "--strictly") {
            choice.strictly = true;
        } else if (word == "--systems" && index + 2 < argumentCount) {
            choice.oldest = std::atoi(arguments[++index]);
            choice.newest = std::atoi(arguments[++index]);
        } else if ((word == "--random" || word == "--odd") && index + 2 < argumentCount) {
            const auto scenarioOf = word == "--odd" ? testing::randomOddProcess : testing::randomScenario;
            const auto first = std::strtoull(arguments[++index], nullptr, 10);
            const auto count = std::strtoull(arguments[++index], nullptr, 10);
            for (auto seed = first; seed < first + count; ++seed)
                compare("seed " + std::to_string(seed), scenarioOf(seed), choice);
        } else {
            compare(arguments[index], textOf(arguments[index]), choice);
        }
    }
    std::printf("%d plays, %d differences\n", choice.plays, choice.differences);
    return choice.plays > 0 && choice.differences == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
