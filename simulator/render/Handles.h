/// Owners for the objects of cairo, pango and librsvg, which count references by hand.
#pragma once

#include <cairo.h>
#include <librsvg/rsvg.h>
#include <pango/pangocairo.h>

#include <memory>

namespace panotra::render {

struct Unreference {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
    void operator()(cairo_region_t* region) const { cairo_region_destroy(region); }
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
    void operator()(PangoAttrList* attributes) const { pango_attr_list_unref(attributes); }
    void operator()(PangoContext* context) const { g_object_unref(context); }
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
    void operator()(PangoFont* font) const { g_object_unref(font); }
    void operator()(RsvgHandle* drawing) const { g_object_unref(drawing); }
    void operator()(GError* error) const { g_error_free(error); }
};

template <typename Object> using Handle = std::unique_ptr<Object, Unreference>;

} // namespace panotra::render
