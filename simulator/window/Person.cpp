/// From spots and keys to lines.
#include "simulator/window/Person.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/Services.h"
#include "simulator/systems/Systems.h"
#include "simulator/window/Menu.h"
#include "simulator/window/Numerals.h"
#include "simulator/window/SettingValues.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace panotra::sim {

using Purpose = Spot::Purpose;

namespace {

/// Hundredths of a point are finer than any finger, and short to read. Finite, however large the phone is.
double inHundredths(double points)
{
    constexpr double fineness = 100;
    constexpr double farthest = std::numeric_limits<double>::max() / fineness;
    return std::round(std::fmax(-farthest, std::fmin(points, farthest)) * fineness) / fineness
        + 0.0; // no negative zero
}

} // namespace

std::optional<int> nextSystem(const std::optional<int>& system)
{
    if (!system)
        return systems::oldest;
    return *system == systems::newest ? std::nullopt : std::optional(*system + 1);
}

void Person::see(const Sheet& sheet, const Layout& layout)
{
    m_sheet = &sheet;
    m_layout = &layout;
}

bool Person::keyDown(std::string_view key)
{
    const Control* const control = findControl(key);
    if (control == nullptr)
        return false;
    press(static_cast<std::size_t>(control - allControls().data()), Holder::Key);
    return true;
}

void Person::keyUp(std::string_view key)
{
    if (const Control* const control = findControl(key))
        release(static_cast<std::size_t>(control - allControls().data()), Holder::Key);
}

bool Person::isHeld(std::size_t control) const
{
    return m_held.contains({ control, Holder::Key }) || m_held.contains({ control, Holder::Pointer })
        || m_held.contains({ control, Holder::Focus });
}

void Person::press(std::size_t control, Holder holder)
{
    settle();
    // A button is down once, whoever else presses it; anything else is done again.
    const bool isButton = allControls()[control].release != nullptr;
    const bool isDown = isButton && isHeld(control);
    if (!m_held.emplace(control, holder).second || isDown)
        return;
    if (const MixerSetting* const needed = allControls()[control].needed)
        sayIfOff(*needed);
    ++m_presses;
    m_session.playAll(allControls()[control].press(m_phone));
    if (isButton)
        m_repeat = Repeat { control, repeatDelay };
}

void Person::release(std::size_t control, Holder holder)
{
    settle();
    if (m_held.erase({ control, holder }) == 0 || isHeld(control))
        return;
    if (m_repeat && m_repeat->control == control)
        m_repeat.reset();
    if (const auto release = allControls()[control].release)
        m_session.playAll(release(m_phone));
}

void Person::pointerDown(Point point)
{
    settle();
    pointerMove(point);
    m_attention.focused.reset();
    if (!m_attention.hovered)
        return;
    const Spot& spot = *m_attention.hovered;
    m_attention.pressed = spot;
    if (spot.purpose == Purpose::Screen) {
        touch("down", point);
        if (isBesideMixer(point))
            sayIfOff(mixerSetting("dismissOnTouch"));
    } else if (spot.purpose == Purpose::Range) {
        dragRange(spot, point);
    } else {
        begin(spot, Holder::Pointer);
    }
}

/// What a press does wherever in the spot it is.
void Person::begin(const Spot& spot, Holder holder)
{
    if (spot.purpose != Purpose::MenuItem || static_cast<MenuRow>(spot.index) != MenuRow::Forget)
        m_attention.isForgettingAsked = false;
    switch (spot.purpose) {
    case Purpose::HomeButton:
        // It wakes a phone whose screen is off; to the mixer it means nothing.
        if (!m_phone.isScreenOn())
            m_session.playAll(m_phone.switchScreen());
        break;
    case Purpose::Control:
        press(spot.index, holder);
        break;
    case Purpose::Choice:
        setValue(m_session, mixerSettings[spot.index], static_cast<double>(spot.choice));
        break;
    case Purpose::Switch: {
        const MixerSetting& setting = mixerSettings[spot.index];
        setValue(m_session, setting, valueOf(m_session, setting) == 0 ? 1 : 0);
        break;
    }
    case Purpose::Help:
    case Purpose::Menu:
        putOverlayAway();
        break;
    case Purpose::MenuItem:
        chooseInMenu(spot);
        break;
    case Purpose::Tab:
        showTab(static_cast<Tab>(spot.index));
        break;
    case Purpose::Trace:
        useTrace(spot);
        break;
    case Purpose::View:
        if (const auto views = viewsOf(m_session.device()); spot.index < views.size())
            m_attention.mark = { views[spot.index].view, true };
        break;
    case Purpose::Act:
        if (m_means.perform)
            m_means.perform(static_cast<WindowAct>(spot.index));
        break;
    case Purpose::Screen:
    case Purpose::Range:
        break;
    }
}

void Person::pointerMove(Point point)
{
    if (m_attention.pressed && m_attention.pressed->purpose == Purpose::Screen) {
        m_move = point;
    } else if (m_attention.pressed && m_attention.pressed->purpose == Purpose::Range) {
        dragRange(*m_attention.pressed, point);
    } else if (!m_attention.pressed) {
        const Spot* const spot = m_sheet == nullptr ? nullptr : m_sheet->spotAt(point);
        m_attention.hovered = spot == nullptr ? std::nullopt : std::optional(*spot);
    }
    inspectAt(point);
}

void Person::pointerUp(Point point)
{
    if (!m_attention.pressed)
        return;
    const Spot spot = *m_attention.pressed;
    pointerMove(point);
    settle();
    m_attention.pressed.reset();
    if (spot.purpose == Purpose::Screen)
        m_session.play("touch up");
    else if (spot.purpose == Purpose::Control)
        release(spot.index, Holder::Pointer);
    else if (m_attention.draggedValue)
        setValue(m_session, mixerSettings[spot.index], *m_attention.draggedValue);
    m_attention.draggedValue.reset();
    pointerMove(point);
}

void Person::pointerLeft()
{
    if (!m_attention.pressed)
        m_attention.hovered.reset();
}

/// A range is stored when it is let go, as the settings page does.
void Person::dragRange(const Spot& range, Point point)
{
    const MixerSetting setting = offered(mixerSettings[range.index], m_layout->phone.screenSize());
    m_attention.draggedValue = valueAtFraction(setting, (point.x - range.area.x) / range.area.width);
}

void Person::settle()
{
    if (const auto move = std::exchange(m_move, std::nullopt))
        touch("move", *move);
}

/// Where a touch would send it away.
bool Person::isBesideMixer(Point point) const
{
    const View* const mixer = viewNamed(m_session.device(), "_containerView");
    const auto inside = mixer == nullptr ? std::nullopt : mixer->fromScreen(m_layout->phone.onScreen(point));
    return inside
        && (inside->x < 0 || inside->y < 0 || inside->x > mixer->bounds.width || inside->y > mixer->bounds.height);
}

void Person::sayIfOff(const MixerSetting& needed) const
{
    if (m_means.say && valueOf(m_session, needed) == 0)
        m_means.say(std::string(needed.label) + " is off");
}

void Person::passTime(std::chrono::microseconds time)
{
    // After a long sleep of the computer nobody wants all that was missed.
    constexpr int mostAtOnce = 20;
    for (int i = 0; i < mostAtOnce && m_repeat && m_repeat->rest <= time; ++i) {
        m_session.advance(m_repeat->rest);
        time -= std::exchange(m_repeat->rest, repeatInterval);
        ++m_presses;
        m_session.playAll(allControls()[m_repeat->control].press(m_phone));
    }
    m_session.advance(time);
    if (m_repeat)
        m_repeat->rest = std::max(m_repeat->rest - time, std::chrono::microseconds { 0 });
}

std::optional<std::chrono::microseconds> Person::untilRepeat() const
{
    return m_repeat ? std::optional(m_repeat->rest) : std::nullopt;
}

void Person::touch(const char* what, Point point)
{
    const Point onScreen = m_layout->phone.onScreen(point);
    m_session.play(std::string("touch ") + what + ' ' + numeral(inHundredths(onScreen.x)) + ' '
        + numeral(inHundredths(onScreen.y)));
}

} // namespace panotra::sim
