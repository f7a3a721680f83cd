/// The overlay's window: without borders, above others, and nobody's keyboard goes to it.
#pragma once

#include "simulator/desktop/X11Server.h"
#include "simulator/render/Bitmap.h"
#include "simulator/window/Layout.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct SDL_Window;

namespace panotra::sim {

/// A connection to the display, for as long as there is something to show.
class OverlayDisplay {
public:
    /// Null and the reason in `failure` if there is no display.
    static std::unique_ptr<OverlayDisplay> open(std::string& failure);
    ~OverlayDisplay();
    OverlayDisplay(const OverlayDisplay&) = delete;
    OverlayDisplay& operator=(const OverlayDisplay&) = delete;

    /// Whether windows stand where they are put, and what is behind them and the pointer are known.
    bool isX11() const { return m_isX11; }
    /// The part for programs of the monitor on which that place is; of the first one if none is given.
    render::PixelRect usableMonitorAt(const std::optional<X11Server::Pointer>& pointer) const;

private:
    OverlayDisplay() = default;

    bool m_isX11 = false;
};

class OverlayWindow {
public:
    /// `place`: on the desktop, in units of the pointer. `visual`: that of X11Server, or empty. Null and the reason in
    /// `failure` if the display has no such window.
    static std::unique_ptr<OverlayWindow> open(
        const OverlayDisplay& display, const render::PixelRect& place, const std::string& visual, std::string& failure);
    ~OverlayWindow();
    OverlayWindow(const OverlayWindow&) = delete;
    OverlayWindow& operator=(const OverlayWindow&) = delete;

    /// In pixels, which may be smaller than the units of the pointer.
    PixelSize size() const;
    const render::PixelRect& place() const { return m_place; }

    enum class Act : std::uint8_t { Press, Move, Release, Uncover };
    struct Happening {
        Act act;
        int x = 0, y = 0; ///< of the left button, in units of the pointer, from the window's upper left corner
    };
    /// What has happened since the last call.
    std::vector<Happening> take();

    /// Brings the rectangles of the picture, which is as large as the window, onto the display. Answers false and the
    /// reason in `failure` if the display does not take it.
    bool show(const render::Bitmap& picture, const std::vector<render::PixelRect>& changed, std::string& failure);

    /// Can be read from when something has happened; -1: unknown.
    int descriptor() const { return m_descriptor; }
    /// Whether there is something to take that came while the display was drawn on: nothing is to be read for it.
    bool hasMore() const;

private:
    OverlayWindow() = default;

    SDL_Window* m_window = nullptr;
    render::PixelRect m_place;
    int m_descriptor = -1;
};

} // namespace panotra::sim
