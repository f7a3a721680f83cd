/// The overlay's pixels: the mixer alone, over what is behind it on the desktop.
#pragma once

#include "simulator/render/Renderer.h"

#include <memory>
#include <vector>

namespace panotra::sim {

class OverlayPicture {
public:
    enum class Kind {
        Opaque, ///< what is behind is part of the picture
        Translucent, ///< the display server lays the picture over what is behind
    };

    /// Draws a mixer that shows itself anew. `behind`: where the phone's screen lies, in its pixels, Opaque; where
    /// nobody knows what is there it is empty, and a plain colour is taken.
    /// `crop`: the part of the screen that is the picture; `behind`, if it is not empty, covers it.
    OverlayPicture(render::Renderer& renderer, const Device& device, render::Bitmap behind,
        const render::PixelRect& crop, Kind kind);

    struct Frame {
        const render::Bitmap& pixels; ///< as it is until the next call; as large as the crop
        std::vector<render::PixelRect> changed; ///< in it, since the last call
    };
    Frame draw(const Device& device, const View& mixer);

private:
    void copy(const render::Bitmap& screen, const render::PixelRect& part);
    void copyTranslucent(const render::Bitmap& screen, const render::PixelRect& part);
    void makeMask(const render::Presence& presence);

    render::Renderer& m_renderer;
    const render::PixelRect m_crop;
    const Kind m_kind;
    std::shared_ptr<const render::Bitmap> m_behind; ///< as large as the screen
    render::Bitmap m_pixels;
    render::Presence m_presence;
    std::vector<std::uint8_t> m_mask; ///< how much of what is behind is hidden, a byte a pixel of the crop
};

} // namespace panotra::sim
