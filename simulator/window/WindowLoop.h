/// The loop that follows real time: sixty turns a second while something moves, one a
/// minute, for the clock of the status bar, while nothing does.
#pragma once

#include "simulator/window/Desk.h"
#include "simulator/window/Display.h"
#include "simulator/window/Person.h"
#include "simulator/window/Speaker.h"
#include "simulator/window/WindowPicture.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

/// Whether the times of frames are kept, of which there are sixty a second.
enum class Statistics { None, Kept };

class WindowLoop {
public:
    /// Pushed, from whatever thread, when other processes may have changed settings.
    static std::uint32_t preferencesEvent();
    /// Likewise, when the file of the scenario that is played was saved.
    static std::uint32_t scenarioEvent();
    /// Likewise, when there is something to do in `onTurn`.
    static std::uint32_t turnEvent();

    WindowLoop(Display& display, Session& session, Phone& phone, Desk& desk, render::Renderer& renderer,
        Statistics statistics);

    void onScenarioSaved(std::function<void()> saved) { m_scenarioSaved = std::move(saved); }
    /// Called in every turn of the loop, which ends when it answers false.
    void onTurn(std::function<bool()> turn) { m_onTurn = std::move(turn); }

    /// Until the window is closed or another phone is asked for. Answers false and the reason in
    /// `failure` if the display fails before.
    bool run(std::string& failure);
    /// Set where another phone is asked for.
    const std::optional<NewPhone>& wantsPhone() const { return m_person.attention().wantsPhone; }
    /// "turns 12, frames 8, …" where they are kept.
    std::string statistics() const;

private:
    using Clock = std::chrono::steady_clock;
    using Moment = std::chrono::time_point<Clock, std::chrono::microseconds>;

    static Moment now() { return std::chrono::floor<std::chrono::microseconds>(Clock::now()); }
    void waitForSomething();
    void handle(const SDL_Event& event);
    void handleWindow(const SDL_WindowEvent& event);
    void handleKey(const SDL_KeyboardEvent& event);
    void handleKeyDown(const SDL_KeyboardEvent& event);
    void handleShortcut(const SDL_Keysym& key);
    void followPointer();
    void perform(WindowAct act);
    bool isOver() const { return !m_isOpen || wantsPhone() || m_desk.wantsStart(); }
    std::optional<std::chrono::microseconds> untilDue();
    void letTimePass();
    void makeSounds();
    Display::Shown draw(std::string& failure);
    Point onSheet(int x, int y) const;

    Display& m_display;
    Session& m_session;
    Phone& m_phone;
    Desk& m_desk;
    WindowPicture m_picture;
    Person m_person;
    Speaker m_speaker;
    LevelWatch m_level;
    std::size_t m_pressesHeard = 0;
    Sheet m_sheet;
    Layout m_layout;
    Moment m_clock; ///< up to when the session's time has passed
    Moment m_lastFrame;
    Moment m_noticeEnd; ///< when the notice on the sheet is to go
    std::optional<Spot> m_restedAt; ///< where the pointer is
    std::optional<Moment> m_tooltipAt; ///< when it has rested there long enough
    std::size_t m_noticeShown = 0; ///< its number
    std::function<void()> m_scenarioSaved;
    std::function<bool()> m_onTurn;
    const Statistics m_statistics;
    bool m_isOpen = true;
    bool m_isExposed = true; ///< the whole window has to be shown
    bool m_movedLastFrame = true;
    std::size_t m_turns = 0;
    std::vector<double> m_frameTimes; ///< milliseconds of those that had something to draw
};

} // namespace panotra::sim
