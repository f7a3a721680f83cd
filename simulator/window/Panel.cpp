/// The panel beside the phone: settings, the system's levels, the remembered ones, the end of the trace.
#include "facts/AudioNames.h"
#include "facts/MixerSettings.h"
#include "facts/PublicNames.h"
#include "facts/VolumeSlots.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/Services.h"
#include "simulator/window/Board.h"
#include "simulator/window/Palette.h"
#include "simulator/window/SettingValues.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::sim {

using render::TextAlignment;
using Purpose = Spot::Purpose;

namespace {

constexpr double cardGap = 12;
constexpr double cardRim = 40; ///< what a card has around its rows, heading included
constexpr double settingHeight = 29;
constexpr double meterHeight = 18;

/// The remembered levels stand in two columns.
constexpr std::size_t metersInAColumn = (volumeSlotCount + 1) / 2;

/// As its slider is called; the sliders of a call share their names with those of media.
std::string labelOf(const VolumeSlot& slot)
{
    return std::string(slot.group == Group::PhoneCall ? "Call " : "") + slot.name;
}

bool isActive(const VolumeSlot& slot, const SoundService& sound)
{
    return findVolumeSlot(sound.categoryInUse(), sound.activeRoute().value_or(std::string())) == &slot;
}

/// How high a card with that many meters below each other is.
constexpr double cardOfMeters(std::size_t count)
{
    return cardRim + static_cast<double>(count) * meterHeight;
}

void addSetting(Sheet& sheet, const Subject& subject, std::size_t index, Area row)
{
    constexpr double labelWidth = 156;
    constexpr double valueWidth = 48;
    constexpr double choiceGap = 4;
    const MixerSetting& setting = mixerSettings[index];
    const double value = valueOf(subject.session, setting);
    switch (setting.kind) {
    case SettingKind::Choice: {
        addText(sheet, row.takeLeft(setting.choices.size() > 2 ? 60 : labelWidth), setting.label, palette::text);
        const double count = static_cast<double>(setting.choices.size());
        const double width = (row.width - (count - 1) * choiceGap) / count;
        for (std::size_t choice = 0; choice < setting.choices.size(); ++choice) {
            const Spot spot { row.takeLeft(width).inset(0, 2), Purpose::Choice, index, choice };
            row.takeLeft(choiceGap);
            const bool isChosen = value == static_cast<double>(choice);
            addChoice(sheet, spot.area, setting.choices[choice], subject.emphasisOf(spot, isChosen));
            sheet.spots.push_back(spot);
        }
        break;
    }
    case SettingKind::Switch: {
        const Spot spot { row, Purpose::Switch, index };
        addText(sheet, row, setting.label, palette::text);
        addSwitch(sheet, row, value != 0, subject.emphasisOf(spot, false));
        sheet.spots.push_back(spot);
        break;
    }
    case SettingKind::Range: {
        addText(sheet, row.takeLeft(labelWidth), setting.label, palette::text);
        const Area number = row.takeRight(valueWidth);
        const Spot spot { row, Purpose::Range, index };
        const Attention& attention = subject.attention;
        const bool isDragged = attention.draggedValue && attention.hovered && attention.hovered->isSameAs(spot);
        const double shown = isDragged ? *attention.draggedValue : value;
        addSlider(sheet, row, fractionOf(setting, shown), subject.emphasisOf(spot, false));
        addText(sheet, number, textOfValue(setting, shown), palette::dim, plainText, TextAlignment::Right);
        sheet.spots.push_back(spot);
        break;
    }
    }
}

void addSystemLevels(Sheet& sheet, const SoundService& sound, Area inside, const Area& card)
{
    constexpr double labelWidth = 96;
    const std::string pair = sound.categoryInUse() + "  \u00b7  " + sound.activeRoute().value_or("no route");
    addText(sheet, { card.x + 120, card.y + 8, card.width - 134, 24 }, pair, palette::accent, smallText + 0.5,
        TextAlignment::Right, render::TextWeight::Medium);
    for (const auto& [category, level] : sound.allLevels()) {
        if (inside.height < meterHeight)
            return;
        addMeter(sheet, inside.takeTop(meterHeight), labelWidth, category, level,
            category == sound.categoryInUse() ? Emphasis::On : Emphasis::None);
    }
}

void addRememberedLevels(Sheet& sheet, const Subject& subject, Area inside)
{
    constexpr double labelWidth = 90;
    constexpr double columnGap = 20;
    const SoundService& sound = *subject.session.device().sound;
    Area column = inside.takeLeft((inside.width - columnGap) / 2);
    inside.takeLeft(columnGap);
    for (SlotNumber number = 0; number < volumeSlotCount; ++number) {
        if (number == metersInAColumn)
            column = inside;
        const VolumeSlot& slot = volumeSlot(number);
        const Json* const stored = subject.session.setting(ownDomain, slot.preferenceKey);
        addMeter(sheet, column.takeTop(meterHeight), labelWidth, labelOf(slot),
            stored != nullptr ? std::optional(numberOf(*stored)) : std::nullopt,
            isActive(slot, sound) ? Emphasis::On : Emphasis::None);
    }
}

/// What a line says behind the kind of its event; as much of it is shown as there is room for.
std::string wordsOf(const TraceLine& line)
{
    std::string words = line.text;
    for (const std::string& item : line.items)
        words += (&item == &line.items.front() ? "" : ", ") + item;
    return line.times > 1 ? words + "  (" + std::to_string(line.times) + " times)" : words;
}

/// A line of the trace in its columns: when, what, with what. A command begins at the first.
void addTraceLine(Sheet& sheet, Area row, const TraceLine& line)
{
    constexpr double size = 11;
    constexpr double timeWidth = 44;
    constexpr double whatWidth = 92;
    if (line.time.empty()) {
        addText(sheet, row, line.what, palette::accent, size);
        return;
    }
    Area time = row.takeLeft(timeWidth);
    time.width -= 8;
    addText(sheet, time, line.time, palette::dim, size, TextAlignment::Right);
    addText(sheet, row.takeLeft(whatWidth), line.what, palette::text, size);
    addText(sheet, row, wordsOf(line), palette::dim, size);
}

void addTrace(Sheet& sheet, const Session& session, Area inside)
{
    constexpr double lineHeight = 16;
    const auto& lines = session.traceLines();
    const auto room = static_cast<std::size_t>(std::max(inside.height / lineHeight, 0.0));
    for (std::size_t i = lines.size() - std::min(room, lines.size()); i < lines.size(); ++i)
        addTraceLine(sheet, inside.takeTop(lineHeight), lines[i]);
}

} // namespace

void addPanel(Sheet& sheet, const Subject& subject, Area area)
{
    Area inside
        = addCard(sheet, area.takeTop(cardRim + settingHeight * static_cast<double>(mixerSettings.size())), "Settings");
    for (std::size_t index = 0; index < mixerSettings.size(); ++index)
        addSetting(sheet, subject, index, inside.takeTop(settingHeight));
    area.takeTop(cardGap);

    const SoundService& sound = *subject.session.device().sound;
    const Area system = area.takeTop(cardOfMeters(audioCategories.size()));
    addSystemLevels(sheet, sound, addCard(sheet, system, "System levels"), system);
    area.takeTop(cardGap);

    addRememberedLevels(
        sheet, subject, addCard(sheet, area.takeTop(cardOfMeters(metersInAColumn)), "Remembered levels"));
    area.takeTop(cardGap);

    addTrace(sheet, subject.session, addCard(sheet, area, "Trace"));
}

} // namespace panotra::sim
