/// Differences between settings, told in the scenario language.
#include "simulator/window/SettingLines.h"

#include "facts/MixerSettings.h"
#include "simulator/preferences/SettingText.h"
#include "simulator/preferences/Settings.h"
#include "simulator/scenario/Grammar.h"
#include "simulator/scenario/Lexer.h"
#include "simulator/text/Printable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

namespace panotra::sim {

namespace {

const Json none = Json::object();

const Json& member(const Json& object, const std::string& name)
{
    const auto found = object.find(name);
    return found == object.end() ? none : *found;
}

std::set<std::string> namesIn(const Json& one, const Json& other)
{
    std::set<std::string> names;
    for (const Json* const object : { &one, &other }) {
        for (const auto& entry : object->items())
            names.insert(entry.key());
    }
    return names;
}

bool differ(const Json& object, const Json& other, const std::string& key)
{
    const auto before = object.find(key);
    const auto after = other.find(key);
    if (before == object.end() || after == other.end())
        return (before == object.end()) != (after == other.end());
    return !preferences::isIdentical(*before, *after);
}

/// A string may hold a line end, an integer may be larger than the language's.
std::string unlessImpossible(const std::string& line)
{
    const Scenario scenario = parseScenario(line);
    if (scenario.mistakes.empty() && scenario.commands.size() == 1)
        return line;
    return "# beyond the scenario language: " + printable(line);
}

} // namespace

std::string lineOfSetting(const std::string& domain, const std::string& key, const Json& value)
{
    const std::string text = preferences::textOf(value);
    return unlessImpossible("pref " + asWord(domain) + ' ' + asWord(key) + ' ' + std::string(preferences::typeOf(value))
        + ' ' + (value.is_string() ? asQuotedWord(text) : text));
}

std::vector<std::string> linesOfChanges(const Json& before, const Json& after)
{
    std::vector<std::string> lines;
    for (const std::string& domain : namesIn(before, after)) {
        const Json& old = member(before, domain);
        const Json& now = member(after, domain);
        // New keys in the order of the file, which may be a person's.
        for (const auto& [key, value] : now.items()) {
            if (differ(old, now, key))
                lines.push_back(lineOfSetting(domain, key, value));
        }
        for (const auto& entry : old.items()) {
            if (!now.contains(entry.key()))
                lines.push_back(unlessImpossible("unpref " + asWord(domain) + ' ' + asWord(entry.key())));
        }
    }
    return lines;
}

std::vector<std::string> changedDomains(const Json& before, const Json& after)
{
    std::vector<std::string> domains;
    for (const std::string& domain : namesIn(before, after)) {
        const Json& old = member(before, domain);
        const Json& now = member(after, domain);
        const auto keys = namesIn(old, now);
        if (std::ranges::any_of(keys, [&](const std::string& key) { return differ(old, now, key); }))
            domains.push_back(domain);
    }
    return domains;
}

std::optional<std::string> announcementOf(const std::string& domain)
{
    const auto setting = std::ranges::find(mixerSettings, domain, &MixerSetting::domain);
    return setting == mixerSettings.end() ? std::nullopt : std::optional<std::string>(setting->changeNotification());
}

} // namespace panotra::sim
