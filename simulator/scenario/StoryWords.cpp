/// A table of sentences.
#include "simulator/scenario/StoryWords.h"

#include "simulator/scenario/TextFormat.h"
#include "simulator/scenario/TextTemplate.h"
#include "simulator/text/Printable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace panotra::sim {

namespace {

struct Sentence {
    std::string_view event;
    std::string_view words; ///< see TextTemplate.h
};

constexpr std::array sentences {
    Sentence { "launched", "home screen launched" },
    Sentence { "activeVolume", "system asks for the active volume{named? and its name:}" },
    Sentence { "setVolume", "a level without a category is set" },
    Sentence { "indicator", "the system's own indicator shows[ for {delay} s]" },
    Sentence { "reoriented", "the system's indicator {flag?turns with the phone:stays as it is}" },
    Sentence { "statusBarFrame", "status bar at {frame}" },
    Sentence { "sound", "sound[ of type {type}]{type?: without a type} plays" },
    Sentence { "ringer", "ringer {muted?muted:unmuted}" },
    Sentence { "motion", "home screen feels motion of type {type}" },
    Sentence { "post", "{name} posted" },
    Sentence { "write", "{key} = {value} stored in {domain}" },
    Sentence { "schedule", "{selector}[ of {object}] due in {delay} s" },
    Sentence { "cancel", "{selector}[ of {object}] called off" },
    Sentence { "perform", "{selector}[ of {object}] called" },
    Sentence { "dispatch", "work put off for {delay} s" },
    Sentence { "dispatched", "work that was put off is done" },
    Sentence { "overlay", "other overlay {class} {value?hidden:told to go}" },
    Sentence { "handled", "gesture {listener} handled" },
    Sentence { "answer", "{listener} answers {question}: {value}" },
    Sentence { "hit", "finger on [{view}]{view?:nothing of the mixer}" },
    Sentence { "shot", "picture {file}" },
};

struct AssistantWords {
    std::string_view action, words;
};

constexpr std::array assistantWords {
    AssistantWords { "openSiri", "assistant opened" },
    AssistantWords { "hideWindow", "assistant's window hidden" },
    AssistantWords { "dismissSiri", "assistant dismissed" },
};

std::string percentWithDigits(double level, int digits)
{
    std::array<char, 400> text {}; // a float's greatest has 39 digits, a double's 309
    std::snprintf(text.data(), text.size(), "%.*f %%", digits, level * 100);
    return text.data();
}

/// Halves go up, as on the slider's own label.
double rounded(double level, int digits)
{
    const double factor = std::pow(10, digits);
    return std::isfinite(level) ? std::floor(level * 100 * factor + 0.5) / factor / 100 : level;
}

std::string levelText(double level, int digits)
{
    return percentWithDigits(rounded(level, digits), digits);
}

/// The fields with the names of sliders as people know them.
Json forPeople(const Json& event)
{
    Json fields = event;
    for (const char* name : { "view", "object" }) {
        if (const auto found = fields.find(name); found != fields.end() && found->is_string())
            *found = nameOfView(found->get_ref<const std::string&>());
    }
    return fields;
}

} // namespace

Phrase levelPhrase(double level)
{
    return { levelText(level, 0), Ink::Level };
}

Phrase changePhrase(std::optional<double> before, double after)
{
    constexpr int mostDigits = 3;
    if (!before || *before == after)
        return levelPhrase(after);
    for (int digits = 0; digits <= mostDigits; ++digits) {
        const auto from = levelText(*before, digits), to = levelText(after, digits);
        if (from != to)
            return { from + " → " + to, Ink::Level };
    }
    return levelPhrase(after);
}

std::string nameOfSlot(const VolumeSlot& slot)
{
    return slot.name + std::string(slot.group == Group::PhoneCall ? " (call)" : "");
}

std::string nameOfView(std::string_view field)
{
    for (const VolumeSlot& slot : volumeSlots) {
        if (field == "_volumeView" + std::to_string(slot.number))
            return nameOfSlot(slot);
    }
    return printable(field);
}

std::vector<Phrase> sentenceOf(const Json& event)
{
    const auto kind = event.value("event", std::string());
    if (kind == "assistant") {
        const auto known
            = std::ranges::find(assistantWords, event.value("action", std::string()), &AssistantWords::action);
        if (known != assistantWords.end())
            return { { std::string(known->words) } };
    }
    const auto known = std::ranges::find(sentences, kind, &Sentence::event);
    if (known != sentences.end()) {
        std::vector<Phrase> words { { fillTemplate(known->words, forPeople(event)) } };
        if (const auto level = event.find("level"); kind == "indicator" && level != event.end() && level->is_number()) {
            words.push_back({ ", " });
            words.push_back(levelPhrase(level->get<double>()));
        }
        return words;
    }
    std::string text = printable(kind);
    for (const auto& [name, value] : event.items()) {
        if (name != "t" && name != "event")
            text += ", " + printable(name) + ' ' + shortValue(value);
    }
    return { { std::move(text) } };
}

} // namespace panotra::sim
