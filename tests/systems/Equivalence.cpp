/// The differences, each in its place.
#include "tests/systems/Equivalence.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

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

/// The last word on a class.
bool isLacking(const std::string& scenario, std::string_view className)
{
    bool lacking = false;
    std::istringstream stream(scenario);
    for (std::string line; std::getline(stream, line);) {
        if (isLine(line, { "lack", className }))
            lacking = true;
        else if (isLine(line, { "have", className }))
            lacking = false;
    }
    return lacking;
}

// Hooks of later systems.

struct Successor {
    const char* className;
    const char* method;
    int since = 13;
};

constexpr Successor turning { "SpringBoard", "noteInterfaceOrientationChanged:duration:logMessage:" };

struct MovedHook {
    const char* className;
    const char* method;
    std::array<Successor, 3> successors; ///< as many as have names
};

constexpr MovedHook movedHooks[] = {
    { "SBMediaController", "setRingerMuted:",
        { { { "SBRingerControl", "setRingerMuted:" }, { "SBRingerControl", "activateRingerHUDFromMuteSwitch:" },
            { "SBRingerControl", "activateRingerHUD:withInitialVolume:fromSource:", 16 } } } },
    { "SBHUDController",
        "presentHUDView:autoDismissWithDelay:", { { { "SBHUDController", "_presentHUD:animated:" }, turning, {} } } },
    { "SBHUDController", "reorientHUDIfNeeded:", {} },
    { "VolumeControl",
        "_presentVolumeHUDWithMode:volume:", { { { "SBVolumeControl", "_presentVolumeHUDWithVolume:" }, {}, {} } } },
};

/// What is hooked on a later system where other systems hook `event`.
std::vector<sim::Json> successorsOf(const sim::Json& event, int system)
{
    const auto moved = std::ranges::find_if(movedHooks, [&](const MovedHook& each) {
        return system >= 13 && event["class"] == each.className && event["method"] == each.method;
    });
    if (moved == std::end(movedHooks))
        return { event };
    std::vector<sim::Json> hooks;
    for (const Successor& each : moved->successors) {
        if (each.className == nullptr || system < each.since)
            continue;
        hooks.push_back(event);
        hooks.back()["class"] = each.className;
        hooks.back()["method"] = each.method;
    }
    return hooks;
}

/// What a scenario says of a class that took another's place it says of that one.
std::string withOlderName(const std::string& line, int system)
{
    constexpr std::pair<std::string_view, const char*> olderNames[]
        = { { "SBVolumeControl", "VolumeControl" }, { "SBRingerControl", "SBMediaController" } };
    const auto words = wordsOf(line);
    if (system < 13 || words.size() != 2 || (words[0] != "lack" && words[0] != "have"))
        return line;
    for (const auto& [name, older] : olderNames) {
        if (words[1] == name)
            return words[0] + " " + older;
    }
    return line;
}

/// Where the duration of a rotation comes with the change of the orientation alone, that change is hooked also without
/// an indicator: behind the hooks of what stands before the indicator in the library's table.
void addTurningWithoutIndicator(std::vector<sim::Json>& events, const std::string& scenario, int system)
{
    if (system < 15 || !isLacking(scenario, "SBHUDController"))
        return;
    constexpr std::string_view classesBefore[]
        = { "SpringBoard", "AVSystemController", "SBSoundController", "SBRingerControl" };
    const auto last = std::find_if(events.rbegin(), events.rend(), [&](const sim::Json& event) {
        return event["event"] == "hook"
            && std::ranges::count(classesBefore, event["class"].get_ref<const std::string&>()) > 0;
    });
    const bool isInHomeScreen = std::ranges::any_of(
        events, [](const sim::Json& event) { return event["event"] == "hook" && event["class"] == turning.className; });
    if (!isInHomeScreen)
        return;
    sim::Json hook = *last;
    hook["class"] = turning.className;
    hook["method"] = turning.method;
    events.insert(last.base(), std::move(hook));
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
        if (system >= 15 && isLine(line, { "rotation-duration" })) {
            duration = line;
            continue;
        }
        // A class that is lacking takes along what took the place of its methods: no system tells of a turn then.
        if (duration && isLine(line, { "reorient-hud", "yes" }) && !isLacking(scenario, "SBHUDController")) {
            text += *duration + "\n";
            duration.reset();
        }
        text += withOlderName(line, system) + "\n";
    }
    return text;
}

std::vector<sim::Json> expectedOn(const std::vector<sim::Json>& events, const std::string& scenario, int system)
{
    const bool isAssistantReached = system < 13 || isLacking(scenario, "AXSpringBoardServer");
    std::vector<sim::Json> expected;
    for (sim::Json event : events) {
        if (event["event"] == "hook") {
            for (sim::Json& hook : successorsOf(event, system))
                expected.push_back(std::move(hook));
            continue;
        }
        if (event["event"] == "assistant" && !isAssistantReached)
            continue;
        if (event["event"] == "indicator" && system >= 13)
            nameSuccessor(event);
        if (event.contains("root") && system <= 10)
            flattenCorners(event["root"]);
        expected.push_back(std::move(event));
    }
    addTurningWithoutIndicator(expected, scenario, system);
    return expected;
}

} // namespace panotra::testing
