/// The menu's rows, and how they look.
#include "simulator/window/Menu.h"

#include "simulator/systems/Systems.h"
#include "simulator/window/Board.h"
#include "simulator/window/Palette.h"
#include "simulator/window/PhoneModels.h"

#include <algorithm>
#include <array>

namespace panotra::sim {

using render::TextAlignment;
using Purpose = Spot::Purpose;

namespace {

struct RowLooks {
    MenuRow row;
    const char* label;
    const char* hint;
};

constexpr std::array menuRows {
    RowLooks { MenuRow::Device, "Device", "Another device starts anew." },
    RowLooks { MenuRow::System, "iOS", "So does another system." },
    RowLooks { MenuRow::Wallpaper, "Wallpaper", "" },
    RowLooks { MenuRow::Sound, "Clicks and tones", "A step sounds as loud as the level that it leaves." },
    RowLooks { MenuRow::Forget, "Settings and levels", "The phone then is as from the shop." },
};

/// Which of a row's choices holds; none for a row that does something.
std::optional<std::size_t> chosenIn(MenuRow row, const Subject& subject)
{
    const auto placeIn = [](const auto& all, const auto& wanted) -> std::optional<std::size_t> {
        const auto found = std::ranges::find(all, wanted);
        return found == std::end(all) ? std::nullopt : std::optional(static_cast<std::size_t>(found - std::begin(all)));
    };
    switch (row) {
    case MenuRow::Device:
        if (const PhoneModel* const model = modelOf(subject.layout.phone.screenSize()))
            return static_cast<std::size_t>(model - phoneModels.data());
        return std::nullopt;
    case MenuRow::System:
        return placeIn(systemChoices(), subject.session.device().system);
    case MenuRow::Wallpaper:
        return subject.desk == nullptr ? std::nullopt
                                       : placeIn(choicesOf(row, subject.attention), subject.desk->wallpaperName());
    case MenuRow::Sound:
        return subject.desk != nullptr && subject.desk->isHeard() ? 1 : 0;
    case MenuRow::Forget:
        break;
    }
    return std::nullopt;
}

} // namespace

std::vector<std::optional<int>> systemChoices()
{
    std::vector<std::optional<int>> all { std::nullopt };
    for (int system = systems::oldest; system <= systems::newest; ++system)
        all.emplace_back(system);
    return all;
}

std::string wallpaperOfMenu(const std::string& name)
{
    return name == "Dusk" ? "dusk" : name == "Dawn" ? "dawn" : name;
}

std::string menuNameOf(const std::string& wallpaper)
{
    return wallpaper == "dusk" ? "Dusk" : wallpaper == "dawn" ? "Dawn" : wallpaper;
}

std::vector<std::string> choicesOf(MenuRow row, const Attention& attention)
{
    std::vector<std::string> names;
    switch (row) {
    case MenuRow::Device:
        for (const PhoneModel& model : phoneModels)
            names.emplace_back(model.name);
        break;
    case MenuRow::System:
        for (const auto& system : systemChoices())
            names.push_back(system ? std::to_string(*system) : "10\u201312");
        break;
    case MenuRow::Wallpaper:
        names = { "Dusk", "Dawn" };
        break;
    case MenuRow::Sound:
        names = { "Off", "On" };
        break;
    case MenuRow::Forget:
        names = { attention.isForgettingAsked ? "Click again: all of it goes" : "Forget everything" };
        break;
    }
    return names;
}

void addMenu(Sheet& sheet, const Subject& subject)
{
    constexpr double width = 600;
    constexpr double insideRim = 24;
    constexpr double headingHeight = 34;
    constexpr double choiceHeight = 30;
    constexpr double hintHeight = 20;
    constexpr double rowGap = 8;
    constexpr double labelWidth = 130;
    constexpr double gap = 4;
    const Area& all = subject.layout.sheet;
    sheet.add(Box { all, palette::scrim });
    // Everything is behind the menu now; a touch beside it puts it away.
    sheet.spots.push_back({ all, Purpose::Menu });
    const double height
        = headingHeight + static_cast<double>(menuRows.size()) * (choiceHeight + hintHeight + rowGap) + 2 * insideRim;
    const Area card { (all.width - width) / 2, (all.height - height) / 2, width, height };
    sheet.add(Box { card, palette::card, 14, palette::edge });
    Area inside = card.inset(insideRim, insideRim);
    addText(sheet, inside.takeTop(headingHeight), "Phone", palette::bright, 17, TextAlignment::Left,
        render::TextWeight::Medium);
    const bool canStartAnew = subject.session.canChangeSystem();
    for (const RowLooks& looks : menuRows) {
        const bool startsAnew = looks.row != MenuRow::Wallpaper && looks.row != MenuRow::Sound;
        const bool isOffered = canStartAnew || !startsAnew;
        Area row = inside.takeTop(choiceHeight);
        addText(sheet, row.takeLeft(labelWidth), looks.label, isOffered ? palette::text : palette::dim);
        const auto names = choicesOf(looks.row, subject.attention);
        const auto chosen = chosenIn(looks.row, subject);
        const double count = static_cast<double>(std::max(names.size(), std::size_t { 2 }));
        const double choiceWidth = (row.width - (count - 1) * gap) / count;
        for (std::size_t choice = 0; choice < names.size(); ++choice) {
            const Spot spot { row.takeLeft(choiceWidth).inset(0, 2), Purpose::MenuItem,
                static_cast<std::size_t>(looks.row), choice };
            row.takeLeft(gap);
            addChoice(sheet, spot.area, names[choice], subject.emphasisOf(spot, chosen == choice));
            if (isOffered)
                sheet.spots.push_back(spot);
        }
        Area hint = inside.takeTop(hintHeight);
        hint.takeLeft(labelWidth);
        addText(sheet, hint, isOffered ? looks.hint : "Not while the phone is recorded, traced or played on.",
            palette::dim, smallText);
        inside.takeTop(rowGap);
    }
}

} // namespace panotra::sim
