/// The picture behind the home screen.
#pragma once

#include "simulator/render/Bitmap.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::render {

class Drawing;

/// Copies share the picture.
class Wallpaper {
public:
    static Wallpaper dusk(); ///< dark; the one that is shown unless another is asked for
    static Wallpaper dawn(); ///< light
    /// None and the reason in `failure` if the file is no readable PNG.
    static std::optional<Wallpaper> fromFile(const std::string& path, std::string& failure);
    /// A picture (Opaque) that is not empty. Shared, not copied.
    static Wallpaper ofPicture(std::shared_ptr<const Bitmap> picture);

    /// Fills the rectangle of `size` at the context's origin; what does not fit its proportions is cut off evenly.
    void draw(cairo_t* context, Size size) const;

private:
    std::shared_ptr<const Drawing> m_drawing;
    std::shared_ptr<const Bitmap> m_photograph; ///< null if there is a drawing
};

} // namespace panotra::render
