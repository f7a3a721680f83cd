/// What a pointer does to the overlay becomes a finger on the phone.
#pragma once

#include "simulator/device/Touches.h"
#include "simulator/render/Shapes.h"

#include <cstdint>
#include <optional>

namespace panotra::sim {

/// Tells presses beside the overlay, which others get, from what else the pointer does on the desktop.
class PressesOutside {
public:
    /// `buttons`: a bit for each one that is down. Answers whether one has gone down outside of `window` since the last
    /// call. The first call answers false: what was down then was pressed before the overlay came.
    bool see(std::uint32_t buttons, int x, int y, const render::PixelRect& window);

private:
    std::optional<std::uint32_t> m_buttons;
};

/// One finger. Of several moves between two frames only the last is felt.
class OverlayPointer {
public:
    explicit OverlayPointer(Touches& touches)
        : m_touches(touches)
    {
    }
    /// What was held is let go.
    ~OverlayPointer();
    OverlayPointer(const OverlayPointer&) = delete;
    OverlayPointer& operator=(const OverlayPointer&) = delete;

    // Points on the phone's screen.
    void press(render::Point point);
    void move(render::Point point);
    void release();
    /// A press that is not on the mixer: whoever it was for gets it, too.
    void pressOutside();
    /// To be called once a frame: the last move is felt now.
    void settle();

    bool isHeld() const { return m_isHeld; }

private:
    Touches& m_touches;
    bool m_isHeld = false;
    std::optional<render::Point> m_move;
};

} // namespace panotra::sim
