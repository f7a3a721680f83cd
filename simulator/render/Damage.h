/// The part of the screen that has to be drawn anew.
#pragma once

#include "simulator/render/Handles.h"
#include "simulator/render/Shapes.h"

#include <vector>

namespace panotra::render {

class Damage {
public:
    Damage();

    void add(const PixelRect& area);
    bool isEmpty() const;
    /// Whether any pixel of the area is damaged, and whether all are.
    bool touches(const PixelRect& area) const;
    bool covers(const PixelRect& area) const;
    /// Without overlaps.
    std::vector<PixelRect> rectangles() const;
    PixelRect bounds() const;
    /// Cuts off, in a context whose transform is the identity, what is not damaged.
    void clip(cairo_t* context) const;

private:
    Handle<cairo_region_t> m_region;
};

} // namespace panotra::render
