/// A window on the display, and what the person does to it.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/window/Layout.h"

#include <SDL.h>

#include <memory>
#include <string>
#include <vector>

namespace panotra::sim {

class Display {
public:
    /// As large as is pleasant on the display. Null and the reason in `failure` if there is no display.
    static std::unique_ptr<Display> open(const char* title, std::string& failure);
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// In pixels, which may be smaller than the units of the pointer.
    PixelSize size() const;
    /// How many pixels a unit of the pointer is.
    double pixelsPerPointerUnit() const;
    /// Brings the rectangles of the picture, which has the window's size, onto the display. Answers false if the
    /// window has another size by now.
    bool show(const render::Bitmap& picture, const std::vector<render::PixelRect>& changed);

private:
    Display() = default;

    SDL_Window* m_window = nullptr;
};

} // namespace panotra::sim
