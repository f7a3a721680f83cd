/// The panel beside the phone: settings, the system's levels, the remembered ones, and what is below them; or all of it
/// in one column, below tabs.
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
#include <span>
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

/// The remembered levels stand in two columns where there is room.
constexpr std::size_t metersInAColumn = (volumeSlotCount + 1) / 2;
constexpr double twoColumns = 320;

struct TabName {
    Tab tab;
    const char* name;
};
/// Of the column of a narrow window.
constexpr std::array foldedTabs { TabName { Tab::Controls, "Phone" }, TabName { Tab::Settings, "Settings" },
    TabName { Tab::Levels, "Levels" }, TabName { Tab::Trace, "Trace" }, TabName { Tab::Inspector, "Inspect" } };
/// Of the panel, whose settings are always there.
constexpr std::array panelTabs { TabName { Tab::Levels, "Levels" }, TabName { Tab::Trace, "Trace" },
    TabName { Tab::Inspector, "Inspect" } };

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
    const MixerSetting setting = offered(mixerSettings[index], subject.layout.phone.screenSize());
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
    const bool isWide = inside.width > twoColumns;
    Area column = inside;
    if (isWide) {
        column = inside.takeLeft((inside.width - columnGap) / 2);
        inside.takeLeft(columnGap);
    }
    for (SlotNumber number = 0; number < volumeSlotCount; ++number) {
        if (isWide && number == metersInAColumn)
            column = inside;
        const VolumeSlot& slot = volumeSlot(number);
        const Json* const stored = subject.session.setting(ownDomain, slot.preferenceKey);
        addMeter(sheet, column.takeTop(meterHeight), labelWidth, labelOf(slot),
            stored != nullptr ? std::optional(numberOf(*stored)) : std::nullopt,
            isActive(slot, sound) ? Emphasis::On : Emphasis::None);
    }
}

void addTabs(Sheet& sheet, const Subject& subject, Area row, std::span<const TabName> tabs, Tab chosen)
{
    constexpr double gap = 4;
    const double count = static_cast<double>(tabs.size());
    const double width = (row.width - (count - 1) * gap) / count;
    for (const TabName& each : tabs) {
        const Spot spot { row.takeLeft(width), Purpose::Tab, static_cast<std::size_t>(each.tab) };
        row.takeLeft(gap);
        addChoice(sheet, spot.area, each.name, subject.emphasisOf(spot, each.tab == chosen));
        sheet.spots.push_back(spot);
    }
}

void addSettings(Sheet& sheet, const Subject& subject, Area& area)
{
    Area inside
        = addCard(sheet, area.takeTop(cardRim + settingHeight * static_cast<double>(mixerSettings.size())), "Settings");
    for (std::size_t index = 0; index < mixerSettings.size(); ++index)
        addSetting(sheet, subject, index, inside.takeTop(settingHeight));
    area.takeTop(cardGap);
}

void addLevels(Sheet& sheet, const Subject& subject, Area& area)
{
    const SoundService& sound = *subject.session.device().sound;
    const Area system = area.takeTop(cardOfMeters(audioCategories.size()));
    addSystemLevels(sheet, sound, addCard(sheet, system, "System levels"), system);
    area.takeTop(cardGap);
    const std::size_t rows = area.width - cardRim > twoColumns ? metersInAColumn : volumeSlotCount;
    addRememberedLevels(sheet, subject, addCard(sheet, area.takeTop(cardOfMeters(rows)), "Remembered levels"));
    area.takeTop(cardGap);
}

} // namespace

void addPanel(Sheet& sheet, const Subject& subject, Area area)
{
    constexpr double tabsHeight = 24;
    const Tab tab = subject.attention.tab;
    const bool hasLevels = tab != Tab::Trace && tab != Tab::Inspector;
    addSettings(sheet, subject, area);
    addTabs(sheet, subject, area.takeTop(tabsHeight), panelTabs, hasLevels ? Tab::Levels : tab);
    area.takeTop(cardGap / 2);
    if (hasLevels)
        addLevels(sheet, subject, area);
    if (tab == Tab::Inspector)
        addInspector(sheet, subject, area);
    else
        addTrace(sheet, subject, area);
}

void addFolded(Sheet& sheet, const Subject& subject, Area area)
{
    constexpr double tabsHeight = 28;
    addTabs(sheet, subject, area.takeTop(tabsHeight), foldedTabs, subject.attention.tab);
    area.takeTop(cardGap);
    switch (subject.attention.tab) {
    case Tab::Controls:
        addControls(sheet, subject, area);
        break;
    case Tab::Settings:
        addSettings(sheet, subject, area);
        break;
    case Tab::Levels:
        addLevels(sheet, subject, area);
        break;
    case Tab::Trace:
        addTrace(sheet, subject, area);
        break;
    case Tab::Inspector:
        addInspector(sheet, subject, area);
        break;
    }
}

} // namespace panotra::sim
