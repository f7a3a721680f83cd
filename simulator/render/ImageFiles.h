/// Pictures from files, read once.
#pragma once

#include "simulator/render/Artwork.h"
#include "simulator/render/Bitmap.h"

#include <map>
#include <memory>
#include <string>

namespace panotra::render {

class ImageFiles {
public:
    /// The picture, PNG or SVG by its ending, stretched over a rectangle of `size` at the context's origin. A file
    /// that cannot be read draws nothing, as a missing picture does on the platform.
    void draw(cairo_t* context, const std::string& path, Size size);

private:
    struct Picture {
        Bitmap pixels; ///< empty for a drawing and for what could not be read
        std::unique_ptr<Drawing> drawing; ///< null for a bitmap
    };

    const Picture& read(const std::string& path);

    std::map<std::string, Picture> m_pictures;
};

} // namespace panotra::render
