/// Drawings that are part of the renderer itself, and drawing them.
#pragma once

#include "simulator/render/Handles.h"
#include "simulator/render/Shapes.h"

#include <string>
#include <string_view>

namespace panotra::render {

/// The sources of the drawings, SVG.
namespace artwork {
extern const std::string_view dawn; ///< the light wallpaper
extern const std::string_view dusk; ///< the dark wallpaper
extern const std::string_view glyphs; ///< the signs on the home screen's tiles, each a group with an id
extern const std::string_view signs; ///< the signs of the status bar and of the indicator, likewise
} // namespace artwork

/// A drawing that has been read.
class Drawing {
public:
    /// `source` must be a well-formed SVG.
    explicit Drawing(std::string_view source);
    /// Null if the file is no readable SVG.
    static std::unique_ptr<Drawing> fromFile(const std::string& path);

    /// As large as fits into a rectangle of `size` at the context's origin, or, for `layer`, that group alone.
    void draw(cairo_t* context, Size size, const std::string& layer = {}) const;

private:
    explicit Drawing(Handle<RsvgHandle> handle);

    Handle<RsvgHandle> m_handle;
};

} // namespace panotra::render
