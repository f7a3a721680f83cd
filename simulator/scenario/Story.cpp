/// The events of a moment against what is known of the phone: only what changed is told.
#include "simulator/scenario/Story.h"

#include "simulator/scenario/Forms.h"
#include "simulator/scenario/StoryWords.h"
#include "simulator/scenario/TextFormat.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace panotra::sim {

namespace {

/// The level of every known category while nobody has changed it.
constexpr double levelAtStart = 0.5;

std::string counted(std::size_t count, const std::string& one, const std::string& many)
{
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

/// Whether it only repeats what a program has set in answer to another announcement.
bool isEcho(const Moment& moment, const Moment::Announcement& announcement)
{
    const auto set = moment.set.find(announcement.category);
    if (set == moment.set.end() || announcement.reason != changeReason::explicitChange
        || set->second != announcement.level)
        return false;
    return std::ranges::any_of(moment.announced, [&announcement](const Moment::Announcement& each) {
        return each.category == announcement.category && each.reason != announcement.reason;
    });
}

/// The kinds of event that a change of level comes of.
std::vector<std::string_view> eventsOfChange(std::string_view first, bool isSet, bool isSaved)
{
    std::vector<std::string_view> events { first };
    if (isSet)
        events.emplace_back("setVolume");
    if (isSaved)
        events.emplace_back("write");
    return events;
}

Phrase seconds(double duration)
{
    return { shortNumber(duration) + " s", Ink::Measure };
}

} // namespace

Story::Story()
    : m_route(route::speaker)
{
    for (const char* const each : audioCategories)
        m_levels[each] = levelAtStart;
}

void Story::learn(const Command& command)
{
    if (command.form == nullptr)
        return;
    const auto name = command.form->syntax.command();
    if (name == "route")
        m_route = command.arguments.optionalText(0);
    else if (name == "system")
        m_levels[command.arguments.text(0)] = static_cast<double>(command.arguments.level(1));
    else if (name == "orientation")
        m_orientation = command.arguments.integer(0);
    else if (name == "press" || name == "hold")
        m_heldButtons.insert(command.arguments.text(0));
    else if (name == "release" || name == "let")
        m_heldButtons.erase(command.arguments.text(0));
}

std::vector<Clause> Story::tell(const std::vector<Json>& events)
{
    const Moment moment = momentOf(events);
    m_clauses.clear();
    m_toldSlots.clear();
    for (const Json* const event : moment.others)
        say(sentenceOf(*event), { event->at("event").get_ref<const std::string&>() });
    tellLoading(moment);
    tellLevels(moment);
    tellMixer(moment);
    tellRemembered(moment);
    tellSliders(moment);
    return std::move(m_clauses);
}

void Story::say(std::vector<Phrase> words, std::vector<std::string_view> events)
{
    m_clauses.push_back({ std::move(words), std::move(events) });
}

void Story::tellLoading(const Moment& moment)
{
    if (moment.hooks != 0)
        say({ { counted(moment.hooks, "method", "methods") + " hooked" } }, { "hook" });
    if (moment.observed != 0)
        say({ { counted(moment.observed, "notification", "notifications") + " observed" } }, { "register", "observe" });
    if (moment.gestures != 0)
        say({ { counted(moment.gestures, "gesture", "gestures") + " offered" } }, { "listener" });
    if (moment.hasReadSettings)
        say({ { "settings read" } }, { "synchronize" });
}

std::optional<double> Story::levelOf(const std::string& category) const
{
    const auto found = m_levels.find(category);
    return found == m_levels.end() ? std::nullopt : std::optional(found->second);
}

void Story::tellAnnouncement(const Moment& moment, const Moment::Announcement& announcement)
{
    const auto& [category, reason, announced] = announcement;
    if (category.empty() || !announced) {
        say({ { "a change is announced" + (category.empty() ? "" : " of " + shortValue(category)) + ", without "
                + (category.empty() ? "a category" : "a level") } },
            { "announced" });
        return;
    }
    const VolumeSlot* const slot = findVolumeSlot(category, m_route.value_or(""));
    const auto name = slot != nullptr ? nameOfSlot(*slot) : shortValue(category);
    // What the mixer holds is what a person knows as the level before; else it is the system's.
    std::optional<double> before = levelOf(category);
    if (slot != nullptr) {
        m_toldSlots.insert(slot->number);
        if (m_remembered[slot->number] && reason == changeReason::explicitChange)
            before = m_remembered[slot->number];
    }
    const auto set = moment.set.find(category);
    const bool isPutBack = set != moment.set.end() && set->second != *announced;
    m_levels[category] = isPutBack ? set->second : *announced;
    if (reason == changeReason::explicitChange) {
        say({ { name + ' ' }, changePhrase(before, *announced) },
            eventsOfChange(
                "announced", set != moment.set.end(), slot != nullptr && moment.saved.contains(slot->number)));
        return;
    }
    say({ { "now " + name + " at " }, levelPhrase(*announced) }, { "announced" });
    if (isPutBack)
        say({ { "put back to " }, levelPhrase(set->second) }, { "setVolume" });
}

void Story::tellLevels(const Moment& moment)
{
    for (const auto& announcement : moment.announced) {
        if (!isEcho(moment, announcement))
            tellAnnouncement(moment, announcement);
    }
    for (const auto& [category, level] : moment.set) {
        const bool isTold = std::ranges::any_of(moment.announced,
            [&category](const Moment::Announcement& each) { return each.category == category && each.level; });
        if (isTold)
            continue;
        const VolumeSlot* const slot = findVolumeSlot(category, m_route.value_or(""));
        const bool isSaved = slot != nullptr && moment.saved.contains(slot->number);
        // What a finger does to a slider is told of the slider.
        if (!isSaved || moment.saved.at(slot->number) != level)
            say({ { shortValue(category) + " set to " }, levelPhrase(level) }, { "setVolume" });
        m_levels[category] = level;
    }
    for (const auto& [number, level] : moment.saved) {
        const auto before = m_remembered[number];
        if (before && *before != level && m_toldSlots.insert(number).second)
            say({ { nameOfSlot(volumeSlot(number)) + ' ' }, changePhrase(before, level) },
                eventsOfChange("write", moment.set.contains(volumeSlot(number).category), false));
    }
}

void Story::tellMixer(const Moment& moment)
{
    const bool appears = moment.isWindowShown && (!m_isShown || m_isLeaving);
    if (appears && moment.fadeIn)
        say({ { "mixer fades in over " }, seconds(*moment.fadeIn) }, { "windowShown", "animate" });
    else if (appears)
        say({ { m_isLeaving ? "mixer comes back" : "mixer appears" } }, { "windowShown" });
    if (moment.isWindowShown) {
        m_isShown = true;
        m_isLeaving = false;
    }
    if (moment.turn && m_isShown && m_orientation != m_shownOrientation)
        say({ { "mixer turns over " }, seconds(*moment.turn) }, { "animate" });
    if (moment.turn || moment.isWindowShown)
        m_shownOrientation = m_orientation;
    if (moment.isSecondHalfOfFadeIn && m_isLeaving) {
        say({ { "mixer comes back: its fade-in goes on" } }, { "animate" });
        m_isLeaving = false;
    }
    if (moment.dismissal)
        say({ { appears ? "stays " : "stays another " }, seconds(*moment.dismissal) }, { "schedule" });
    else if (moment.isDismissalTakenBack && m_isShown)
        say({ { "stays until it is dismissed" } }, { "cancel" });
    if (moment.fadeOut) {
        say({ { "mixer fades out over " }, seconds(*moment.fadeOut) }, { "perform", "animate" });
        m_isLeaving = true;
    }
    // One that came back while it faded is left alone.
    if (moment.isTornDown && m_isLeaving) {
        say({ { "mixer is gone" } }, { "perform" });
        m_isShown = false;
        m_isLeaving = false;
        m_swollen.clear();
    }
}

void Story::tellRemembered(const Moment& moment)
{
    std::size_t changed = 0, firsts = 0;
    for (const auto& [number, level] : moment.saved) {
        auto& remembered = m_remembered[number];
        changed += remembered && *remembered != level ? 1 : 0;
        firsts += remembered ? 0 : 1;
        remembered = level;
    }
    if (firsts == volumeSlotCount)
        say({ { "all twelve levels remembered" } }, { "write" });
    else if (changed + firsts != 0)
        say({ { "remembered" } }, { "write" });
}

std::string Story::sliderWords(const std::string& field) const
{
    const bool isTold = std::ranges::any_of(
        m_toldSlots, [&field](SlotNumber slot) { return nameOfView(field) == nameOfSlot(volumeSlot(slot)); });
    return isTold && m_toldSlots.size() == 1 ? "its slider" : "slider " + nameOfView(field);
}

void Story::tellSliders(const Moment& moment)
{
    for (const auto& slider : moment.swelling) {
        if (m_swollen.insert(slider).second)
            say({ { sliderWords(slider) + " swells" } }, { "animate" });
    }
    for (const auto& slider : moment.shrinking) {
        if (!m_heldButtons.empty())
            continue; // it stays as large as it is
        m_swollen.erase(slider);
        say({ { sliderWords(slider) + " shrinks back" } }, { "perform", "animate" });
    }
}

} // namespace panotra::sim
