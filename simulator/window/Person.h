/// The person before the window: keys and pointer become acts on the phone.
#pragma once

#include "simulator/window/Board.h"
#include "simulator/window/Controls.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace panotra::sim {

/// Who does what is not the phone's to do. None: nobody does.
struct PersonMeans {
    std::function<void(WindowAct)> perform {};
    std::function<void(const std::string& words)> say {};
    std::function<void(const std::string& wallpaper)> hang {};
    std::function<void(const std::string& text)> copy {};
};

/// From the oldest to the newest, then the phone of no system, then the oldest again.
std::optional<int> nextSystem(const std::optional<int>& system);

class Person {
public:
    Person(Session& session, Phone& phone, PersonMeans means = {})
        : m_session(session)
        , m_phone(phone)
        , m_means(std::move(means))
    {
    }

    /// What the pointer meets. Both must live until the next call.
    void see(const Sheet& sheet, const Layout& layout);
    const Attention& attention() const { return m_attention; }

    /// A key by the name that it has in the table of controls. Answers whether it means anything. A key that is down
    /// already, as one that repeats itself is, does nothing more.
    bool keyDown(std::string_view key);
    void keyUp(std::string_view key);
    /// What the window's own keys do to its looks; any other act is left to others.
    void perform(WindowAct act);
    void putOverlayAway();
    /// The keyboard alone: Tab goes from spot to spot, and where one has the focus arrows, Return, the space bar and
    /// Escape are for it. Answers whether the key was.
    bool steer(std::string_view key, bool isBackwards = false);
    void steerEnds(std::string_view key);
    /// The pointer has rested, or moved on.
    void setTooltip(bool isWanted) { m_attention.wantsTooltip = isWanted; }

    // On the sheet.
    void pointerDown(Point point);
    /// The phone hears of the last of several moves, before anything else happens or in `settle`.
    void pointerMove(Point point);
    void pointerUp(Point point);
    /// So many lines up, or down if below zero.
    void wheel(Point point, int lines);
    /// What is held or dragged goes on: the pointer may come back.
    void pointerLeft();

    /// Passes on what was held back.
    void settle();

    /// How many times a button of the phone was pressed, also by itself.
    std::size_t presses() const { return m_presses; }

    /// Lets so much of the phone's time pass. A volume button that is held is pressed again and again meanwhile, as the
    /// platform does it; of two the one that went down last.
    void passTime(std::chrono::microseconds time);
    /// How much of the phone's time is left until a held button is pressed again; none if none is held.
    std::optional<std::chrono::microseconds> untilRepeat() const;

    static constexpr std::chrono::microseconds repeatDelay { 500000 };
    static constexpr std::chrono::microseconds repeatInterval { 100000 };

private:
    /// Who holds a control: what one lets go the other may still hold.
    enum class Holder { Key, Pointer, Focus };

    struct Repeat {
        std::size_t control;
        std::chrono::microseconds rest; ///< of the phone's time, until it is pressed again
    };

    bool isHeld(std::size_t control) const;
    void press(std::size_t control, Holder holder);
    void release(std::size_t control, Holder holder);
    void touch(const char* what, Point point);
    bool isBesideMixer(Point point) const;
    void sayIfOff(const MixerSetting& needed) const;
    void dragRange(const Spot& range, Point point);
    void begin(const Spot& spot, Holder holder);
    void chooseInMenu(const Spot& spot);
    void useTrace(const Spot& spot);
    void showTab(Tab tab);
    void copyTrace() const;
    void inspectAt(Point point);

    Session& m_session;
    Phone& m_phone;
    PersonMeans m_means;
    const Sheet* m_sheet = nullptr;
    const Layout* m_layout = nullptr;
    Attention m_attention;
    std::set<std::pair<std::size_t, Holder>> m_held; ///< controls
    std::size_t m_presses = 0;
    std::optional<Repeat> m_repeat;
    std::optional<Spot> m_steered; ///< where Return or the space bar went down
    std::optional<Point> m_move; ///< of a finger on the screen, not passed on yet
};

} // namespace panotra::sim
