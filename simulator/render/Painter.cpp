/// Drawing item by item, with cairo.
#include "simulator/render/Painter.h"

#include "simulator/render/Blur.h"
#include "simulator/render/HomePicture.h"

#include <utility>
#include <variant>

namespace panotra::render {
namespace {

void setColor(cairo_t* context, const Rgba& color)
{
    cairo_set_source_rgba(context, color[0], color[1], color[2], color[3]);
}

/// A source that is `bitmap`, its first pixel at (x, y) of the screen.
void setBitmap(cairo_t* context, const Bitmap& bitmap, const PixelRect& extent)
{
    cairo_set_source_surface(context, bitmap.surface(), extent.x, extent.y);
}

/// Edges of what is turning, for a frame, are counted in sixteen steps; nobody sees the difference.
void setAntialias(cairo_t* context, const Shape& shape)
{
    cairo_set_antialias(context, shape.isStraight() ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_FAST);
}

bool isBeginning(const Item& item)
{
    return item.as<ClipItem>() != nullptr || item.as<GroupItem>() != nullptr;
}

bool isEnd(const Item& item)
{
    return item.as<ClipEndItem>() != nullptr || item.as<GroupEndItem>() != nullptr;
}

enum class Coverage { None, Partial, Whole };

/// How much a Translucent bitmap hides in the area.
Coverage coverageIn(const Bitmap& bitmap, const PixelRect& area)
{
    constexpr std::uint32_t opaque = 0xff000000;
    std::uint32_t inAny = 0;
    std::uint32_t inAll = opaque;
    for (int y = area.y; y < area.y + area.height; ++y) {
        const auto row = bitmap.row(y);
        for (int x = area.x; x < area.x + area.width; ++x) {
            const std::uint32_t pixel = row[static_cast<std::size_t>(x)];
            inAny |= pixel;
            inAll &= pixel;
        }
        if (inAny != 0 && inAll != opaque)
            return Coverage::Partial;
    }
    return inAny == 0 ? Coverage::None : Coverage::Whole;
}

PixelRect within(const PixelRect& extent, const PixelRect& area)
{
    return { area.x - extent.x, area.y - extent.y, area.width, area.height };
}

} // namespace

Painter::Painter(
    const PaintBox& box, const Scene& scene, std::span<Bitmap> products, const Damage& damage, Bitmap& canvas)
    : m_box(box)
    , m_scene(scene)
    , m_products(products)
    , m_damage(damage)
    , m_canvas(canvas)
{
    m_layers.push_back({ {}, canvas.extent(), canvas.makeContext(), nullptr });
    damage.clip(context());
}

void Painter::paint()
{
    for (std::size_t i = firstSeen(); i < m_scene.size(); ++i) {
        const Item& item = m_scene[i];
        const auto* const group = item.as<GroupItem>();
        if (!m_damage.touches(item.extent)) {
            i = isBeginning(item) ? endOf(i) : i;
        } else if (group != nullptr && !m_products[i].isEmpty()) {
            paintGroup(m_products[i], item.extent, group->opacity);
            i = endOf(i);
        } else {
            setAntialias(context(), item.shape);
            std::visit([&](const auto& content) { paint(content, item, m_products[i]); }, item.content);
        }
    }
}

/// Whatever lies behind a blurred backdrop that fills the screen and is ready to be used is not seen.
std::size_t Painter::firstSeen() const
{
    std::size_t first = 0;
    for (std::size_t i = 0; i < m_scene.size(); i = isBeginning(m_scene[i]) ? endOf(i) + 1 : i + 1) {
        const auto* const backdrop = m_scene[i].as<BackdropItem>();
        if (backdrop != nullptr && backdrop->opacity >= 1 && m_scene[i].extent == m_canvas.extent()
            && !m_products[i].isEmpty())
            first = i;
    }
    return first;
}

std::size_t Painter::endOf(std::size_t begin) const
{
    std::size_t end = begin;
    for (int depth = 1; depth > 0;) {
        const Item& item = m_scene[++end];
        depth += isBeginning(item) ? 1 : isEnd(item) ? -1 : 0;
    }
    return end;
}

void Painter::keepToDamage()
{
    cairo_reset_clip(context());
    m_damage.clip(context());
}

void Painter::paintSource(const Item& item, double opacity)
{
    cairo_save(context());
    if (!item.fillsClip) {
        addOutline(context(), item.shape);
        cairo_clip(context());
    }
    if (opacity < 1)
        cairo_paint_with_alpha(context(), opacity);
    else
        cairo_paint(context());
    cairo_restore(context());
}

const Painter::Layer* Painter::soleLayerIn(const PixelRect& area) const
{
    std::size_t top = m_layers.size() - 1;
    for (; top > 0; --top) {
        const Coverage coverage = coverageIn(m_layers[top].bitmap, within(m_layers[top].extent, area));
        if (coverage != Coverage::None)
            return coverage == Coverage::Whole ? &m_layers[top] : nullptr;
    }
    return &m_layers[0];
}

Bitmap Painter::flattened(const PixelRect& area) const
{
    Bitmap flat(area.width, area.height, PixelFormat::Opaque);
    const auto context = flat.makeContext();
    cairo_set_source_surface(context.get(), m_canvas.surface(), -area.x, -area.y);
    cairo_paint(context.get());
    for (std::size_t i = 1; i < m_layers.size(); ++i) {
        const Layer& layer = m_layers[i];
        setBitmap(context.get(), layer.bitmap, { layer.extent.x - area.x, layer.extent.y - area.y });
        cairo_paint(context.get());
    }
    return flat;
}

template <typename Draw> Bitmap Painter::made(const Item& item, PixelFormat format, Draw draw) const
{
    Bitmap bitmap(item.extent.width, item.extent.height, format);
    const auto context = bitmap.makeContext();
    setAntialias(context.get(), item.shape);
    cairo_translate(context.get(), -item.extent.x, -item.extent.y);
    const cairo_matrix_t matrix = cairoMatrix(item.shape.transform);
    cairo_transform(context.get(), &matrix);
    draw(context.get());
    return bitmap;
}

void Painter::paint(const HomeItem& home, const Item& item, Bitmap& product)
{
    if (home.isBare) {
        m_box.wallpaper.draw(
            context(), { static_cast<double>(item.extent.width), static_cast<double>(item.extent.height) });
        return;
    }
    if (product.isEmpty()) {
        product = Bitmap(item.extent.width, item.extent.height, PixelFormat::Opaque);
        drawHomeScreen(product, m_box.pixelsPerPoint, m_box.wallpaper, m_box.typesetter, home.orientation);
    }
    setBitmap(context(), product, item.extent);
    cairo_paint(context());
}

void Painter::paint(const StatusBarItem& bar, const Item& item, Bitmap& product)
{
    if (product.isEmpty()) {
        const bool isBlack = isLight(m_canvas, item.extent);
        product = made(item, PixelFormat::Translucent,
            [&](cairo_t* context) { drawStatusBar(context, item.shape.size, bar.time, isBlack, m_box.typesetter); });
    }
    setBitmap(context(), product, item.extent);
    cairo_paint(context());
}

void Painter::paint(const FillItem& fill, const Item& item, Bitmap&)
{
    setColor(context(), fill.color);
    paintSource(item, 1);
}

void Painter::paint(const BackdropItem& backdrop, const Item& item, Bitmap& product)
{
    if (product.isEmpty()) {
        const PixelRect& area = item.extent;
        const Layer* const sole = soleLayerIn(area);
        product = sole != nullptr
            ? seenThrough(sole == &m_layers[0] ? m_canvas : sole->bitmap, within(sole->extent, area), backdrop.sigma,
                backdrop.material)
            : seenThrough(flattened(area), { 0, 0, area.width, area.height }, backdrop.sigma, backdrop.material);
    }
    setBitmap(context(), product, item.extent);
    paintSource(item, backdrop.opacity);
}

void Painter::paint(const TextItem& text, const Item& item, Bitmap& product)
{
    if (product.isEmpty()) {
        product = made(item, PixelFormat::Mask,
            [&](cairo_t* context) { m_box.typesetter.draw(context, text.text, text.style, item.shape.size); });
    }
    setColor(context(), text.color);
    cairo_mask_surface(context(), product.surface(), item.extent.x, item.extent.y);
}

void Painter::paint(const ImageItem& image, const Item& item, Bitmap& product)
{
    if (product.isEmpty()) {
        product = made(item, image.isTemplate ? PixelFormat::Mask : PixelFormat::Translucent,
            [&](cairo_t* context) { m_box.images.draw(context, image.file, item.shape.size); });
    }
    if (image.isTemplate) {
        setColor(context(), image.tint);
        cairo_mask_surface(context(), product.surface(), item.extent.x, item.extent.y);
    } else {
        setBitmap(context(), product, item.extent);
        cairo_paint(context());
    }
}

void Painter::paint(const SignItem& sign, const Item& item, Bitmap& product)
{
    if (product.isEmpty()) {
        product
            = made(item, PixelFormat::Mask, [&](cairo_t* context) { drawSign(context, item.shape.size, sign.name); });
    }
    setColor(context(), sign.color);
    cairo_mask_surface(context(), product.surface(), item.extent.x, item.extent.y);
}

void Painter::paint(const BorderItem& border, const Item& item, Bitmap&)
{
    cairo_t* const to = context();
    cairo_save(to);
    if (border.isWhole)
        keepToDamage();
    // The outer edge is the clip's where there is one: then a larger box stands for it.
    if (item.fillsClip && !border.isWhole)
        cairo_rectangle(to, item.extent.x, item.extent.y, item.extent.width, item.extent.height);
    else
        addOutline(to, item.shape);
    if (const auto inner = item.shape.inset(border.width))
        addOutline(to, *inner);
    cairo_set_fill_rule(to, CAIRO_FILL_RULE_EVEN_ODD);
    setColor(to, border.color);
    cairo_fill(to);
    cairo_restore(to);
}

void Painter::paint(const ClipItem& clip, const Item& item, Bitmap&)
{
    cairo_save(context());
    if (clip.isWhole)
        keepToDamage();
    addOutline(context(), item.shape);
    cairo_clip(context());
}

void Painter::paint(const ClipEndItem&, const Item&, Bitmap&)
{
    cairo_restore(context());
}

void Painter::paint(const GroupItem&, const Item& item, Bitmap& product)
{
    const PixelRect extent = intersection(item.extent, m_damage.bounds());
    Bitmap bitmap(extent.width, extent.height, PixelFormat::Translucent);
    Handle<cairo_t> inside = bitmap.makeContext();
    cairo_translate(inside.get(), -extent.x, -extent.y);
    m_damage.clip(inside.get());
    // What is damaged in part is no product.
    m_layers.push_back(
        { std::move(bitmap), extent, std::move(inside), m_damage.covers(item.extent) ? &product : nullptr });
}

void Painter::paint(const GroupEndItem& end, const Item&, Bitmap&)
{
    Layer layer = std::move(m_layers.back());
    m_layers.pop_back();
    paintGroup(layer.bitmap, layer.extent, end.opacity);
    if (layer.product != nullptr)
        *layer.product = std::move(layer.bitmap);
}

void Painter::paintGroup(const Bitmap& bitmap, const PixelRect& extent, double opacity)
{
    setBitmap(context(), bitmap, extent);
    cairo_paint_with_alpha(context(), opacity);
}

} // namespace panotra::render
