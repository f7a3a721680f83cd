/// What the window library does not tell of an X server: the pixels behind a window that is about to open, and whether
/// windows may be translucent.
#pragma once

#include "simulator/render/Bitmap.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

struct xcb_connection_t;

namespace panotra::sim {

class X11Server {
public:
    /// Null where the server that DISPLAY names cannot be reached.
    static std::unique_ptr<X11Server> connect();
    ~X11Server();
    X11Server(const X11Server&) = delete;
    X11Server& operator=(const X11Server&) = delete;

    /// The name of a kind of window that may be translucent, as SDL takes it; empty where nobody would compose it with
    /// what is behind it.
    std::string translucentVisual() const;
    /// What the desktop shows there now, Opaque. Empty where the server keeps it to itself, as one does that serves X
    /// programs within Wayland, and where it has pixels of another kind than everybody's. What is beyond the desktop
    /// is black.
    render::Bitmap read(const render::PixelRect& area) const;

    /// What the pointer is doing, wherever on the desktop it is.
    static constexpr std::uint32_t leftButton = 1U << 8;
    struct Pointer {
        std::uint32_t buttons = 0; ///< a bit for each one that is down
        int x = 0, y = 0;
    };
    std::optional<Pointer> pointer() const;

    /// Who has the keyboard.
    std::uint32_t focus() const;
    /// Gives it back, if it has gone elsewhere.
    void restoreFocus(std::uint32_t focus) const;

private:
    X11Server() = default;
    bool isComposited() const;
    bool isWithinWayland() const;

    xcb_connection_t* m_connection = nullptr;
    int m_screen = 0;
};

} // namespace panotra::sim
