/// The wording of every event, and what runs of events have in common.
#include "simulator/scenario/TextEvents.h"

#include "simulator/scenario/TextFormat.h"
#include "simulator/scenario/TextReports.h"
#include "simulator/scenario/TextTemplate.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <string_view>
#include <utility>

namespace panotra::sim {

namespace {

struct Wording {
    std::string_view event;
    std::string_view words; ///< see TextTemplate.h
};

constexpr std::array wordings {
    Wording { "hook", "{class} {method}" },
    Wording { "register", "{name}" },
    Wording { "observe", "{name}" },
    Wording { "listener", "{name}" },
    Wording { "launched", "" },
    Wording { "announced", "{category} {level%}, {reason}" },
    Wording { "activeVolume", "{named?named:unnamed}" },
    Wording { "setVolume", "{category} {level%}" },
    Wording { "indicator", "{by}[ for {delay} s][ mode {mode},][ {level%}]" },
    Wording { "reoriented", "{flag}" },
    Wording { "statusBarFrame", "{class} {frame}" },
    Wording { "sound", "[type {type}]{type?:untyped}" },
    Wording { "ringer", "{muted?muted:unmuted}" },
    Wording { "motion", "type {type}" },
    Wording { "post", "{name}" },
    Wording { "synchronize", "{domain}" },
    Wording { "write", "{domain}  {key} {value%}" },
    Wording { "schedule", "{selector}[ {object}] in {delay} s" },
    Wording { "cancel", "{selector}[ {object}]" },
    Wording { "perform", "{selector}[ {object}]" },
    Wording { "dispatch", "in {delay} s" },
    Wording { "dispatched", "" },
    Wording { "animate", "for {duration} s[ after {delay!0} s], options {options}" },
    Wording { "animationEnd", "{finished?finished:interrupted}" },
    Wording { "windowShown", "" },
    Wording { "overlay", "{class} {action}[ {value}]" },
    Wording { "assistant", "{action}" },
    Wording { "handled", "{listener}" },
    Wording { "answer", "{listener} {question}: {value}" },
    Wording { "hit", "({x}, {y}) {view}" },
    Wording { "shot", "{file}" },
};

/// The fields of an event that the table does not know.
std::string allFields(const Json& event)
{
    std::string text;
    for (const auto& [name, value] : event.items()) {
        if (name != "t" && name != "event")
            text += (text.empty() ? "" : ", ") + name + ' ' + shortValue(value);
    }
    return text;
}

/// The value of a field as it is, or an empty string.
std::string rawField(const Json& event, const char* name)
{
    return event.value(name, std::string());
}

std::string kindOf(const Json& event)
{
    return rawField(event, "event");
}

std::string timeOf(const Json& event)
{
    std::array<char, 64> text {};
    std::snprintf(text.data(), text.size(), "%.3f", event.at("t").get<double>());
    return text.data();
}

std::string describeOne(const Json& event)
{
    const auto kind = kindOf(event);
    if (kind == "state")
        return describeState(event);
    if (kind == "tree")
        return describeTree(event);
    const auto wording = std::ranges::find(wordings, kind, &Wording::event);
    return wording == wordings.end() ? allFields(event) : fillTemplate(wording->words, event);
}

/// What a line says behind the kind of its event.
struct Words {
    std::string text;
    std::vector<std::string> items {};
};

/// "11 methods of SpringBoard, AVSystemController, …": each class once.
Words describeHooks(const std::vector<Json>& run)
{
    std::vector<std::string> classes;
    for (const auto& event : run) {
        if (auto name = shortValue(event.at("class")); std::ranges::find(classes, name) == classes.end())
            classes.push_back(std::move(name));
    }
    return { std::to_string(run.size()) + " methods of ", std::move(classes) };
}

Words describeNames(const std::vector<Json>& run)
{
    std::vector<std::string> names;
    for (const auto& event : run)
        names.push_back(shortValue(event.at("name")));
    return { "", std::move(names) };
}

/// Whether the keys are those of one row, "volume0", "volume1" and so on.
bool areNumberedInARow(std::span<const Json> writes)
{
    for (std::size_t index = 0; index < writes.size(); ++index) {
        const auto number = std::to_string(index);
        const auto key = rawField(writes[index], "key");
        const auto stem = rawField(writes.front(), "key");
        if (key != stem.substr(0, stem.size() - 1) + number)
            return false;
    }
    return true;
}

/// "net.qorvath.panotra  volume0 to volume11: 50% 25% …", or each level with its key.
Words describeWrites(std::span<const Json> writes)
{
    const auto domain = shortValue(writes.front().at("domain")) + "  ";
    if (writes.size() == 1 || !areNumberedInARow(writes)) {
        std::vector<std::string> items;
        for (const auto& write : writes)
            items.push_back(fillTemplate("{key} {value%}", write));
        return { domain, std::move(items) };
    }
    auto text = domain + shortValue(writes.front().at("key")) + " to " + shortValue(writes.back().at("key")) + ':';
    for (const auto& write : writes)
        text += ' ' + percent(write.at("value"));
    return { std::move(text) };
}

} // namespace

bool continuesRun(const std::vector<Json>& run, const Json& next)
{
    constexpr std::array<std::string_view, 3> toldTogether { "hook", "observe", "listener" };
    const auto kind = kindOf(next);
    const auto before = kindOf(run.back());
    if (run.back().at("t") != next.at("t"))
        return false;
    // A save is a fresh look at the domain and then its levels, all at once.
    if (kind == "write")
        return (before == "write" || before == "synchronize") && run.back().at("domain") == next.at("domain");
    return kind == before && std::ranges::find(toldTogether, kind) != toldTogether.end();
}

TraceLine describeRun(const std::vector<Json>& run)
{
    auto kind = kindOf(run.back());
    Words words;
    if (kind == "write" && run.size() > 1)
        words = describeWrites(std::span(run).subspan(kindOf(run.front()) == "synchronize" ? 1 : 0));
    else if (kind == "hook" && run.size() > 1)
        words = describeHooks(run);
    else if (run.size() > 1)
        words = describeNames(run);
    else
        words.text = describeOne(run.back());
    return { timeOf(run.front()), std::move(kind), std::move(words.text), std::move(words.items) };
}

} // namespace panotra::sim
