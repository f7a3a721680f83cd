/// Drawn wallpapers and those from files.
#include "simulator/render/Wallpaper.h"

#include "simulator/render/Artwork.h"

#include <algorithm>

namespace panotra::render {

Wallpaper Wallpaper::dusk()
{
    Wallpaper wallpaper;
    wallpaper.m_drawing = std::make_shared<Drawing>(artwork::dusk);
    return wallpaper;
}

Wallpaper Wallpaper::dawn()
{
    Wallpaper wallpaper;
    wallpaper.m_drawing = std::make_shared<Drawing>(artwork::dawn);
    return wallpaper;
}

std::optional<Wallpaper> Wallpaper::fromFile(const std::string& path, std::string& failure)
{
    Bitmap photograph = readPng(path, failure);
    if (photograph.isEmpty())
        return std::nullopt;
    return ofPicture(std::make_shared<Bitmap>(std::move(photograph)));
}

Wallpaper Wallpaper::ofPicture(std::shared_ptr<const Bitmap> picture)
{
    Wallpaper wallpaper;
    wallpaper.m_photograph = std::move(picture);
    return wallpaper;
}

void Wallpaper::draw(cairo_t* context, Size size) const
{
    if (m_drawing != nullptr) {
        m_drawing->draw(context, size);
        return;
    }
    const double width = m_photograph->width();
    const double height = m_photograph->height();
    const double factor = std::max(size.width / width, size.height / height);
    cairo_save(context);
    cairo_translate(context, (size.width - width * factor) / 2, (size.height - height * factor) / 2);
    cairo_scale(context, factor, factor);
    cairo_set_source_surface(context, m_photograph->surface(), 0, 0);
    cairo_pattern_t* const pattern = cairo_get_source(context);
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_BEST);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD); // no dark seam at the edges
    cairo_paint(context);
    cairo_restore(context);
}

} // namespace panotra::render
