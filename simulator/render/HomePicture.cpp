/// The home screen and the status bar.
#include "simulator/render/HomePicture.h"

#include "simulator/render/Artwork.h"
#include "simulator/render/Blur.h"
#include "simulator/render/Orientation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace panotra::render {
namespace {

/// 0xRRGGBB
using WebColor = std::uint32_t;

double channel(WebColor color, int shift)
{
    return static_cast<double>(color >> shift & 0xff) / 255;
}

struct Tile {
    const char* name;
    const char* glyph; ///< a group in the glyphs' drawing
    WebColor top;
    WebColor bottom;
};

constexpr std::array pageTiles {
    Tile { "Calendar", "calendar", 0xff7a70, 0xe8453f },
    Tile { "Photos", "photos", 0x9aa7ff, 0x6d5ce0 },
    Tile { "Camera", "camera", 0x8b93a3, 0x565d6e },
    Tile { "Weather", "weather", 0x5cb8ff, 0x2878e0 },
    Tile { "Clock", "clock", 0x4a4f63, 0x22252f },
    Tile { "Maps", "maps", 0x6fdc9a, 0x27a86a },
    Tile { "Notes", "notes", 0xffd86b, 0xf5a623 },
    Tile { "Reminders", "reminders", 0xff9f68, 0xf06a3a },
    Tile { "Health", "health", 0xff86ab, 0xe8406f },
    Tile { "Wallet", "wallet", 0x55617a, 0x2a3142 },
    Tile { "Books", "books", 0xffb36b, 0xe8782e },
    Tile { "Stocks", "stocks", 0x4dd0c8, 0x138e92 },
    Tile { "Recorder", "recorder", 0xb388f5, 0x7845d0 },
    Tile { "Calculator", "calculator", 0x8e97a8, 0x5a6376 },
    Tile { "Files", "files", 0x6cc7ff, 0x2f8fe6 },
    Tile { "Store", "store", 0x62a8ff, 0x2f62e0 },
    Tile { "Settings", "settings", 0xa4adba, 0x6c7686 },
};

constexpr std::array dockTiles {
    Tile { "Phone", "phone", 0x6ee787, 0x28b351 },
    Tile { "Mail", "mail", 0x63b4ff, 0x2370ea },
    Tile { "Browser", "browser", 0x62d0f0, 0x2488d8 },
    Tile { "Music", "music", 0xff7f9d, 0xe83e6b },
};

constexpr int dockColumns = 4;
constexpr double tileRoundness = 0.225; ///< of its side
constexpr double pageDotsHeight = 24;
constexpr Material dockMaterial { 20, 1.6, 1, { 1, 1, 1, 0.28 } };

/// The measures of a home screen in points.
struct HomeLayout {
    int columns; ///< as many as upright, or more where there is room beside
    double tile; ///< side of a tile
    double gap; ///< beside tiles, and outside of the outermost
    double firstRow; ///< top of the first row
    double rowPitch;
    int rows;
    double dockTop;

    explicit HomeLayout(Size screen)
        : columns(columnsOf(screen))
        , tile(std::min(screen.width, screen.height) >= 700 ? 76 : 60)
        , gap((screen.width - columns * tile) / (columns + 1))
        , firstRow(statusBarHeight + 12)
        , rowPitch(tile + 28)
        , rows(static_cast<int>((screen.height - firstRow - pageDotsHeight - dockHeight()) / rowPitch))
        , dockTop(screen.height - dockHeight())
    {
    }
    static int columnsOf(Size screen)
    {
        constexpr double wide = 560;
        if (screen.width <= screen.height)
            return dockColumns;
        return screen.width < wide ? dockColumns + 2 : dockColumns + 3;
    }
    double dockHeight() const { return tile + 36; }
    double columnX(int column) const { return gap + column * (tile + gap); }
    int places() const { return std::clamp(rows * columns, 0, static_cast<int>(pageTiles.size())); }
    Point placeOf(int place) const
    {
        const int row = place / columns;
        return { columnX(place % columns), firstRow + row * rowPitch };
    }
    Point dockPlaceOf(int place) const
    {
        const double left = (columns - dockColumns) * (tile + gap) / 2;
        return { left + columnX(place), dockTop + (dockHeight() - tile) / 2 };
    }
};

void drawTile(cairo_t* context, const Tile& tile, double side, const Drawing& glyphs)
{
    const Handle<cairo_pattern_t> gradient(cairo_pattern_create_linear(0, 0, 0, side));
    cairo_pattern_add_color_stop_rgb(
        gradient.get(), 0, channel(tile.top, 16), channel(tile.top, 8), channel(tile.top, 0));
    cairo_pattern_add_color_stop_rgb(
        gradient.get(), 1, channel(tile.bottom, 16), channel(tile.bottom, 8), channel(tile.bottom, 0));
    cairo_save(context);
    // Through a mask, all rows at once: filled by its outline, cairo would ask for the gradient row by row.
    constexpr double room = 2;
    cairo_save(context);
    cairo_rectangle(context, -room, -room, side + 2 * room, side + 2 * room);
    cairo_clip(context);
    cairo_push_group_with_content(context, CAIRO_CONTENT_ALPHA);
    cairo_set_source_rgb(context, 0, 0, 0);
    addOutline(context, { {}, { side, side }, side * tileRoundness, true });
    cairo_fill(context);
    const Handle<cairo_pattern_t> outline(cairo_pop_group(context));
    cairo_set_source(context, gradient.get());
    cairo_mask(context, outline.get());
    cairo_restore(context);
    constexpr double glyphPart = 0.62;
    cairo_translate(context, side * (1 - glyphPart) / 2, side * (1 - glyphPart) / 2);
    glyphs.draw(context, { side * glyphPart, side * glyphPart }, tile.glyph);
    cairo_restore(context);
}

void drawTileName(
    cairo_t* context, const Tile& tile, const HomeLayout& layout, bool isBlack, const Typesetter& typesetter)
{
    constexpr double height = 16;
    constexpr double distance = 4;
    const double width = layout.tile + std::max(layout.gap, 0.0);
    cairo_save(context);
    cairo_translate(context, (layout.tile - width) / 2, layout.tile + distance);
    const double shade = isBlack ? 0.05 : 1;
    cairo_set_source_rgb(context, shade, shade, shade);
    typesetter.draw(context, tile.name, { 11.5, TextWeight::Regular, TextAlignment::Center }, { width, height });
    cairo_restore(context);
}

void drawPageDots(cairo_t* context, Size screen, const HomeLayout& layout, bool isBlack)
{
    constexpr int pages = 3;
    constexpr double pitch = 15;
    constexpr double radius = 3.2;
    const double shade = isBlack ? 0 : 1;
    for (int page = 0; page < pages; ++page) {
        cairo_set_source_rgba(context, shade, shade, shade, page == 0 ? 0.95 : 0.4);
        cairo_arc(context, screen.width / 2 + (page - (pages - 1) / 2.0) * pitch, layout.dockTop - pageDotsHeight / 2,
            radius, 0, 7);
        cairo_fill(context);
    }
}

void drawDock(Bitmap& bitmap, Size screen, const HomeLayout& layout, double pixelsPerPoint)
{
    const Shape shape { compose(scaling(pixelsPerPoint), translation(0, layout.dockTop)),
        { screen.width, layout.dockHeight() } };
    const PixelRect area = intersection(shape.extent(), bitmap.extent());
    if (area.isEmpty())
        return;
    const Bitmap dock = seenThrough(bitmap, area, dockMaterial.blurRadius * pixelsPerPoint, dockMaterial);
    const auto context = bitmap.makeContext();
    cairo_set_source_surface(context.get(), dock.surface(), area.x, area.y);
    addOutline(context.get(), shape);
    cairo_fill(context.get());
}

/// Places the context's origin at the top left of a tile's place and draws there.
template <typename Draw> void atTile(cairo_t* context, Point place, Draw draw)
{
    cairo_save(context);
    cairo_translate(context, place.x, place.y);
    draw();
    cairo_restore(context);
}

void drawUpright(Bitmap& bitmap, double pixelsPerPoint, const Wallpaper& wallpaper, const Typesetter& typesetter)
{
    const Size screen { bitmap.width() / pixelsPerPoint, bitmap.height() / pixelsPerPoint };
    const HomeLayout layout(screen);
    const Drawing glyphs(artwork::glyphs);
    {
        const auto context = bitmap.makeContext();
        wallpaper.draw(context.get(), { static_cast<double>(bitmap.width()), static_cast<double>(bitmap.height()) });
    }
    const bool isBlack = isLight(bitmap, bitmap.extent());
    drawDock(bitmap, screen, layout, pixelsPerPoint);

    const auto context = bitmap.makeContext();
    cairo_scale(context.get(), pixelsPerPoint, pixelsPerPoint);
    for (int i = 0; i < layout.places(); ++i) {
        const Tile& tile = pageTiles[static_cast<std::size_t>(i)];
        atTile(context.get(), layout.placeOf(i), [&] {
            drawTile(context.get(), tile, layout.tile, glyphs);
            drawTileName(context.get(), tile, layout, isBlack, typesetter);
        });
    }
    drawPageDots(context.get(), screen, layout, isBlack);
    for (int i = 0; i < dockColumns; ++i) {
        atTile(context.get(), layout.dockPlaceOf(i),
            [&] { drawTile(context.get(), dockTiles[static_cast<std::size_t>(i)], layout.tile, glyphs); });
    }
}

} // namespace

void drawHomeScreen(Bitmap& bitmap, double pixelsPerPoint, const Wallpaper& wallpaper, const Typesetter& typesetter,
    std::int64_t orientation)
{
    const double angle = interfaceAngle(orientation);
    if (angle == 0)
        return drawUpright(bitmap, pixelsPerPoint, wallpaper, typesetter);
    int width = bitmap.width();
    int height = bitmap.height();
    if (orientation == 3 || orientation == 4)
        std::swap(width, height);
    Bitmap upright(width, height, PixelFormat::Opaque);
    drawUpright(upright, pixelsPerPoint, wallpaper, typesetter);
    const auto context = bitmap.makeContext();
    cairo_translate(context.get(), bitmap.width() / 2.0, bitmap.height() / 2.0);
    cairo_rotate(context.get(), angle);
    cairo_set_source_surface(context.get(), upright.surface(), -width / 2.0, -height / 2.0);
    cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_NEAREST); // pixel for pixel
    cairo_paint(context.get());
}

std::optional<Shape> tileAt(Size interface, Point point)
{
    const HomeLayout layout(interface);
    const auto shapeAt = [&](Point place) -> std::optional<Shape> {
        const bool isInside = point.x >= place.x && point.x < place.x + layout.tile && point.y >= place.y
            && point.y < place.y + layout.tile;
        if (!isInside)
            return std::nullopt;
        return Shape { translation(place.x, place.y), { layout.tile, layout.tile }, layout.tile * tileRoundness, true };
    };
    for (int i = 0; i < layout.places(); ++i) {
        if (const auto shape = shapeAt(layout.placeOf(i)))
            return shape;
    }
    for (int i = 0; i < dockColumns; ++i) {
        if (const auto shape = shapeAt(layout.dockPlaceOf(i)))
            return shape;
    }
    return std::nullopt;
}

void drawSign(cairo_t* context, Size size, const std::string& name)
{
    static const Drawing signs(artwork::signs);
    signs.draw(context, size, name);
}

void drawStatusBar(cairo_t* context, Size size, const std::string& time, bool isBlack, const Typesetter& typesetter)
{
    constexpr double margin = 6;
    constexpr double side = 20;
    const auto sign = [&](const char* name, double x) {
        cairo_save(context);
        cairo_translate(context, x, (size.height - side) / 2);
        cairo_push_group_with_content(context, CAIRO_CONTENT_ALPHA);
        drawSign(context, { side, side }, name);
        const Handle<cairo_pattern_t> shape(cairo_pop_group(context));
        cairo_mask(context, shape.get());
        cairo_restore(context);
    };
    const double shade = isBlack ? 0 : 1;
    cairo_set_source_rgb(context, shade, shade, shade);
    sign("signal", margin);
    sign("wireless", margin + side + 2);
    typesetter.draw(context, time, { 12, TextWeight::Medium, TextAlignment::Center }, size);
    sign("battery", size.width - margin - side);
}

bool isLight(const Bitmap& bitmap, const PixelRect& area)
{
    constexpr double threshold = 160;
    constexpr int step = 8; // every pixel would tell no more
    double sum = 0;
    int count = 0;
    for (int y = area.y; y < area.y + area.height; y += step) {
        const auto row = bitmap.row(y);
        for (int x = area.x; x < area.x + area.width; x += step) {
            const std::uint32_t pixel = row[static_cast<std::size_t>(x)];
            sum += 255 * (0.2126 * channel(pixel, 16) + 0.7152 * channel(pixel, 8) + 0.0722 * channel(pixel, 0));
            ++count;
        }
    }
    return count > 0 && sum / count > threshold;
}

} // namespace panotra::render
