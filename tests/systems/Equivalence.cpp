/// The differences, each in its place.
#include "tests/systems/Equivalence.h"

#include <optional>
#include <sstream>
#include <string_view>

namespace panotra::testing {

namespace {

std::vector<std::string> wordsOf(const std::string& line)
{
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word && word.front() != '#';)
        words.push_back(word);
    return words;
}

bool isLine(const std::string& line, std::initializer_list<std::string_view> beginning)
{
    const auto words = wordsOf(line);
    return words.size() >= beginning.size() && std::equal(beginning.begin(), beginning.end(), words.begin());
}

bool hasLine(const std::string& scenario, std::initializer_list<std::string_view> beginning)
{
    std::istringstream stream(scenario);
    for (std::string line; std::getline(stream, line);) {
        if (isLine(line, beginning))
            return true;
    }
    return false;
}

/// A change of the orientation is told to a method of the application's class.
bool isReorientationUnheard(const std::string& scenario, int system)
{
    return system >= 13 && hasLine(scenario, { "lack", "SpringBoard" });
}

void flattenCorners(sim::Json& node)
{
    if (node.is_object() && node.contains("layer"))
        node["layer"]["continuousCorners"] = false;
    if (node.is_object() && node.contains("subviews")) {
        for (sim::Json& view : node["subviews"])
            flattenCorners(view);
    }
}

void nameSuccessor(sim::Json& indicator)
{
    indicator.erase("mode");
    indicator.erase("delay");
    indicator["by"] = indicator["by"] == "presentHUDView:autoDismissWithDelay:" ? "_presentHUD:animated:"
                                                                                : "_presentVolumeHUDWithVolume:";
}

} // namespace

std::string onSystem(const std::string& scenario, int system)
{
    return "ios " + std::to_string(system) + "\n" + scenario;
}

std::string equivalentOf(const std::string& scenario, int system)
{
    std::string text;
    if (system == 9)
        text += "lack UIViewPropertyAnimator\n";
    if (system <= 10)
        text += "lack _UIStatusBar\n";
    std::optional<std::string> duration;
    std::istringstream stream(scenario);
    for (std::string line; std::getline(stream, line);) {
        if (system >= 13 && isLine(line, { "reorient-hud", "no" }))
            continue;
        if (isLine(line, { "reorient-hud" }) && isReorientationUnheard(scenario, system))
            continue;
        if (system >= 15 && isLine(line, { "rotation-duration" })) {
            duration = line;
            continue;
        }
        if (duration && isLine(line, { "reorient-hud", "yes" })) {
            text += *duration + "\n";
            duration.reset();
        }
        text += line + "\n";
    }
    return text;
}

std::vector<sim::Json> expectedOn(const std::vector<sim::Json>& events, const std::string& scenario, int system)
{
    const bool isAssistantReached = system < 13 || hasLine(scenario, { "lack", "AXSpringBoardServer" });
    std::vector<sim::Json> expected;
    for (sim::Json event : withoutHooks(events)) {
        if (event["event"] == "assistant" && !isAssistantReached)
            continue;
        if (event["event"] == "indicator" && system >= 13)
            nameSuccessor(event);
        if (event.contains("root") && system <= 10)
            flattenCorners(event["root"]);
        expected.push_back(std::move(event));
    }
    return expected;
}

std::vector<sim::Json> withoutHooks(const std::vector<sim::Json>& events)
{
    std::vector<sim::Json> others;
    for (const sim::Json& event : events) {
        if (event["event"] != "hook")
            others.push_back(event);
    }
    return others;
}

} // namespace panotra::testing
