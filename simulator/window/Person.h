/// The person before the window: keys and pointer become acts on the phone.
#pragma once

#include "simulator/window/Board.h"
#include "simulator/window/Controls.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace panotra::sim {

/// From the oldest to the newest, then the phone of no system, then the oldest again.
std::optional<int> nextSystem(const std::optional<int>& system);

class Person {
public:
    /// `perform` does what is the window's to do; none: nobody does.
    Person(Session& session, Phone& phone, std::function<void(WindowAct)> perform = {})
        : m_session(session)
        , m_phone(phone)
        , m_perform(std::move(perform))
    {
    }

    /// What the pointer meets. Both must live until the next call.
    void see(const Sheet& sheet, const Layout& layout);
    const Attention& attention() const { return m_attention; }

    /// A key by the name that it has in the table of controls. Answers whether it means anything. A key that is down
    /// already, as one that repeats itself is, does nothing more.
    bool keyDown(std::string_view key);
    void keyUp(std::string_view key);
    void switchHelp() { m_attention.wantsHelp = !m_attention.wantsHelp; }
    void putHelpAway() { m_attention.wantsHelp = false; }
    /// Asks for the phone of the next system, where the phone can be started anew.
    void chooseNextSystem() { m_attention.wantsOtherSystem = m_session.canChangeSystem(); }

    // On the sheet.
    void pointerDown(Point point);
    /// The phone hears of the last of several moves, before anything else happens or in `settle`.
    void pointerMove(Point point);
    void pointerUp(Point point);
    /// What is held or dragged goes on: the pointer may come back.
    void pointerLeft();

    /// Passes on what was held back.
    void settle();

    /// Lets so much of the phone's time pass. A volume button that is held is pressed again and again meanwhile, as the
    /// platform does it; of two the one that went down last.
    void passTime(std::chrono::microseconds time);
    /// How much of the phone's time is left until a held button is pressed again; none if none is held.
    std::optional<std::chrono::microseconds> untilRepeat() const;

    static constexpr std::chrono::microseconds repeatDelay { 500000 };
    static constexpr std::chrono::microseconds repeatInterval { 100000 };

private:
    /// Who holds a control: what one lets go the other may still hold.
    enum class Holder { Key, Pointer };

    struct Repeat {
        std::size_t control;
        std::chrono::microseconds rest; ///< of the phone's time, until it is pressed again
    };

    bool isHeld(std::size_t control) const;
    void press(std::size_t control, Holder holder);
    void release(std::size_t control, Holder holder);
    void touch(const char* what, Point point);
    void dragRange(const Spot& range, Point point);

    Session& m_session;
    Phone& m_phone;
    std::function<void(WindowAct)> m_perform;
    const Sheet* m_sheet = nullptr;
    const Layout* m_layout = nullptr;
    Attention m_attention;
    std::set<std::pair<std::size_t, Holder>> m_held; ///< controls
    std::optional<Repeat> m_repeat;
    std::optional<Spot> m_pressed; ///< where the pointer went down
    std::optional<Point> m_move; ///< of a finger on the screen, not passed on yet
};

} // namespace panotra::sim
