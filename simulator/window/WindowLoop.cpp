/// Events in, time on, picture out.
#include "simulator/window/WindowLoop.h"

#include "simulator/device/Services.h"
#include "simulator/window/Hints.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <thread>
#include <utility>

namespace panotra::sim {

using namespace std::chrono_literals;

namespace {

constexpr auto frameInterval = Desk::frameInterval;
constexpr auto progressInterval = 100ms;
constexpr auto noticeTime = 4s;

/// The digit that stands at that place, also where it needs the shift key; null if none does.
const char* digitAt(SDL_Scancode place)
{
    return place >= SDL_SCANCODE_1 && place <= SDL_SCANCODE_0 ? SDL_GetScancodeName(place) : nullptr;
}

} // namespace

std::uint32_t WindowLoop::preferencesEvent()
{
    static const std::uint32_t event = SDL_RegisterEvents(1);
    return event;
}

std::uint32_t WindowLoop::scenarioEvent()
{
    static const std::uint32_t event = SDL_RegisterEvents(1);
    return event;
}

std::uint32_t WindowLoop::turnEvent()
{
    static const std::uint32_t event = SDL_RegisterEvents(1);
    return event;
}

WindowLoop::WindowLoop(
    Display& display, Session& session, Phone& phone, Desk& desk, render::Renderer& renderer, Statistics statistics)
    : m_display(display)
    , m_session(session)
    , m_phone(phone)
    , m_desk(desk)
    , m_picture(renderer)
    , m_person(session, phone,
          { .perform = [this](WindowAct act) { perform(act); },
              .say = [this](const std::string& words) { m_desk.say(words); },
              .hang = [this](const std::string& wallpaper) { m_desk.hang(wallpaper); },
              .copy =
                  [](const std::string& text) {
                      SDL_SetClipboardText(text.c_str());
                  } })
    , m_level(*session.device().sound)
    , m_clock(now())
    , m_lastFrame(m_clock - frameInterval)
    , m_statistics(statistics)
{
    // What a scenario begins with is there at the first look, unless somebody wants to see each of its lines.
    if (!m_desk.pace().isPaused())
        m_session.advance(0us);
}

bool WindowLoop::run(std::string& failure)
{
    bool isWell = true;
    while (!isOver()) {
        isWell = draw(failure) != Display::Shown::Failed;
        if (!isWell)
            break;
        waitForSomething();
        ++m_turns;
        letTimePass();
        for (SDL_Event event; SDL_PollEvent(&event) != 0;)
            handle(event);
        m_person.settle();
        makeSounds();
        followPointer();
        m_isOpen = (!m_onTurn || m_onTurn()) && m_isOpen;
    }
    m_session.finish();
    return isWell;
}

/// For the next frame while something moves, else for an event or the next thing that is due. In no case for less
/// than a frame: of a hundred moves of the mouse between two frames only the last is to be seen.
void WindowLoop::waitForSomething()
{
    const bool isMoving = (m_session.isMoving() || m_phone.isShaking()) && !m_desk.pace().isPaused();
    if (!isMoving && !m_movedLastFrame) {
        constexpr int forEver = -1;
        const auto due = untilDue();
        const auto milliseconds = due ? std::chrono::ceil<std::chrono::milliseconds>(*due).count() : forEver;
        if (milliseconds != 0)
            SDL_WaitEventTimeout(nullptr, static_cast<int>(milliseconds));
    }
    std::this_thread::sleep_until(m_lastFrame + frameInterval);
}

/// Not below zero; none if nothing will happen by itself.
std::optional<std::chrono::microseconds> WindowLoop::untilDue()
{
    const Moment moment = now();
    std::optional<Moment> due;
    const auto next = m_session.untilDue();
    if (const auto time = m_desk.pace().realTimeFor(std::min(next, m_person.untilRepeat().value_or(next)))) {
        due = m_clock + *time;
        // Whoever watches a scenario sees how far it is.
        if (m_session.isPlaying())
            due = std::min(*due, moment + progressInterval);
    }
    if (m_desk.notice() && !m_desk.notice()->stays)
        due = std::min(due.value_or(m_noticeEnd), m_noticeEnd);
    if (m_tooltipAt)
        due = std::min(due.value_or(*m_tooltipAt), *m_tooltipAt);
    if (const auto closes = m_speaker.closesAt())
        due = std::min(due.value_or(*closes), *closes);
    return due ? std::optional(std::max(*due - moment, 0us)) : std::nullopt;
}

void WindowLoop::letTimePass()
{
    const Moment moment = now();
    if (m_desk.notice() && !m_desk.notice()->stays && moment >= m_noticeEnd)
        m_desk.beSilent();
    // Even without any time the lines would be played that are due.
    if (!m_desk.pace().isPaused())
        m_person.passTime(m_desk.pace().pass(moment - m_clock));
    m_clock = moment;
}

/// A hand over what can be pressed; after a while its name and its key.
void WindowLoop::followPointer()
{
    constexpr auto rest = 600ms;
    const auto& hovered = m_person.attention().hovered;
    m_display.setPointing(hovered && hovered->purpose != Spot::Purpose::Screen);
    const bool isSame = hovered && m_restedAt ? hovered->isSameAs(*m_restedAt) : !hovered && !m_restedAt;
    if (!isSame || m_person.attention().pressed) {
        m_restedAt = hovered;
        m_person.setTooltip(false);
        m_tooltipAt.reset();
        if (hovered && !m_person.attention().pressed && !hintOf(*hovered).empty())
            m_tooltipAt = now() + rest;
    } else if (m_tooltipAt && now() >= *m_tooltipAt) {
        m_person.setTooltip(true);
        m_tooltipAt.reset();
    }
}

void WindowLoop::makeSounds()
{
    m_speaker.closeIfDue(now());
    const bool hasClicked = std::exchange(m_pressesHeard, m_person.presses()) != m_pressesHeard;
    const bool hasStepped = m_level.hasStepped();
    if (!m_desk.isHeard())
        return;
    if (hasStepped)
        m_speaker.play(tone(m_level.level()), now());
    else if (hasClicked)
        m_speaker.play(click(), now());
}

void WindowLoop::handle(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_QUIT:
        m_isOpen = false;
        break;
    case SDL_WINDOWEVENT:
        handleWindow(event.window);
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        handleKey(event.key);
        break;
    case SDL_TEXTINPUT:
        if (const WindowKey* const key = findWindowKey(event.text.text); key != nullptr && isTyped(*key))
            perform(key->act);
        break;
    case SDL_MOUSEBUTTONDOWN:
        if (event.button.button == SDL_BUTTON_LEFT) {
            SDL_CaptureMouse(SDL_TRUE);
            m_person.pointerDown(onSheet(event.button.x, event.button.y));
        }
        break;
    case SDL_MOUSEBUTTONUP:
        if (event.button.button == SDL_BUTTON_LEFT) {
            SDL_CaptureMouse(SDL_FALSE);
            m_person.pointerUp(onSheet(event.button.x, event.button.y));
        }
        break;
    case SDL_MOUSEWHEEL:
        m_person.wheel(onSheet(event.wheel.mouseX, event.wheel.mouseY), 3 * event.wheel.y);
        break;
    case SDL_MOUSEMOTION:
        m_person.pointerMove(onSheet(event.motion.x, event.motion.y));
        break;
    default:
        if (event.type == preferencesEvent())
            m_session.lookForForeignChanges();
        else if (event.type == scenarioEvent() && m_scenarioSaved)
            m_scenarioSaved();
        break;
    }
}

void WindowLoop::handleWindow(const SDL_WindowEvent& event)
{
    if (event.event == SDL_WINDOWEVENT_EXPOSED || event.event == SDL_WINDOWEVENT_SIZE_CHANGED)
        m_isExposed = true;
    else if (event.event == SDL_WINDOWEVENT_LEAVE)
        m_person.pointerLeft();
}

void WindowLoop::handleKey(const SDL_KeyboardEvent& event)
{
    // What is held comes up whatever is held with it; a key with a modifier, though, is somebody else's shortcut.
    if (event.type == SDL_KEYUP) {
        m_person.steerEnds(SDL_GetKeyName(event.keysym.sym));
        m_person.keyUp(SDL_GetKeyName(event.keysym.sym));
        if (const char* const digit = digitAt(event.keysym.scancode))
            m_person.keyUp(digit);
    } else if ((event.keysym.mod & (KMOD_ALT | KMOD_GUI)) != 0) {
        return;
    } else if ((event.keysym.mod & KMOD_CTRL) != 0) {
        handleShortcut(event.keysym);
    } else {
        handleKeyDown(event);
    }
}

void WindowLoop::handleShortcut(const SDL_Keysym& key)
{
    if (key.sym == SDLK_q || key.sym == SDLK_w)
        perform(WindowAct::Quit);
    else if (key.sym == SDLK_c)
        perform(WindowAct::CopyTrace);
}

void WindowLoop::handleKeyDown(const SDL_KeyboardEvent& event)
{
    const SDL_Keysym& key = event.keysym;
    // Steering goes on as long as a key is down; everything else means the first time alone.
    if (m_person.steer(SDL_GetKeyName(key.sym), (key.mod & KMOD_SHIFT) != 0) || event.repeat != 0)
        return;
    const char* const digit = digitAt(key.scancode);
    const WindowKey* const own = findWindowKey(SDL_GetKeyName(key.sym));
    if (own != nullptr && !isTyped(*own))
        perform(own->act);
    else if (key.sym == SDLK_ESCAPE)
        m_person.putOverlayAway();
    else if (!m_person.keyDown(SDL_GetKeyName(key.sym)) && digit != nullptr)
        m_person.keyDown(digit);
}

void WindowLoop::perform(WindowAct act)
{
    m_person.settle();
    if (act == WindowAct::Quit)
        m_isOpen = false;
    m_person.perform(act);
    m_desk.perform(act);
}

Point WindowLoop::onSheet(int x, int y) const
{
    const double pixels = m_display.pixelsPerPointerUnit();
    return m_layout.onSheet((x + 0.5) * pixels, (y + 0.5) * pixels);
}

Display::Shown WindowLoop::draw(std::string& failure)
{
    const auto begin = Clock::now();
    m_lastFrame = std::chrono::floor<std::chrono::microseconds>(begin);
    const Device& device = m_session.device();
    const PixelSize size = m_display.size();
    m_layout = layOut(size, { device.screen->width, device.screen->height, device.screen->scale },
        device.screen->orientation, m_session.playback() != nullptr ? Footer::Player : Footer::None, m_display.scale());
    m_layout.phone = m_layout.phone.movedBy(m_phone.shakeOffset() * m_layout.phone.unitsPerPoint(), m_layout.unit);
    if (m_desk.notice() && m_desk.notice()->number != m_noticeShown) {
        m_noticeShown = m_desk.notice()->number;
        m_noticeEnd = m_lastFrame + noticeTime;
    }
    m_sheet = makeSheet({ m_session, m_phone, m_layout, m_person.attention(), &m_desk });
    m_person.see(m_sheet, m_layout);
    WindowPicture::Frame frame = m_picture.draw(m_session.device(), m_sheet, m_layout, size);
    m_movedLastFrame = !frame.changed.empty();
    if (m_isExposed)
        frame.changed = { frame.pixels.extent() };
    if (frame.changed.empty())
        return Display::Shown::Whole;
    const Display::Shown shown = m_display.show(frame.pixels, frame.changed, failure);
    m_isExposed = shown == Display::Shown::OtherSize;
    if (m_statistics == Statistics::Kept)
        m_frameTimes.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
    return shown;
}

std::string WindowLoop::statistics() const
{
    std::vector<double> times = m_frameTimes;
    std::ranges::sort(times);
    const auto quantile = [&times](double part) {
        return times.empty() ? 0 : times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))];
    };
    std::array<char, 160> text {};
    std::snprintf(text.data(), text.size(),
        "%zu turns, %zu frames, %.1f ms a frame (median), %.1f ms (99th percentile)", m_turns, times.size(),
        quantile(0.5), quantile(0.99));
    return text.data();
}

} // namespace panotra::sim
