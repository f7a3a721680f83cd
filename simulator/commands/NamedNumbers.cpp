/// Names made of the tables of facts.
#include "simulator/commands/NamedNumbers.h"

#include "facts/InterfaceOrientations.h"
#include "facts/VolumeSlots.h"
#include "simulator/scenario/NearestName.h"
#include "simulator/scenario/Numbers.h"
#include "simulator/systems/Systems.h"
#include "simulator/text/Printable.h"
#include "simulator/text/SmallLetters.h"

#include <algorithm>

namespace panotra::sim {

namespace {

/// "0, 1 or 2" is too long for many: the names in their order, with commas.
std::string listed(const NamedNumbers& names)
{
    std::string text;
    for (const auto& each : names)
        text += (text.empty() ? "" : ", ") + each.name;
    return text;
}

} // namespace

NamedNumbers valuesOf(const MixerSetting& setting)
{
    NamedNumbers names;
    for (std::size_t value = 0; value < setting.choices.size(); ++value)
        names.push_back({ inSmallLetters(setting.choices[value]), static_cast<std::int64_t>(value) });
    return names;
}

NamedNumbers orientationNames()
{
    NamedNumbers names;
    for (const auto& each : interfaceOrientations)
        names.push_back({ inSmallLetters(each.name), each.number });
    return names;
}

NamedNumbers systemNames()
{
    NamedNumbers names;
    for (int system = systems::oldest; system <= systems::newest; ++system)
        names.push_back({ "ios" + std::to_string(system), system });
    return names;
}

NamedNumbers slotNames()
{
    NamedNumbers names;
    for (SlotNumber number = 0; number < volumeSlotCount; ++number) {
        const VolumeSlot& slot = volumeSlot(number);
        names.push_back({ (slot.group == Group::PhoneCall ? "call-" : "") + inSmallLetters(slot.name), number });
    }
    return names;
}

std::string bothSpellings(const NamedNumbers& names)
{
    std::string text;
    for (const auto& [name, number] : names)
        text += (text.empty() ? "" : ", ") + std::to_string(number) + ' ' + name;
    return text;
}

std::string becomeNumber(std::string& text, const NamedNumbers& names)
{
    const auto word = inSmallLetters(text);
    const auto number = parseInteger<std::int64_t>(text);
    const auto found = std::ranges::find_if(
        names, [&](const NamedNumber& each) { return each.name == word || (number && each.number == *number); });
    if (found != names.end()) {
        text = std::to_string(found->number);
        return {};
    }
    const std::vector<std::string_view> all = [&names] {
        std::vector<std::string_view> views;
        for (const auto& each : names)
            views.emplace_back(each.name);
        return views;
    }();
    return "found " + inQuotes(text) + ", expected one of " + listed(names) + ", or its number" + didYouMean(text, all);
}

std::string becomeNumberOfPair(std::string& text, const NamedNumbers& names)
{
    const auto equals = text.find('=');
    if (equals == text.npos)
        return {}; // whoever reads the pair says so
    auto name = text.substr(0, equals);
    auto mistake = becomeNumber(name, names);
    if (mistake.empty())
        text.replace(0, equals, name);
    return mistake;
}

} // namespace panotra::sim
