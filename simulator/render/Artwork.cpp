/// Drawing SVG.
#include "simulator/render/Artwork.h"

#include <cassert>

namespace panotra::render {

Drawing::Drawing(Handle<RsvgHandle> handle)
    : m_handle(std::move(handle))
{
}

Drawing::Drawing(std::string_view source)
    : m_handle(rsvg_handle_new_from_data(
        reinterpret_cast<const guint8*>(source.data()), static_cast<gsize>(source.size()), nullptr))
{
    assert(m_handle != nullptr);
}

std::unique_ptr<Drawing> Drawing::fromFile(const std::string& path)
{
    GError* error = nullptr;
    Handle<RsvgHandle> handle(rsvg_handle_new_from_file(path.c_str(), &error));
    const Handle<GError> failure(error);
    return handle == nullptr ? nullptr : std::unique_ptr<Drawing>(new Drawing(std::move(handle)));
}

void Drawing::draw(cairo_t* context, Size size, const std::string& layer) const
{
    const RsvgRectangle viewport { 0, 0, size.width, size.height };
    const std::string id = "#" + layer;
    GError* error = nullptr;
    rsvg_handle_render_layer(m_handle.get(), context, layer.empty() ? nullptr : id.c_str(), &viewport, &error);
    const Handle<GError> failure(error); // a drawing too odd to be drawn is left out
}

} // namespace panotra::render
