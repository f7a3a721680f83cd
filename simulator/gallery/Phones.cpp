/// Phones with frames and shadows.
#include "simulator/gallery/Phones.h"

#include "simulator/render/Blur.h"
#include "simulator/window/PhoneLooks.h"
#include "simulator/window/WindowPicture.h"

#include <array>
#include <variant>

namespace panotra::sim {
namespace {

using render::Bitmap;
using render::Handle;
using render::Shape;

// Pixels of the picture.
constexpr int width = 1080;
constexpr int height = 672;
constexpr double shadowBlur = 22;
constexpr double shadowDrop = 16;

struct TablePhone {
    MixerShowing showing;
    Light light;
    double x, y; ///< the screen's top left corner
    double size; ///< pixels of the picture a point

    render::Size screen() const { return { showing.screen.width * size, showing.screen.height * size }; }
    PhonePlace place() const
    {
        return { showing.screen, 1, { x + screen().width / 2, y + screen().height / 2 }, size };
    }
    Shape body(double drop = 0) const
    {
        const Area area = place().body();
        return { render::translation(area.x, area.y + drop), { area.width, area.height },
            bodyOf(showing.screen).radius * size, false };
    }
};

/// The one in the middle last: it is the largest, and its shadow falls on the others.
std::array<TablePhone, 3> phones()
{
    std::array<TablePhone, 3> all;
    for (TablePhone& phone : all)
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
    constexpr double besides = 0.73;
    constexpr double inFront = 0.83;
    constexpr double fromEdge = 48;
    for (TablePhone& phone : all) {
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

void drawShadow(Bitmap& picture, const TablePhone& phone)
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

void draw(cairo_t* context, const Sheet& sheet)
{
    for (const Element& element : sheet.elements) {
        if (const auto* const box = std::get_if<Box>(&element))
            drawBox(context, *box, 1);
        else if (const auto* const rim = std::get_if<Rim>(&element))
            drawRim(context, *rim, 1);
    }
}

/// As the window draws it.
void drawPhone(Bitmap& picture, const TablePhone& phone, const Bitmap& screen)
{
    const auto context = picture.makeContext();
    const PhonePlace place = phone.place();
    Sheet around;
    for (const SideButton& button : sideButtons)
        addSideButton(around, place, areaOf(button, place, false), SideButtonLooks::Plain);
    addBody(around, place);
    addHomeButton(around, place, false);
    draw(context.get(), around);

    cairo_save(context.get());
    cairo_rectangle(context.get(), phone.x, phone.y, phone.screen().width, phone.screen().height);
    cairo_clip(context.get());
    cairo_translate(context.get(), phone.x, phone.y);
    const double factor = phone.screen().width / screen.width();
    cairo_scale(context.get(), factor, factor);
    cairo_set_source_surface(context.get(), screen.surface(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_BEST);
    cairo_paint(context.get());
    cairo_restore(context.get());
    Sheet over;
    addRims(over, place);
    draw(context.get(), over);
}

} // namespace

Bitmap threePhones(Studio& studio)
{
    Bitmap picture(width, height, render::PixelFormat::Opaque);
    drawTable(picture.makeContext().get());
    for (const TablePhone& phone : phones()) {
        drawShadow(picture, phone);
        drawPhone(picture, phone, studio.mixer(phone.showing, phone.light));
    }
    return picture;
}

} // namespace panotra::sim
