/// What an option calls its value says what it takes.
#include "simulator/commands/CompletionWords.h"

#include "facts/MixerSettings.h"
#include "facts/PublicNames.h"
#include "facts/VolumeSlots.h"
#include "simulator/Reference.h"
#include "simulator/commands/NamedNumbers.h"

#include <algorithm>
#include <string_view>

namespace panotra::sim {

namespace {

std::vector<std::string> namesIn(const NamedNumbers& numbers)
{
    std::vector<std::string> names;
    for (const auto& each : numbers)
        names.push_back(each.name);
    return names;
}

std::vector<std::string> keysOfSettings()
{
    std::vector<std::string> keys;
    for (const MixerSetting& setting : mixerSettings)
        keys.emplace_back(setting.key);
    for (SlotNumber number = 0; number < volumeSlotCount; ++number)
        keys.emplace_back(volumeSlot(number).preferenceKey);
    return keys;
}

struct WordsOfValue {
    std::string_view value; ///< what the option calls it
    std::vector<std::string> (*words)();
};

const WordsOfValue wordsOfValues[] = {
    { "STYLE",
        [] {
            return namesIn(valuesOf(mixerSetting("activeStyle")));
        } },
    { "SKIN",
        [] {
            return namesIn(valuesOf(mixerSetting("mixerSkin")));
        } },
    { "ORIENTATION",
        [] {
            return namesIn(orientationNames());
        } },
    { "SYSTEM",
        [] {
            return namesIn(systemNames());
        } },
    { "SLOT",
        [] {
            return namesIn(slotNames());
        } },
    { "EVENT", namesOfEvents },
    { "FORMAT",
        [] {
            return std::vector<std::string> { "text", "json" };
        } },
    { "ACTION",
        [] {
            return std::vector<std::string> { "list", "get", "set", "unset" };
        } },
    { "DOMAIN",
        [] {
            return std::vector<std::string> { ownDomain, siblingDomain };
        } },
    { "KEY", keysOfSettings },
    { "TYPE",
        [] {
            return std::vector<std::string> { "int", "float", "bool", "string" };
        } },
};

/// "EVENT" of "EVENT,..." and "FILE" of "FILE.png": what stands before anything that is no capital.
std::string_view stemOf(std::string_view value)
{
    return value.substr(0, value.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
}

} // namespace

Completions completionsOf(const CLI::Option& option)
{
    const std::string name = option.get_positional() ? option.get_name() : option.get_type_name();
    const auto stem = stemOf(name);
    if (stem == "DIR")
        return { Completions::Kind::Folders };
    if (stem == "FILE" || stem == "OUT")
        return { Completions::Kind::Files };
    // A pair begins with its name.
    const auto known = std::ranges::find(wordsOfValues, stem, &WordsOfValue::value);
    if (known == std::end(wordsOfValues) || name.find('=') != name.npos)
        return {};
    return { Completions::Kind::Words, known->words() };
}

std::vector<const CLI::Option*> optionsShown(const CLI::App& command)
{
    return command.get_options(
        [](const CLI::Option* option) { return !option->get_positional() && !option->get_group().empty(); });
}

std::vector<const CLI::Option*> placesOf(const CLI::App& command)
{
    return command.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

std::vector<const CLI::App*> commandsShown(const CLI::App& app)
{
    return app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
}

bool takesValue(const CLI::Option& option)
{
    return option.get_items_expected_max() > 0;
}

std::vector<std::string> spellingsOf(const CLI::Option& option)
{
    std::vector<std::string> spellings;
    for (const auto& name : option.get_snames())
        spellings.push_back("-" + name);
    for (const auto& name : option.get_lnames())
        spellings.push_back("--" + name);
    return spellings;
}

} // namespace panotra::sim
