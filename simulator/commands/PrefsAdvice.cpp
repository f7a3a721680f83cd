/// The settings and the slots know what may be stored.
#include "simulator/commands/PrefsAdvice.h"

#include "facts/MixerSettings.h"
#include "facts/PublicNames.h"
#include "facts/VolumeSlots.h"
#include "simulator/preferences/SettingText.h"
#include "simulator/scenario/NearestName.h"
#include "simulator/scenario/TextFormat.h"
#include "simulator/text/Printable.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace panotra::preferences {

namespace {

constexpr std::array ourDomains { std::string_view(ownDomain), std::string_view(siblingDomain) };

std::vector<std::string_view> keysOf(std::string_view domain)
{
    std::vector<std::string_view> keys;
    for (const MixerSetting& setting : mixerSettings) {
        if (domain == setting.domain)
            keys.emplace_back(setting.key);
    }
    if (domain == ownDomain) {
        for (const VolumeSlot& slot : volumeSlots)
            keys.emplace_back(slot.preferenceKey);
    }
    return keys;
}

bool hasKey(std::string_view domain, std::string_view key)
{
    const auto keys = keysOf(domain);
    return std::ranges::find(keys, key) != keys.end();
}

std::optional<std::string> adviceOnKey(const std::string& domain, const std::string& key)
{
    for (const auto other : ourDomains) {
        if (hasKey(other, key))
            return key + " is a key of " + std::string(other) + ", not of " + domain;
    }
    const auto nearest = sim::didYouMean(key, keysOf(domain));
    // The sibling has keys of its own, which the mixer does not know.
    if (domain != ownDomain && nearest.empty())
        return std::nullopt;
    return domain + " has no key " + inQuotes(key) + nearest;
}

/// What may be chosen, and whether the value is among it.
struct Choice {
    std::string words;
    double least, most;
};

Choice choiceOf(const MixerSetting& setting)
{
    switch (setting.kind) {
    case SettingKind::Switch:
        return { "yes or no", 0, 1 };
    case SettingKind::Range:
        return { sim::shortNumber(setting.least) + " to " + sim::shortNumber(setting.most), setting.least,
            setting.most };
    case SettingKind::Choice:
        break;
    }
    std::string words;
    for (std::size_t value = 0; value < setting.choices.size(); ++value)
        words += (value == 0 ? "" : ", ") + std::to_string(value) + ' ' + setting.choices[value];
    return { words, 0, static_cast<double>(setting.choices.size()) - 1 };
}

std::optional<Choice> choiceOf(const std::string& key)
{
    const auto setting = std::ranges::find(mixerSettings, key, &MixerSetting::key);
    if (setting != mixerSettings.end())
        return choiceOf(*setting);
    return hasKey(ownDomain, key) ? std::optional<Choice>({ "0 to 1", 0, 1 }) : std::nullopt;
}

bool isAmong(const Choice& choice, const Json& value)
{
    if (value.is_boolean())
        return choice.least <= 0 && 1 <= choice.most;
    return value.is_number() && choice.least <= value.get<double>() && value.get<double>() <= choice.most;
}

} // namespace

std::optional<std::string> adviceOnSetting(const std::string& domain, const std::string& key, const Json& value)
{
    if (std::ranges::find(ourDomains, domain) == ourDomains.end()) {
        const auto nearest = sim::didYouMean(domain, ourDomains);
        return nearest.empty() ? std::nullopt : std::optional("nobody reads " + domain + nearest);
    }
    if (!hasKey(domain, key))
        return adviceOnKey(domain, key);
    const auto choice = choiceOf(key);
    if (!choice || isAmong(*choice, value))
        return std::nullopt;
    return key + ": found " + (value.is_string() ? inQuotes(textOf(value)) : textOf(value)) + ", expected "
        + choice->words;
}

} // namespace panotra::preferences
