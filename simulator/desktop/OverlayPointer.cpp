/// From presses, moves and releases to touches.
#include "simulator/desktop/OverlayPointer.h"

#include <utility>

namespace panotra::sim {

bool PressesOutside::see(std::uint32_t buttons, int x, int y, const render::PixelRect& window)
{
    const std::uint32_t before = m_buttons.value_or(buttons);
    m_buttons = buttons;
    const bool isInside = x >= window.x && x < window.x + window.width && y >= window.y && y < window.y + window.height;
    return (buttons & ~before) != 0 && !isInside;
}

OverlayPointer::~OverlayPointer()
{
    release();
}

void OverlayPointer::press(render::Point point)
{
    release();
    m_isHeld = true;
    m_touches.down(point.x, point.y);
}

void OverlayPointer::move(render::Point point)
{
    if (m_isHeld)
        m_move = point;
}

void OverlayPointer::release()
{
    settle();
    if (std::exchange(m_isHeld, false))
        m_touches.up();
}

/// The screen's corner, which no mixer reaches, stands for all that is outside.
void OverlayPointer::pressOutside()
{
    constexpr render::Point corner { 1, 1 };
    press(corner);
    release();
}

void OverlayPointer::settle()
{
    if (const auto point = std::exchange(m_move, std::nullopt))
        m_touches.move(point->x, point->y);
}

} // namespace panotra::sim
