/// The pixels of a window: its sheet, and the phone's screen in it, drawn anew only where something changed.
#pragma once

#include "simulator/render/Renderer.h"
#include "simulator/window/Layout.h"
#include "simulator/window/Sheet.h"

#include <vector>

namespace panotra::sim {

/// An element by itself, `unit` pixels a unit of the sheet.
void drawBox(cairo_t* context, const Box& box, double unit);
void drawRim(cairo_t* context, const Rim& rim, double unit);

class WindowPicture {
public:
    /// `renderer` draws the phone's screen.
    explicit WindowPicture(render::Renderer& renderer)
        : m_renderer(renderer)
    {
    }

    struct Frame {
        const render::Bitmap& pixels; ///< Opaque, as it is until the next call
        std::vector<render::PixelRect> changed; ///< since the last call, without overlaps; empty if nothing moved
    };

    /// The size is above 0 and fits into memory.
    Frame draw(Device& device, const Sheet& sheet, const Layout& layout, PixelSize size);

private:
    void drawElements(const Layout& layout, const render::Damage& damage);
    void draw(cairo_t* context, const Box& box, double unit) const;
    void draw(cairo_t* context, const Rim& rim, double unit) const;
    void draw(cairo_t* context, const Text& text, double unit) const;
    void draw(cairo_t* context, const ScreenPicture& picture, double unit) const;

    render::Renderer& m_renderer;
    render::Bitmap m_canvas;
    const render::Bitmap* m_screen = nullptr; ///< the renderer's, of the frame that is being drawn
    Layout m_layout;
    std::vector<Element> m_elements; ///< what is on the canvas
};

} // namespace panotra::sim
