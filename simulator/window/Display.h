/// A window on the display, and what the person does to it.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/window/Layout.h"
#include "simulator/window/WindowPlace.h"

#include <SDL.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

/// Tells SDL which display there is, before it begins. Answers false and the reason in `failure` if there is none.
bool chooseVideoDriver(std::string& failure);

class Display {
public:
    enum class Shown {
        Whole, ///< all that changed
        OtherSize, ///< nothing: the window has another size by now
        Failed, ///< the display does not take it
    };

    struct Wish {
        std::optional<double>
            scale {}; ///< how many pixels do what one does on a plain display; none: the system says it
        std::optional<WindowPlace> place {}; ///< none, or no part of any display: as large as is pleasant
    };
    /// Null and the reason in `failure` if there is no display.
    static std::unique_ptr<Display> open(const Wish& wish, std::string& failure);
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    void setTitle(const std::string& title);
    /// A hand over what can be pressed.
    void setPointing(bool isPointing);
    /// How many pixels do what one does on a plain display.
    double scale() const;
    WindowPlace place() const;

    /// In pixels, which may be smaller than the units of the pointer.
    PixelSize size() const;
    /// How many pixels a unit of the pointer is.
    double pixelsPerPointerUnit() const;
    /// Above other windows, as far as the display lets programs do that.
    void raise() const;
    /// Brings the rectangles of the picture, which has the window's size, onto the display. The reason in `failure`
    /// if it failed.
    Shown show(const render::Bitmap& picture, const std::vector<render::PixelRect>& changed, std::string& failure);

private:
    Display() = default;

    void setIcon();

    SDL_Window* m_window = nullptr;
    SDL_Cursor* m_arrow = nullptr;
    SDL_Cursor* m_hand = nullptr;
    bool m_isPointing = false;
    std::optional<double> m_forcedScale;
    double m_scaleOfX11 = 1;
};

} // namespace panotra::sim
