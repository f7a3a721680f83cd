/// Phones with frames and shadows.
#include "simulator/gallery/Phones.h"

#include "simulator/render/Blur.h"

#include <array>

namespace panotra::sim {
namespace {

using render::Bitmap;
using render::Handle;
using render::Shape;

// Pixels of the picture.
constexpr int width = 1080;
constexpr int height = 672;
constexpr double bezel = 10;
constexpr double screenRoundness = 24;
constexpr double shadowBlur = 22;
constexpr double shadowDrop = 16;

struct Phone {
    MixerShowing showing;
    Light light;
    double x, y; ///< the screen's top left corner
    double size; ///< pixels of the picture a point

    render::Size screen() const { return { showing.screen.width * size, showing.screen.height * size }; }
    Shape body(double drop = 0) const
    {
        const auto [screenWidth, screenHeight] = screen();
        return { render::translation(x - bezel, y - bezel + drop),
            { screenWidth + 2 * bezel, screenHeight + 2 * bezel }, screenRoundness + bezel, true };
    }
};

/// The one in the middle last: it is the largest, and its shadow falls on the others.
std::array<Phone, 3> phones()
{
    std::array<Phone, 3> all;
    for (Phone& phone : all)
        phone.showing.screen = { 375, 667, 2 };
    all[0].showing.style = 0;
    all[0].showing.skin = 1;
    all[0].light = Light::Dawn;
    all[1].showing.style = 1;
    all[1].showing.skin = 2;
    all[1].light = Light::Dawn;
    all[2].showing.style = 0;
    all[2].showing.skin = 0;
    all[2].showing.focusedSlot = 0;
    all[2].light = Light::Dusk;
    constexpr double besides = 0.775;
    constexpr double inFront = 0.9;
    constexpr double fromEdge = 40;
    for (Phone& phone : all) {
        phone.size = besides;
        phone.y = (height - phone.screen().height) / 2;
    }
    all[2].size = inFront;
    all[2].y = (height - all[2].screen().height) / 2;
    all[0].x = fromEdge;
    all[1].x = width - fromEdge - all[1].screen().width;
    all[2].x = (width - all[2].screen().width) / 2;
    return all;
}

void drawTable(cairo_t* context)
{
    const Handle<cairo_pattern_t> gradient(cairo_pattern_create_linear(0, 0, 0, height));
    cairo_pattern_add_color_stop_rgb(gradient.get(), 0, 0.93, 0.94, 0.97);
    cairo_pattern_add_color_stop_rgb(gradient.get(), 1, 0.82, 0.84, 0.9);
    cairo_set_source(context, gradient.get());
    cairo_paint(context);
}

void drawShadow(Bitmap& picture, const Phone& phone)
{
    Bitmap shadowed(picture.width(), picture.height(), render::PixelFormat::Opaque);
    const auto inside = shadowed.makeContext();
    cairo_set_source_rgb(inside.get(), 1, 1, 1);
    cairo_paint(inside.get());
    cairo_set_source_rgb(inside.get(), 0.45, 0.47, 0.55);
    render::addOutline(inside.get(), phone.body(shadowDrop));
    cairo_fill(inside.get());
    const Bitmap soft = render::seenThrough(shadowed, shadowed.extent(), shadowBlur, { 0, 1, 1, {} });
    const auto context = picture.makeContext();
    cairo_set_operator(context.get(), CAIRO_OPERATOR_MULTIPLY);
    cairo_set_source_surface(context.get(), soft.surface(), 0, 0);
    cairo_paint(context.get());
}

void drawPhone(Bitmap& picture, const Phone& phone, const Bitmap& screen)
{
    const auto context = picture.makeContext();
    const Shape body = phone.body();
    cairo_set_source_rgb(context.get(), 0.07, 0.07, 0.08);
    render::addOutline(context.get(), body);
    cairo_fill(context.get());
    // A thin line of light along the edge.
    cairo_set_source_rgb(context.get(), 0.36, 0.37, 0.4);
    cairo_set_line_width(context.get(), 1.5);
    render::addOutline(context.get(), *body.inset(0.75));
    cairo_stroke(context.get());

    render::addOutline(context.get(), { render::translation(phone.x, phone.y), phone.screen(), screenRoundness, true });
    cairo_clip(context.get());
    cairo_translate(context.get(), phone.x, phone.y);
    const double factor = phone.screen().width / screen.width();
    cairo_scale(context.get(), factor, factor);
    cairo_set_source_surface(context.get(), screen.surface(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_BEST);
    cairo_paint(context.get());
}

} // namespace

Bitmap threePhones(Studio& studio)
{
    Bitmap picture(width, height, render::PixelFormat::Opaque);
    drawTable(picture.makeContext().get());
    for (const Phone& phone : phones()) {
        drawShadow(picture, phone);
        drawPhone(picture, phone, studio.mixer(phone.showing, phone.light));
    }
    return picture;
}

} // namespace panotra::sim
