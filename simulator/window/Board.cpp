/// The parts one after the other; the phone with its body, the buttons, and the list of keys.
#include "simulator/window/Board.h"

#include "simulator/window/Controls.h"
#include "simulator/window/Palette.h"
#include "simulator/window/PhoneLooks.h"

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

void addSideButtons(Sheet& sheet, const Subject& subject)
{
    constexpr double reach = 8; ///< around it, where a finger still counts as on it
    const PhonePlace& place = subject.layout.phone;
    for (const SideButton& button : sideButtons) {
        const std::size_t index = indexOf(button.key);
        const bool isPressed = isOn(allControls()[index], subject.phone);
        const Area area = areaOf(button, place, isPressed);
        const Spot spot { place.onSheet(area.inset(-reach, -2)), Purpose::Control, index };
        const bool isHovered = subject.emphasisOf(spot, false) == Emphasis::Hovered;
        addSideButton(sheet, place, area,
            isPressed       ? SideButtonLooks::Pressed
                : isHovered ? SideButtonLooks::Hovered
                            : SideButtonLooks::Plain);
        sheet.spots.push_back(spot);
    }
}

/// A button of the window itself.
void addWindowButton(Sheet& sheet, const Subject& subject, const Area& area, WindowAct act)
{
    const bool isRecording = subject.session.isRecording();
    const char* label = "Picture";
    bool isOn = false;
    switch (act) {
    case WindowAct::Help:
        label = "All keys";
        isOn = subject.attention.overlay == Overlaid::Help;
        break;
    case WindowAct::Menu:
        label = "Menu";
        isOn = subject.attention.overlay == Overlaid::Menu;
        break;
    case WindowAct::Recording:
        label = isRecording ? "End" : "Record";
        isOn = isRecording;
        break;
    default:
        break;
    }
    const Spot spot { area, Purpose::Act, static_cast<std::size_t>(act) };
    addButton(sheet, area, keyOf(act).cap, label, "", subject.emphasisOf(spot, isOn));
    sheet.spots.push_back(spot);
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

bool Subject::isPressed(const Spot& spot) const
{
    return attention.pressed && attention.pressed->isSameAs(spot);
}

void addPhone(Sheet& sheet, const Subject& subject)
{
    constexpr double fingerTip = 40;
    const PhonePlace& place = subject.layout.phone;
    addSideButtons(sheet, subject);
    addBody(sheet, place);
    if (const auto area = homeButtonOf(place)) {
        const Spot home { *area, Purpose::HomeButton };
        addHomeButton(sheet, place, subject.isPressed(home)); // it gives under the finger
        sheet.spots.push_back(home);
    }
    if (!subject.phone.isScreenOn()) {
        sheet.add(Box { place.screen(), palette::black });
        return;
    }
    sheet.add(ScreenPicture { place.screen(), place.orientation() });
    addRims(sheet, place);
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
    for (const auto& [left, right] :
        { std::pair { WindowAct::Help, WindowAct::Menu }, std::pair { WindowAct::Recording, WindowAct::Picture } }) {
        Area row = area.takeTop(buttonHeight);
        addWindowButton(sheet, subject, row.takeLeft((row.width - gap) / 2), left);
        row.takeLeft(gap);
        addWindowButton(sheet, subject, row, right);
        area.takeTop(gap);
    }
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
    addInspection(sheet, subject);
    if (subject.layout.controls)
        addControls(sheet, subject, *subject.layout.controls);
    if (subject.layout.panel)
        addPanel(sheet, subject, *subject.layout.panel);
    if (subject.layout.folded)
        addFolded(sheet, subject, *subject.layout.folded);
    if (subject.layout.player)
        addPlayer(sheet, subject, *subject.layout.player);
    addNotices(sheet, subject);
    if (subject.attention.overlay == Overlaid::Help)
        addHelp(sheet, subject);
    if (subject.attention.overlay == Overlaid::Menu)
        addMenu(sheet, subject);
    addFocus(sheet, subject);
    addTooltip(sheet, subject);
    return sheet;
}

} // namespace panotra::sim
