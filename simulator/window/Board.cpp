/// The parts one after the other; the phone with its body, the buttons, and the list of keys.
#include "simulator/window/Board.h"

#include "simulator/window/Controls.h"
#include "simulator/window/Palette.h"

#include <string>
#include <string_view>

namespace panotra::sim {

using render::TextAlignment;
using render::TextWeight;
using Purpose = Spot::Purpose;

namespace {

std::size_t indexOf(std::string_view key)
{
    return static_cast<std::size_t>(findControl(key) - allControls().data());
}

bool isOn(const Control& control, const Phone& phone)
{
    return control.isOn != nullptr && control.isOn(phone);
}

/// A button of the phone itself, in points of the upright screen.
struct SideButton {
    const char* key; ///< of its control
    double y;
    double height;
    bool isAtRight;
};

constexpr std::array sideButtons {
    SideButton { "M", 62, 26, false },
    SideButton { "Up", 116, 46, false },
    SideButton { "Down", 174, 46, false },
    SideButton { "L", 116, 60, true },
};

void addSideButtons(Sheet& sheet, const Subject& subject)
{
    constexpr double standsOut = 4;
    constexpr double underBody = 4;
    constexpr double reach = 8; ///< around it, where a finger still counts as on it
    const PhonePlace& place = subject.layout.phone;
    for (const SideButton& button : sideButtons) {
        const std::size_t index = indexOf(button.key);
        const bool isPressed = isOn(allControls()[index], subject.phone);
        const double out = isPressed ? standsOut / 2 : standsOut;
        const double edge = button.isAtRight ? place.screenSize().width + bodyBeside : -bodyBeside;
        const Area area { button.isAtRight ? edge - underBody : edge - out, button.y, out + underBody, button.height };
        const Spot spot { place.onSheet(area.inset(-reach, -2)), Purpose::Control, index };
        const bool isHovered = subject.emphasisOf(spot, false) == Emphasis::Hovered;
        const Rgba& fill = isPressed ? palette::accent : isHovered ? palette::dim : palette::bodyEdge;
        sheet.add(Box { place.onSheet(area), fill, 2 * place.unitsPerPoint() });
        sheet.spots.push_back(spot);
    }
}

} // namespace

Emphasis Subject::emphasisOf(const Spot& spot, bool isOn) const
{
    if (isOn)
        return Emphasis::On;
    return attention.hovered && attention.hovered->isSameAs(spot) ? Emphasis::Hovered : Emphasis::None;
}

void addPhone(Sheet& sheet, const Subject& subject)
{
    constexpr double bodyRadius = 38; // points
    constexpr double homeButton = 32;
    constexpr double slitWidth = 52;
    constexpr double slitHeight = 5;
    const PhonePlace& place = subject.layout.phone;
    const double points = place.unitsPerPoint();
    const ScreenSize& screen = place.screenSize();
    addSideButtons(sheet, subject);
    sheet.add(Box { place.body(), palette::body, bodyRadius * points, palette::bodyEdge });
    sheet.add(
        Box { place.onSheet({ (screen.width - slitWidth) / 2, -(bodyAbove + slitHeight) / 2, slitWidth, slitHeight }),
            palette::hovered, slitHeight / 2 * points });
    sheet.add(Box { place.onSheet({ (screen.width - homeButton) / 2, screen.height + (bodyAbove - homeButton) / 2,
                        homeButton, homeButton }),
        palette::body, homeButton / 2 * points, palette::bodyEdge });
    if (!subject.phone.isScreenOn()) {
        sheet.add(Box { place.screen(), palette::black });
        return;
    }
    sheet.add(ScreenPicture { place.screen(), place.orientation() });
    sheet.spots.push_back({ place.screen(), Purpose::Screen });
}

void addControls(Sheet& sheet, const Subject& subject, Area area)
{
    constexpr double headingHeight = 24;
    constexpr double buttonHeight = 28;
    constexpr double gap = 4;
    constexpr double groupGap = 8;
    const char* group = "";
    const auto controls = allControls();
    for (std::size_t index = 0; index < controls.size(); ++index) {
        const Control& control = controls[index];
        if (group != std::string_view(control.group)) {
            if (index > 0)
                area.takeTop(groupGap);
            group = control.group;
            addText(sheet, area.takeTop(headingHeight), group, palette::dim, smallText, TextAlignment::Left,
                TextWeight::Medium);
        }
        const Spot spot { area.takeTop(buttonHeight), Purpose::Control, index };
        area.takeTop(gap);
        addButton(sheet, spot.area, control.cap, control.label,
            control.state != nullptr ? control.state(subject.phone) : std::string(),
            subject.emphasisOf(spot, isOn(control, subject.phone)));
        sheet.spots.push_back(spot);
    }
    area.takeTop(groupGap);
    const Spot help { area.takeTop(buttonHeight), Purpose::Help };
    addButton(sheet, help.area, "?", "All keys", "", subject.emphasisOf(help, subject.attention.wantsHelp));
    sheet.spots.push_back(help);
}

void addHelp(Sheet& sheet, const Subject& subject)
{
    constexpr double rowHeight = 26;
    constexpr double headingHeight = 30;
    constexpr double groupHeight = 24;
    constexpr double width = 560;
    constexpr double columnGap = 32;
    const auto controls = allControls();
    const Area& all = subject.layout.sheet;
    sheet.add(Box { all, palette::scrim });
    // Everything is behind the list now; a touch anywhere puts it away.
    sheet.spots.push_back({ all, Purpose::Help });

    // Two columns: what the phone has, and what happens to it.
    struct Column {
        std::size_t begin, end;
        Area area;
    };
    const std::size_t split = indexOf("C");
    constexpr double height = 16 + headingHeight + 3 * groupHeight + 12 * rowHeight + 2 * 8 + 44;
    Area card { (all.width - width) / 2, (all.height - height) / 2, width, height };
    sheet.add(Box { card, palette::card, 14, palette::edge });
    Area inside = card.inset(28, 16);
    addText(sheet, inside.takeTop(headingHeight), "Keys", palette::bright, 17, TextAlignment::Left, TextWeight::Medium);
    Area left = inside;
    const Area first = left.takeLeft((inside.width - columnGap) / 2);
    left.takeLeft(columnGap);
    for (Column column : { Column { 0, split, first }, Column { split, controls.size(), left } }) {
        const char* group = "";
        for (std::size_t index = column.begin; index < column.end; ++index) {
            const Control& control = controls[index];
            if (group != std::string_view(control.group)) {
                if (index > column.begin)
                    column.area.takeTop(8);
                group = control.group;
                addText(sheet, column.area.takeTop(groupHeight), group, palette::dim, smallText, TextAlignment::Left,
                    TextWeight::Medium);
            }
            Area row = column.area.takeTop(rowHeight);
            addKeyCap(sheet, row.takeLeft(22).inset(0, 2), control.cap, Emphasis::None);
            row.takeLeft(12);
            addText(sheet, row, control.label, palette::text);
        }
        if (column.end == controls.size()) {
            column.area.takeTop(8);
            addText(sheet, column.area.takeTop(groupHeight), "Window", palette::dim, smallText, TextAlignment::Left,
                TextWeight::Medium);
            for (const auto& [cap, label] : { std::pair { "?", "This list" }, { "Q", "Quit" } }) {
                Area row = column.area.takeTop(rowHeight);
                addKeyCap(sheet, row.takeLeft(22).inset(0, 2), cap, Emphasis::None);
                row.takeLeft(12);
                addText(sheet, row, label, palette::text);
            }
        }
    }
    addText(sheet, { card.x + 28, card.bottom() - 46, card.width - 56, 30 },
        "The mouse is the finger: drag the sliders, tap beside the mixer.", palette::dim, smallText + 0.5);
}

Sheet makeSheet(const Subject& subject)
{
    Sheet sheet;
    sheet.add(Box { subject.layout.sheet, palette::surround });
    addPhone(sheet, subject);
    if (subject.layout.controls)
        addControls(sheet, subject, *subject.layout.controls);
    if (subject.layout.panel)
        addPanel(sheet, subject, *subject.layout.panel);
    if (subject.attention.wantsHelp)
        addHelp(sheet, subject);
    return sheet;
}

} // namespace panotra::sim
