/// What the keyboard steers, and what a thing under the pointer is called and which key it has.
#include "simulator/window/Hints.h"

#include "simulator/window/Controls.h"
#include "simulator/window/Palette.h"
#include "simulator/window/TracePanel.h"

#include <algorithm>

namespace panotra::sim {

using Purpose = Spot::Purpose;

std::string hintOf(const Spot& spot)
{
    const auto withKey = [](const char* label, const char* cap) {
        return std::string(label) + "   " + cap;
    };
    switch (spot.purpose) {
    case Purpose::Control:
        return withKey(allControls()[spot.index].label, allControls()[spot.index].cap);
    case Purpose::Act: {
        const WindowKey& key = keyOf(static_cast<WindowAct>(spot.index));
        return withKey(key.label, key.cap);
    }
    case Purpose::HomeButton:
        return "Home";
    case Purpose::Tab:
        return static_cast<Tab>(spot.index) == Tab::Inspector ? withKey("Inspector", keyOf(WindowAct::Inspector).cap)
                                                              : "";
    case Purpose::Trace:
        switch (static_cast<TracePart>(spot.index)) {
        case TracePart::Filter:
            return "Show one kind of event alone; click for the next";
        case TracePart::Copy:
            return withKey("Copy the lines", "Ctrl+C");
        case TracePart::Pause:
            return "Hold the trace while the phone goes on";
        default:
            return "";
        }
    default:
        return "";
    }
}

void addFocus(Sheet& sheet, const Subject& subject)
{
    const auto& focused = subject.attention.focused;
    if (!focused)
        return;
    constexpr double rim = 2;
    for (auto spot = sheet.spots.rbegin(); spot != sheet.spots.rend(); ++spot) {
        if (spot->isSameAs(*focused)) {
            sheet.add(Box { spot->area.inset(-rim, -rim), palette::clear, 8, palette::bright });
            return;
        }
    }
}

void addTooltip(Sheet& sheet, const Subject& subject)
{
    const Attention& attention = subject.attention;
    if (!attention.wantsTooltip || !attention.hovered || attention.pressed)
        return;
    const std::string hint = hintOf(*attention.hovered);
    if (hint.empty())
        return;
    constexpr double letterWidth = 6.4;
    constexpr double rims = 20;
    constexpr double height = 24;
    constexpr double distance = 6;
    const Area& at = attention.hovered->area;
    const Area& all = subject.layout.sheet;
    const double width = static_cast<double>(hint.size()) * letterWidth + rims;
    const double x = std::clamp(at.x, distance, std::max(all.width - width - distance, distance));
    const bool fitsBelow = at.bottom() + distance + height < all.height;
    const Area box { x, fitsBelow ? at.bottom() + distance : at.y - distance - height, width, height };
    sheet.add(Box { box, palette::keyCap, 6, palette::bodyEdge });
    addText(sheet, box.inset(rims / 2, 0), hint, palette::bright, smallText);
}

} // namespace panotra::sim
