/// A dark sheet, so that light and dark pictures stand on it alike.
#include "simulator/gallery/ContactSheet.h"

#include <algorithm>

namespace panotra::sim {
namespace {

using render::TextAlignment;
using render::TextWeight;

// Pixels.
constexpr int margin = 32;
constexpr int gap = 24;
constexpr int rowCaptionHeight = 36;
constexpr int captionHeight = 30;
constexpr double roundness = 14;

/// Pictures below each other.
struct Column {
    std::vector<const CaptionedPicture*> pictures;

    int width() const
    {
        int width = 0;
        for (const CaptionedPicture* const picture : pictures)
            width = std::max(width, picture->pixels.width());
        return width;
    }
    int height() const
    {
        int height = 0;
        for (const CaptionedPicture* const picture : pictures)
            height += picture->pixels.height() + captionHeight;
        return height;
    }
};

std::vector<Column> columnsOf(const SheetRow& row)
{
    std::vector<Column> columns;
    for (const CaptionedPicture& picture : row.pictures) {
        if (columns.empty() || !picture.isBelow)
            columns.emplace_back();
        columns.back().pictures.push_back(&picture);
    }
    return columns;
}

int widthOf(const SheetRow& row)
{
    int width = 0;
    for (const Column& column : columnsOf(row))
        width += column.width() + gap;
    return width - gap;
}

int heightOf(const SheetRow& row)
{
    int height = 0;
    for (const Column& column : columnsOf(row))
        height = std::max(height, column.height());
    return rowCaptionHeight + height;
}

void drawCaption(cairo_t* context, const std::string& caption, const render::TextStyle& style, render::Point at,
    render::Size size, const render::Typesetter& typesetter)
{
    cairo_save(context);
    cairo_translate(context, at.x, at.y);
    cairo_set_source_rgb(context, 0.78, 0.79, 0.83);
    typesetter.draw(context, caption, style, size);
    cairo_restore(context);
}

void drawPicture(cairo_t* context, const render::Bitmap& pixels, int x, int y)
{
    const render::Size size { static_cast<double>(pixels.width()), static_cast<double>(pixels.height()) };
    cairo_set_source_surface(context, pixels.surface(), x, y);
    render::addOutline(context, { render::translation(x, y), size, roundness, true });
    cairo_fill(context);
}

} // namespace

render::Bitmap contactSheet(const std::vector<SheetRow>& rows, const render::Typesetter& typesetter)
{
    int width = 0;
    int height = 2 * margin - gap;
    for (const SheetRow& row : rows) {
        width = std::max(width, widthOf(row) + 2 * margin);
        height += heightOf(row) + gap;
    }
    render::Bitmap sheet(width, height, render::PixelFormat::Opaque);
    const auto context = sheet.makeContext();
    cairo_set_source_rgb(context.get(), 0.085, 0.09, 0.11);
    cairo_paint(context.get());

    int y = margin;
    for (const SheetRow& row : rows) {
        drawCaption(context.get(), row.caption, { 19, TextWeight::Medium, TextAlignment::Left },
            { margin, static_cast<double>(y) }, { static_cast<double>(width - 2 * margin), rowCaptionHeight - 8.0 },
            typesetter);
        int x = margin;
        for (const Column& column : columnsOf(row)) {
            int top = y + rowCaptionHeight;
            for (const CaptionedPicture* const picture : column.pictures) {
                const render::Bitmap& pixels = picture->pixels;
                drawPicture(context.get(), pixels, x, top);
                top += pixels.height();
                drawCaption(context.get(), picture->caption, { 15, TextWeight::Regular, TextAlignment::Center },
                    { static_cast<double>(x), static_cast<double>(top) },
                    { static_cast<double>(pixels.width()), captionHeight }, typesetter);
                top += captionHeight;
            }
            x += column.width() + gap;
        }
        y += heightOf(row) + gap;
    }
    return sheet;
}

} // namespace panotra::sim
