/// A window on the display, and what the person does to it.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/window/Layout.h"

#include <SDL.h>

#include <memory>
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

    /// As large as is pleasant on the display. Null and the reason in `failure` if there is no display.
    static std::unique_ptr<Display> open(const char* title, std::string& failure);
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

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

    SDL_Window* m_window = nullptr;
};

} // namespace panotra::sim
