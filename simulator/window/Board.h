/// Everything that a window shows, put together: the phone, the buttons beside it, the panel, the player of
/// scenarios, the list of keys.
#pragma once

#include "simulator/window/Desk.h"
#include "simulator/window/Inspector.h"
#include "simulator/window/Layout.h"
#include "simulator/window/Phone.h"
#include "simulator/window/Session.h"
#include "simulator/window/Widgets.h"

#include <deque>
#include <optional>
#include <string>

namespace panotra::sim {

/// What lies over everything else.
enum class Overlaid { Nothing, Help, Menu };

/// What the column of a narrow window shows, and below the settings the panel of a wide one.
enum class Tab { Controls, Settings, Levels, Trace, Inspector };

/// Another phone, as far as it differs from the one that there is.
struct NewPhone {
    std::optional<ScreenSize> screen {};
    std::optional<std::optional<int>> system {};
    bool forgetsEverything = false; ///< it comes from the shop
};

/// How the trace is looked at.
struct TraceLooks {
    std::string filter {}; ///< the only kind of event that is shown; empty: all
    std::size_t back = 0; ///< how many lines the last one that is shown is before the newest
    std::optional<std::deque<TraceLine>> held {}; ///< while it is paused: the lines at that time
};

/// What the person is about.
struct Attention {
    std::optional<Spot> hovered; ///< where the pointer is
    std::optional<Spot> pressed; ///< where its button went down, as long as it is down
    std::optional<double> draggedValue; ///< of the range at `hovered`, which is not stored yet
    std::optional<Spot> focused; ///< what the keyboard steers
    bool wantsTooltip = false; ///< the pointer has rested at `hovered`
    Overlaid overlay = Overlaid::Nothing;
    bool isForgettingAsked = false; ///< one more click forgets everything
    std::optional<NewPhone> wantsPhone {}; ///< the phone is to start anew
    Tab tab = Tab::Controls; ///< Controls and Settings count as Levels in the panel
    TraceLooks trace {};
    ViewMark mark {}; ///< what the inspector is about
};

/// What there is to show.
struct Subject {
    const Session& session;
    const Phone& phone;
    const Layout& layout;
    const Attention& attention;
    const Desk* desk = nullptr; ///< null: time, files and notices are nothing to show

    Emphasis emphasisOf(const Spot& spot, bool isOn) const;
    bool isPressed(const Spot& spot) const;
};

void addPhone(Sheet& sheet, const Subject& subject);
void addControls(Sheet& sheet, const Subject& subject, Area area);
void addPanel(Sheet& sheet, const Subject& subject, Area area);
void addHelp(Sheet& sheet, const Subject& subject);
/// The scenario that is played: its comments, how far it is, and the buttons that rule its time.
void addPlayer(Sheet& sheet, const Subject& subject, Area area);
/// The red mark of a recording and the last notice, over the phone.
void addNotices(Sheet& sheet, const Subject& subject);

/// Buttons or a part of the panel, below tabs to choose by.
void addFolded(Sheet& sheet, const Subject& subject, Area area);
void addTrace(Sheet& sheet, const Subject& subject, const Area& card);
/// The views as a tree, and what the marked one is like.
void addInspector(Sheet& sheet, const Subject& subject, const Area& card);
/// The frame of the marked view, on the phone.
void addInspection(Sheet& sheet, const Subject& subject);
/// Which phone it is, and how it is looked at.
void addMenu(Sheet& sheet, const Subject& subject);
void addFocus(Sheet& sheet, const Subject& subject);
void addTooltip(Sheet& sheet, const Subject& subject);

Sheet makeSheet(const Subject& subject);

} // namespace panotra::sim
