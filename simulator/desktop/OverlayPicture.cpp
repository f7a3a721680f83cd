/// The view alone, and how much of the pixels behind it is left.
#include "simulator/desktop/OverlayPicture.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace panotra::sim {

using render::Bitmap;
using render::PixelFormat;
using render::PixelRect;

namespace {

constexpr std::uint32_t allOfIt = 255;
constexpr int bitsOfChannel = 8;

/// What is seen through the mixer where nobody knows what is behind it.
constexpr std::uint32_t plainBehind = 0xff'5a'66'78;

Bitmap plainBitmap(const PixelRect& size)
{
    Bitmap bitmap(size.width, size.height, PixelFormat::Opaque);
    for (int y = 0; y < bitmap.height(); ++y)
        std::ranges::fill(bitmap.row(y), plainBehind);
    bitmap.markChanged();
    return bitmap;
}

/// The pixel of the mixer alone, multiplied by how much it hides: what the picture holds of what is behind is taken
/// off.
std::uint32_t alone(std::uint32_t pixel, std::uint32_t behind, std::uint32_t hidden)
{
    if (hidden == 0)
        return 0;
    std::uint32_t result = hidden << 3 * bitsOfChannel;
    for (int shift = 0; shift < 3 * bitsOfChannel; shift += bitsOfChannel) {
        const std::uint32_t seen = pixel >> shift & allOfIt;
        const std::uint32_t left = ((behind >> shift & allOfIt) * (allOfIt - hidden) + allOfIt / 2) / allOfIt;
        result |= std::min(seen - std::min(seen, left), hidden) << shift;
    }
    return result;
}

} // namespace

OverlayPicture::OverlayPicture(
    render::Renderer& renderer, const Device& device, Bitmap behind, const PixelRect& crop, Kind kind)
    : m_renderer(renderer)
    , m_crop(crop)
    , m_kind(kind)
    , m_behind(std::make_shared<const Bitmap>(
          behind.isEmpty() ? plainBitmap(render::screenPixels(device)) : std::move(behind)))
    , m_pixels(crop.width, crop.height, kind == Kind::Opaque ? PixelFormat::Opaque : PixelFormat::Translucent)
    , m_mask(static_cast<std::size_t>(crop.width) * static_cast<std::size_t>(crop.height))
{
    m_renderer.setWallpaper(render::Wallpaper::ofPicture(m_behind));
}

OverlayPicture::Frame OverlayPicture::draw(const Device& device, const View& mixer)
{
    const render::Renderer::Frame screen = m_renderer.drawView(device, mixer);
    const render::Presence presence = render::presenceOf(device, mixer);
    Frame frame { m_pixels, {} };
    std::vector<PixelRect> changed = screen.changed;
    if (m_kind == Kind::Translucent && presence != m_presence) {
        makeMask(presence);
        changed = { m_crop };
    }
    m_presence = presence;
    for (const PixelRect& rect : changed) {
        PixelRect part = intersection(intersection(rect, m_crop), screen.pixels.extent());
        if (part.isEmpty())
            continue;
        if (m_kind == Kind::Translucent)
            copyTranslucent(screen.pixels, part);
        else
            copy(screen.pixels, part);
        part.x -= m_crop.x;
        part.y -= m_crop.y;
        frame.changed.push_back(part);
    }
    m_pixels.markChanged();
    return frame;
}

void OverlayPicture::copy(const Bitmap& screen, const PixelRect& part)
{
    for (int y = part.y; y < part.y + part.height; ++y) {
        const auto from = screen.row(y).subspan(static_cast<std::size_t>(part.x), static_cast<std::size_t>(part.width));
        std::ranges::copy(from, m_pixels.row(y - m_crop.y).begin() + (part.x - m_crop.x));
    }
}

void OverlayPicture::copyTranslucent(const Bitmap& screen, const PixelRect& part)
{
    for (int y = part.y; y < part.y + part.height; ++y) {
        const auto seen = screen.row(y);
        const auto behind = m_behind->row(y);
        const auto to = m_pixels.row(y - m_crop.y);
        const std::uint8_t* const mask
            = m_mask.data() + static_cast<std::ptrdiff_t>(y - m_crop.y) * m_crop.width - m_crop.x;
        for (int x = part.x; x < part.x + part.width; ++x) {
            const auto column = static_cast<std::size_t>(x);
            to[static_cast<std::size_t>(x - m_crop.x)] = alone(seen[column], behind[column], mask[x]);
        }
    }
}

void OverlayPicture::makeMask(const render::Presence& presence)
{
    Bitmap shape(m_crop.width, m_crop.height, PixelFormat::Translucent);
    const auto context = shape.makeContext();
    render::Shape moved = presence.shape;
    moved.transform = render::compose(render::translation(-m_crop.x, -m_crop.y), moved.transform);
    addOutline(context.get(), moved);
    cairo_set_source_rgba(context.get(), 0, 0, 0, std::min(presence.opacity, 1.0));
    cairo_fill(context.get());
    cairo_surface_flush(shape.surface());
    auto mask = m_mask.begin();
    for (int y = 0; y < m_crop.height; ++y) {
        for (const std::uint32_t pixel : std::as_const(shape).row(y))
            *mask++ = static_cast<std::uint8_t>(pixel >> 3 * bitsOfChannel);
    }
}

} // namespace panotra::sim
