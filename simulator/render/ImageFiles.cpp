/// Pictures from files.
#include "simulator/render/ImageFiles.h"

namespace panotra::render {

const ImageFiles::Picture& ImageFiles::read(const std::string& path)
{
    const auto known = m_pictures.find(path);
    if (known != m_pictures.end())
        return known->second;
    Picture picture;
    if (path.ends_with(".svg")) {
        picture.drawing = Drawing::fromFile(path);
    } else {
        std::string failure;
        picture.pixels = readPng(path, failure);
    }
    return m_pictures.emplace(path, std::move(picture)).first->second;
}

void ImageFiles::draw(cairo_t* context, const std::string& path, Size size)
{
    const Picture& picture = read(path);
    if (picture.drawing != nullptr)
        picture.drawing->draw(context, size);
    if (picture.pixels.isEmpty())
        return;
    cairo_save(context);
    cairo_scale(context, size.width / picture.pixels.width(), size.height / picture.pixels.height());
    cairo_set_source_surface(context, picture.pixels.surface(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_BEST);
    cairo_paint(context);
    cairo_restore(context);
}

} // namespace panotra::render
