/// Comparing with what is there already, then cairo.
#include "simulator/window/WindowPicture.h"

#include "simulator/device/Services.h"
#include "simulator/render/Orientation.h"

#include <cmath>

namespace panotra::sim {

using render::Damage;
using render::PixelRect;

namespace {

/// The whole pixels that an area touches.
PixelRect pixelsOf(const Area& area, double unit)
{
    // Sizes that are meant to be whole may be so by rounding only.
    constexpr double sliver = 1e-3;
    const int left = static_cast<int>(std::floor(area.x * unit + sliver));
    const int top = static_cast<int>(std::floor(area.y * unit + sliver));
    const int right = static_cast<int>(std::ceil(area.right() * unit - sliver));
    const int bottom = static_cast<int>(std::ceil(area.bottom() * unit - sliver));
    return { left, top, right - left, bottom - top };
}

/// The area with its edges on whole pixels, in pixels.
Area snapped(const Area& area, double unit)
{
    const double left = std::round(area.x * unit);
    const double top = std::round(area.y * unit);
    return { left, top, std::round(area.right() * unit) - left, std::round(area.bottom() * unit) - top };
}

/// What drawing an element may touch: rounding to pixels moves edges.
PixelRect extentOf(const Element& element, double unit)
{
    const Area& area = std::visit([](const auto& any) -> const Area& { return any.area; }, element);
    const PixelRect exact = pixelsOf(area, unit);
    return { exact.x - 1, exact.y - 1, exact.width + 2, exact.height + 2 };
}

void setColor(cairo_t* context, const Rgba& color)
{
    cairo_set_source_rgba(context, color[0], color[1], color[2], color[3]);
}

/// The renderer draws at the screen's own scale. Drawn with as many pixels as the window has for it, nothing has to
/// be shrunk, and nobody but the renderer looks at the scale meanwhile.
class ScaleOfWindow {
public:
    ScaleOfWindow(Device& device, double pixelsPerPoint)
        : m_scale(device.screen->scale)
        , m_ownScale(m_scale)
    {
        m_scale = pixelsPerPoint;
    }
    ScaleOfWindow(const ScaleOfWindow&) = delete;
    ScaleOfWindow& operator=(const ScaleOfWindow&) = delete;
    ~ScaleOfWindow() { m_scale = m_ownScale; }

private:
    double& m_scale;
    const double m_ownScale;
};

const ScreenPicture* pictureIn(const Sheet& sheet)
{
    for (const Element& element : sheet.elements) {
        if (const auto* const picture = std::get_if<ScreenPicture>(&element))
            return picture;
    }
    return nullptr;
}

} // namespace

WindowPicture::Frame WindowPicture::draw(Device& device, const Sheet& sheet, const Layout& layout, PixelSize size)
{
    Damage damage;
    const double unit = layout.unit;
    if (m_canvas.width() != size.width || m_canvas.height() != size.height || m_layout.unit != unit) {
        m_canvas = render::Bitmap(size.width, size.height, render::PixelFormat::Opaque);
        m_elements.clear();
        damage.add(m_canvas.extent());
    }
    m_layout = layout;

    m_screen = nullptr;
    const double pixelsPerPoint = layout.phone.unitsPerPoint() * unit;
    const Screen& deviceScreen = *device.screen;
    // A screen of the strangest shape may have no pixel left in a small window.
    if (pictureIn(sheet) != nullptr
        && !render::whyTooLargeOrSmall({ deviceScreen.width, deviceScreen.height }, pixelsPerPoint)) {
        const ScaleOfWindow scale(device, pixelsPerPoint);
        const render::Renderer::Frame screen = m_renderer.draw(device);
        m_screen = &screen.pixels;
        for (const PixelRect& rect : screen.changed) {
            const Area points { rect.x / pixelsPerPoint, rect.y / pixelsPerPoint, rect.width / pixelsPerPoint,
                rect.height / pixelsPerPoint };
            damage.add(pixelsOf(layout.phone.onSheet(points), unit));
        }
    }
    for (std::size_t i = 0; i < std::max(m_elements.size(), sheet.elements.size()); ++i) {
        const bool isOld = i < m_elements.size();
        const bool isNew = i < sheet.elements.size();
        if (isOld && isNew && m_elements[i] == sheet.elements[i])
            continue;
        if (isOld)
            damage.add(extentOf(m_elements[i], unit));
        if (isNew)
            damage.add(extentOf(sheet.elements[i], unit));
    }
    m_elements = sheet.elements;

    std::vector<PixelRect> changed;
    for (const PixelRect& rect : damage.rectangles()) {
        const PixelRect inside = render::intersection(rect, m_canvas.extent());
        if (!inside.isEmpty())
            changed.push_back(inside);
    }
    if (!changed.empty())
        drawElements(layout, damage);
    return { m_canvas, std::move(changed) };
}

void WindowPicture::drawElements(const Layout& layout, const Damage& damage)
{
    const auto context = m_canvas.makeContext();
    damage.clip(context.get());
    for (const Element& element : m_elements) {
        if (damage.touches(extentOf(element, layout.unit)))
            std::visit([&](const auto& any) { draw(context.get(), any, layout.unit); }, element);
    }
    cairo_surface_flush(m_canvas.surface());
}

void drawBox(cairo_t* context, const Box& box, double unit)
{
    const Area area = snapped(box.area, unit);
    const double radius = box.radius * unit;
    const auto outline = [&](double inset) {
        const Area inner = area.inset(inset, inset);
        render::addOutline(
            context, { render::translation(inner.x, inner.y), { inner.width, inner.height }, radius - inset, false });
    };
    setColor(context, box.fill);
    outline(0);
    cairo_fill(context);
    if (!box.border)
        return;
    const double width = std::max(std::round(unit), 1.0);
    cairo_set_line_width(context, width);
    setColor(context, *box.border);
    outline(width / 2);
    cairo_stroke(context);
}

void drawRim(cairo_t* context, const Rim& rim, double unit)
{
    const Area area = snapped(rim.area, unit);
    cairo_save(context);
    cairo_rectangle(context, area.x, area.y, area.width, area.height);
    render::addOutline(
        context, { render::translation(area.x, area.y), { area.width, area.height }, rim.radius * unit, true });
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    setColor(context, rim.fill);
    cairo_fill(context);
    cairo_restore(context);
}

void WindowPicture::draw(cairo_t* context, const Box& box, double unit) const
{
    drawBox(context, box, unit);
}

void WindowPicture::draw(cairo_t* context, const Rim& rim, double unit) const
{
    drawRim(context, rim, unit);
}

void WindowPicture::draw(cairo_t* context, const Text& text, double unit) const
{
    cairo_save(context);
    cairo_scale(context, unit, unit);
    cairo_translate(context, text.area.x, text.area.y);
    setColor(context, text.color);
    m_renderer.typesetter().draw(context, text.text, text.style, { text.area.width, text.area.height });
    cairo_restore(context);
}

void WindowPicture::draw(cairo_t* context, const ScreenPicture& picture, double unit) const
{
    if (m_screen == nullptr)
        return;
    const ScreenSize& screen = m_layout.phone.screenSize();
    const double pixelsPerPoint = m_layout.phone.unitsPerPoint() * unit;
    const Area area { picture.area.x * unit, picture.area.y * unit, picture.area.width * unit,
        picture.area.height * unit };
    cairo_save(context);
    const Area whole = snapped(picture.area, unit);
    cairo_rectangle(context, whole.x, whole.y, whole.width, whole.height);
    cairo_clip(context);
    cairo_translate(context, area.x + area.width / 2, area.y + area.height / 2);
    cairo_rotate(context, -render::interfaceAngle(picture.orientation));
    cairo_set_source_surface(
        context, m_screen->surface(), -screen.width * pixelsPerPoint / 2, -screen.height * pixelsPerPoint / 2);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_NEAREST); // pixel for pixel
    cairo_paint(context);
    cairo_restore(context);
}

} // namespace panotra::sim
