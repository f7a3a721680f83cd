/// Draws what the screen of a simulated phone shows, and draws anew only what changed since the last time.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/render/Damage.h"
#include "simulator/render/ImageFiles.h"
#include "simulator/render/Scene.h"
#include "simulator/render/Typesetter.h"
#include "simulator/render/Wallpaper.h"

#include <optional>
#include <string>
#include <vector>

namespace panotra::render {

/// Why a screen of this size in points cannot be drawn, or nothing: sides of 1 to 8192 pixels are drawn.
std::optional<std::string> whyTooLargeOrSmall(Size points, double pixelsPerPoint);

/// Keeps what was drawn: the home screen, every blurred backdrop, every text. Follows one device at a time; drawing
/// another one is right as well, but starts afresh where the two differ.
class Renderer {
public:
    Renderer(Wallpaper wallpaper, Typesetter typesetter);

    struct Frame {
        const Bitmap& pixels; ///< the renderer's own, Opaque, as it is until the next call
        std::vector<PixelRect> changed; ///< since the last call, without overlaps; empty if nothing moved
    };

    /// The screen upright as it is built, at its own scale, at this moment of the device's clock. The screen must
    /// not be too large or too small.
    Frame draw(const sim::Device& device);

    /// One view alone (sceneOfView), on a picture as large as the screen.
    Frame drawView(const sim::Device& device, const sim::View& view);

    /// Starts afresh.
    void setWallpaper(Wallpaper wallpaper);

    const Typesetter& typesetter() const { return m_typesetter; }

private:
    Frame draw(const sim::Device& device, Scene scene);

    Wallpaper m_wallpaper;
    Typesetter m_typesetter;
    ImageFiles m_images;
    double m_pixelsPerPoint = 0;
    Bitmap m_canvas;
    Scene m_scene; ///< what is on the canvas
    std::vector<Bitmap> m_products; ///< what was made for each of its items; empty where nothing was
};

} // namespace panotra::render
