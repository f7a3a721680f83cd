/// Everything that a window shows, put together: the phone, the buttons beside it, the panel, the player of
/// scenarios, the list of keys.
#pragma once

#include "simulator/window/Desk.h"
#include "simulator/window/Layout.h"
#include "simulator/window/Phone.h"
#include "simulator/window/Session.h"
#include "simulator/window/Widgets.h"

#include <optional>

namespace panotra::sim {

/// What the person is about.
struct Attention {
    std::optional<Spot> hovered; ///< where the pointer is
    std::optional<double> draggedValue; ///< of the range at `hovered`, which is not stored yet
    bool wantsHelp = false;
    bool wantsOtherSystem = false; ///< the phone is to start anew as one of the next system
};

/// What there is to show.
struct Subject {
    const Session& session;
    const Phone& phone;
    const Layout& layout;
    const Attention& attention;
    const Desk* desk = nullptr; ///< null: time, files and notices are nothing to show

    Emphasis emphasisOf(const Spot& spot, bool isOn) const;
};

void addPhone(Sheet& sheet, const Subject& subject);
void addControls(Sheet& sheet, const Subject& subject, Area area);
void addPanel(Sheet& sheet, const Subject& subject, Area area);
void addHelp(Sheet& sheet, const Subject& subject);
/// The scenario that is played: its comments, how far it is, and the buttons that rule its time.
void addPlayer(Sheet& sheet, const Subject& subject, Area area);
/// The red mark of a recording and the last notice, over the phone.
void addNotices(Sheet& sheet, const Subject& subject);

Sheet makeSheet(const Subject& subject);

} // namespace panotra::sim
