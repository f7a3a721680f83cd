/// Lines for each thing that a person does.
#include "simulator/window/Phone.h"

#include "facts/AudioNames.h"
#include "facts/PublicNames.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/render/HomePicture.h"
#include "simulator/scenario/Forms.h"
#include "simulator/window/Numerals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

namespace panotra::sim {

namespace {

/// What programs may play, calls aside.
constexpr auto categories = [] {
    std::array<const char*, audioCategories.size() - 1> names {};
    std::ranges::copy_if(
        audioCategories, names.begin(), [](std::string_view name) { return name != category::phoneCall; });
    return names;
}();

constexpr double shakeSeconds = 0.5;

const char* nameOf(Button button)
{
    return button == Button::Up ? "up" : "down";
}

} // namespace

Lines Phone::press(Button button) const
{
    return { std::string("press ") + nameOf(button) };
}

Lines Phone::release(Button button) const
{
    return { std::string("release ") + nameOf(button) };
}

bool Phone::isHeld(Button button) const
{
    return button == Button::Up ? m_device.home->volumeUpIsDown : m_device.home->volumeDownIsDown;
}

Lines Phone::switchRinger()
{
    m_isRingerMuted = !m_isRingerMuted;
    return { m_isRingerMuted ? "ringer muted" : "ringer unmuted" };
}

Lines Phone::shake()
{
    m_shakenAt = m_device.runLoop->now();
    return { "shake" };
}

bool Phone::isShaking() const
{
    return m_shakenAt && m_device.runLoop->now() < *m_shakenAt + shakeSeconds;
}

double Phone::shakeOffset() const
{
    constexpr double width = 9; // points
    constexpr double swings = 5;
    if (!isShaking())
        return 0;
    const double part = (m_device.runLoop->now() - *m_shakenAt) / shakeSeconds;
    return width * (1 - part) * std::sin(2 * std::numbers::pi * swings * part);
}

Lines Phone::turn() const
{
    struct Step {
        std::int64_t from, to;
    };
    constexpr std::array steps { Step { 1, 3 }, Step { 3, 2 }, Step { 2, 4 }, Step { 4, 1 } };
    const auto step = std::ranges::find(steps, m_device.screen->orientation, &Step::from);
    const std::int64_t next = step == steps.end() ? 1 : step->to;
    const bool isLandscape = next == 3 || next == 4;
    const double width = isLandscape ? m_device.screen->height : m_device.screen->width;
    // The host gives its status bar a new frame, which is how the mixer learns of the turn.
    return { "orientation " + std::to_string(next),
        "statusbar-frame UIStatusBar 0 0 " + numeral(width) + ' ' + numeral(render::statusBarHeight) };
}

std::string Phone::orientation() const
{
    switch (m_device.screen->orientation) {
    case 2:
        return "upside down";
    case 3:
        return "left";
    case 4:
        return "right";
    default:
        return "upright";
    }
}

Lines Phone::switchScreen()
{
    m_isScreenOn = !m_isScreenOn;
    const std::string name = notification::screenChanged;
    return { "darwin " + name + (m_isScreenOn ? " 1" : " 0"), "notify " + name };
}

Lines Phone::useRoute(const std::string& route)
{
    if (!isSoundChosenHere())
        return {};
    Lines lines;
    if (route == route::speaker || route == route::receiver) {
        changeRoute(lines, route);
    } else if (std::erase(m_accessories, route) > 0) {
        if (isActive(route))
            changeRoute(lines, m_accessories.empty() ? ownRoute() : m_accessories.back());
    } else {
        m_accessories.push_back(route);
        changeRoute(lines, route);
    }
    return lines;
}

std::string Phone::ownRoute() const
{
    return isInCall() ? route::receiver : route::speaker;
}

/// The new route, and how the audio service tells of it.
void Phone::changeRoute(Lines& lines, const std::string& route) const
{
    lines.push_back("route " + route);
    lines.push_back(announcement(category(), changeReason::route));
}

std::string Phone::announcement(const std::string& category, const char* reason) const
{
    // A level that was stored by hand may be more than a float holds, and the language has no word for infinity.
    const float level = m_device.sound->level(category);
    return "announce " + category + ' ' + reason + ' ' + (std::isfinite(level) ? numeral(level) : "nil");
}

Lines Phone::nextCategory() const
{
    if (!isSoundChosenHere())
        return {};
    const auto current = std::ranges::find(categories, category());
    const bool isLast = current == categories.end() || current + 1 == categories.end();
    const std::string next = isLast ? categories.front() : *(current + 1);
    return { "category " + next, announcement(next, changeReason::category) };
}

Lines Phone::beginOrEndCall()
{
    if (!isSoundChosenHere())
        return {};
    const bool begins = !isInCall();
    const std::string next = begins ? category::phoneCall : *m_categoryBeforeCall;
    if (begins)
        m_categoryBeforeCall = category();
    else
        m_categoryBeforeCall.reset();
    Lines lines { "category " + next };
    // Without an accessory a call goes to the ear, and what comes after it to the room.
    if (isActive(begins ? route::speaker : route::receiver))
        lines.push_back("route " + ownRoute());
    lines.push_back(announcement(next, changeReason::category));
    return lines;
}

void Phone::follow(const Command& command)
{
    const Arguments& words = command.arguments;
    const std::string_view name = command.form->syntax.command();
    if (name == "ringer") {
        m_isRingerMuted = words.is(0, "muted");
    } else if (name == "route") {
        const auto route = words.optionalText(0);
        if (route && *route != route::speaker && *route != route::receiver && !isPluggedIn(*route))
            m_accessories.push_back(*route);
    } else if (name == "category") {
        if (words.text(0) != category::phoneCall)
            m_categoryBeforeCall.reset();
        else if (!isInCall())
            m_categoryBeforeCall = category();
    } else if (name == "darwin" && words.text(0) == notification::screenChanged) {
        m_isScreenOn = words.state(1) != 0;
    } else if (name == "shake") {
        m_shakenAt = m_device.runLoop->now();
    } else if (name == "touch") {
        if (command.form->syntax.text() == "touch up")
            m_finger.reset();
        else
            m_finger = Point { words.number(0), words.number(1) };
    }
}

bool Phone::isInCall() const
{
    return isSoundChosenHere() ? m_categoryBeforeCall.has_value() : category() == category::phoneCall;
}

bool Phone::isActive(const std::string& route) const
{
    return m_device.sound->activeRoute() == route;
}

bool Phone::isPluggedIn(const std::string& accessory) const
{
    return std::ranges::find(m_accessories, accessory) != m_accessories.end();
}

std::string Phone::category() const
{
    return m_device.sound->categoryInUse();
}

} // namespace panotra::sim
