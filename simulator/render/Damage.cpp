/// The damaged part of the screen, kept by cairo as rectangles.
#include "simulator/render/Damage.h"

namespace panotra::render {
namespace {

cairo_rectangle_int_t cairoRectangle(const PixelRect& rect)
{
    return { rect.x, rect.y, rect.width, rect.height };
}

PixelRect pixelRect(const cairo_rectangle_int_t& rectangle)
{
    return { rectangle.x, rectangle.y, rectangle.width, rectangle.height };
}

} // namespace

Damage::Damage()
    : m_region(cairo_region_create())
{
}

void Damage::add(const PixelRect& area)
{
    const auto rectangle = cairoRectangle(area);
    if (!area.isEmpty())
        cairo_region_union_rectangle(m_region.get(), &rectangle);
}

bool Damage::isEmpty() const
{
    return cairo_region_is_empty(m_region.get()) != 0;
}

bool Damage::touches(const PixelRect& area) const
{
    const auto rectangle = cairoRectangle(area);
    return cairo_region_contains_rectangle(m_region.get(), &rectangle) != CAIRO_REGION_OVERLAP_OUT;
}

bool Damage::covers(const PixelRect& area) const
{
    const auto rectangle = cairoRectangle(area);
    return cairo_region_contains_rectangle(m_region.get(), &rectangle) == CAIRO_REGION_OVERLAP_IN;
}

std::vector<PixelRect> Damage::rectangles() const
{
    std::vector<PixelRect> rectangles;
    for (int i = 0; i < cairo_region_num_rectangles(m_region.get()); ++i) {
        cairo_rectangle_int_t rectangle;
        cairo_region_get_rectangle(m_region.get(), i, &rectangle);
        rectangles.push_back(pixelRect(rectangle));
    }
    return rectangles;
}

PixelRect Damage::bounds() const
{
    cairo_rectangle_int_t rectangle;
    cairo_region_get_extents(m_region.get(), &rectangle);
    return pixelRect(rectangle);
}

void Damage::clip(cairo_t* context) const
{
    for (const PixelRect& area : rectangles())
        cairo_rectangle(context, area.x, area.y, area.width, area.height);
    cairo_clip(context);
}

} // namespace panotra::render
