/// The parts one after the other; the phone with its body, the buttons, and the list of keys.
#include "simulator/window/Board.h"

#include "simulator/window/Controls.h"
#include "simulator/window/Palette.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

std::string nameOfSystem(const std::optional<int>& system)
{
    return system ? "iOS " + std::to_string(*system) : "iOS 10\u201312";
}

/// A line of the list of keys.
struct KeyRow {
    std::string_view group;
    const char* cap;
    const char* label;
};

constexpr double keyRowHeight = 25;
constexpr double keyGroupHeight = 24;
constexpr double keyGroupGap = 8;

/// Two columns: what the phone has, and what it plays; gestures, and the window's own keys.
std::pair<std::vector<KeyRow>, std::vector<KeyRow>> columnsOfHelp()
{
    std::pair<std::vector<KeyRow>, std::vector<KeyRow>> columns;
    const std::size_t split = indexOf("G");
    const auto controls = allControls();
    for (std::size_t index = 0; index < controls.size(); ++index) {
        const Control& control = controls[index];
        (index < split ? columns.first : columns.second).push_back({ control.group, control.cap, control.label });
    }
    for (const WindowKey& key : windowKeys())
        columns.second.push_back({ key.group, key.cap, key.label });
    return columns;
}

/// The space above a row for the heading of its group, if it is the first of one; `index` counts in the column.
double headingAbove(const std::vector<KeyRow>& rows, std::size_t index)
{
    if (index == 0)
        return keyGroupHeight;
    return rows[index].group == rows[index - 1].group ? 0 : keyGroupGap + keyGroupHeight;
}

double heightOf(const std::vector<KeyRow>& rows)
{
    double height = 0;
    for (std::size_t index = 0; index < rows.size(); ++index)
        height += headingAbove(rows, index) + keyRowHeight;
    return height;
}

void addHelpColumn(Sheet& sheet, const std::vector<KeyRow>& rows, Area area)
{
    constexpr double capWidth = 46;
    constexpr double capGap = 12;
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const Area heading = area.takeTop(headingAbove(rows, index));
        if (heading.height > 0)
            addText(sheet, { heading.x, heading.bottom() - keyGroupHeight, heading.width, keyGroupHeight },
                std::string(rows[index].group), palette::dim, smallText, TextAlignment::Left, TextWeight::Medium);
        Area row = area.takeTop(keyRowHeight);
        Area cap = row.takeLeft(capWidth).inset(0, 2);
        cap.width = widthOfCap(rows[index].cap, cap.height);
        addKeyCap(sheet, cap, rows[index].cap, Emphasis::None);
        row.takeLeft(capGap);
        addText(sheet, row, rows[index].label, palette::text);
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
    constexpr double fingerTip = 40;
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
    if (const auto& finger = subject.phone.finger(); finger && subject.session.isPlaying()) {
        const Area tip = place.onSheet({ finger->x - fingerTip / 2, finger->y - fingerTip / 2, fingerTip, fingerTip });
        sheet.add(Box { tip, palette::finger, tip.width / 2, palette::fingerEdge });
    }
    sheet.spots.push_back({ place.screen(), Purpose::Screen });
}

void addControls(Sheet& sheet, const Subject& subject, Area area)
{
    constexpr double headingHeight = 20;
    constexpr double buttonHeight = 27;
    constexpr double gap = 3;
    constexpr double groupGap = 7;
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
        if (subject.phone.isSoundChosenHere() || !control.choosesSound)
            sheet.spots.push_back(spot);
    }
    area.takeTop(groupGap);
    Area row = area.takeTop(buttonHeight);
    const Spot help { row.takeLeft((row.width - gap) / 2), Purpose::Help };
    addButton(sheet, help.area, "?", "All keys", "", subject.emphasisOf(help, subject.attention.wantsHelp));
    sheet.spots.push_back(help);
    row.takeLeft(gap);
    const Spot system { row, Purpose::System };
    addButton(
        sheet, system.area, "I", nameOfSystem(subject.session.device().system), "", subject.emphasisOf(system, false));
    if (subject.session.canChangeSystem())
        sheet.spots.push_back(system);
    area.takeTop(gap);
    row = area.takeTop(buttonHeight);
    const bool isRecording = subject.session.isRecording();
    const Spot record { row.takeLeft((row.width - gap) / 2), Purpose::Act,
        static_cast<std::size_t>(WindowAct::Recording) };
    addButton(sheet, record.area, keyOf(WindowAct::Recording).cap, isRecording ? "End" : "Record", "",
        subject.emphasisOf(record, isRecording));
    sheet.spots.push_back(record);
    row.takeLeft(gap);
    const Spot picture { row, Purpose::Act, static_cast<std::size_t>(WindowAct::Picture) };
    addButton(sheet, picture.area, keyOf(WindowAct::Picture).cap, "Picture", "", subject.emphasisOf(picture, false));
    sheet.spots.push_back(picture);
}

void addHelp(Sheet& sheet, const Subject& subject)
{
    constexpr double headingHeight = 30;
    constexpr double width = 560;
    constexpr double columnGap = 32;
    constexpr double paddingX = 28;
    constexpr double paddingY = 16;
    constexpr double hintHeight = 30;
    const Area& all = subject.layout.sheet;
    sheet.add(Box { all, palette::scrim });
    // Everything is behind the list now; a touch anywhere puts it away.
    sheet.spots.push_back({ all, Purpose::Help });

    const auto [left, right] = columnsOfHelp();
    const double rowsHeight = std::max(heightOf(left), heightOf(right));
    const double height = rowsHeight + headingHeight + hintHeight + 2 * paddingY;
    Area card { (all.width - width) / 2, (all.height - height) / 2, width, height };
    sheet.add(Box { card, palette::card, 14, palette::edge });
    Area inside = card.inset(paddingX, paddingY);
    addText(sheet, inside.takeTop(headingHeight), "Keys", palette::bright, 17, TextAlignment::Left, TextWeight::Medium);
    Area rows = inside.takeTop(rowsHeight);
    addHelpColumn(sheet, left, rows.takeLeft((inside.width - columnGap) / 2));
    rows.takeLeft(columnGap);
    addHelpColumn(sheet, right, rows);
    addText(sheet, inside, "The mouse is the finger: drag the sliders, tap beside the mixer.", palette::dim,
        smallText + 0.5);
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
    if (subject.layout.player)
        addPlayer(sheet, subject, *subject.layout.player);
    addNotices(sheet, subject);
    if (subject.attention.wantsHelp)
        addHelp(sheet, subject);
    return sheet;
}

} // namespace panotra::sim
