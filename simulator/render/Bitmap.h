/// Pictures in memory.
#pragma once

#include "simulator/render/Handles.h"
#include "simulator/render/Shapes.h"

#include <cstdint>
#include <cstdio>
#include <optional>
#include <span>
#include <string>

namespace panotra::render {

enum class PixelFormat : std::uint8_t {
    Opaque, ///< 32 bits a pixel, native byte order: unused, red, green, blue from the highest byte down
    Translucent, ///< the same with alpha highest and the colours multiplied by it
    Mask, ///< 8 bits of coverage a pixel
};

/// Owns its pixels. An empty bitmap has none; nothing may be asked of it but whether it is empty, and its size.
class Bitmap {
public:
    Bitmap() = default;
    /// Cleared to black or transparency. Sizes above 0; one that does not fit into memory gives an empty bitmap.
    Bitmap(int width, int height, PixelFormat format);
    /// The same with pixels that are whatever the memory holds, for those who write every one of them.
    static Bitmap uncleared(int width, int height, PixelFormat format);
    /// Takes over an image surface. One that failed gives an empty bitmap.
    explicit Bitmap(Handle<cairo_surface_t> surface);

    bool isEmpty() const { return m_surface == nullptr; }
    int width() const { return isEmpty() ? 0 : cairo_image_surface_get_width(m_surface.get()); }
    int height() const { return isEmpty() ? 0 : cairo_image_surface_get_height(m_surface.get()); }
    PixelRect extent() const { return { 0, 0, width(), height() }; }
    /// Borrowed, for cairo to read or draw on.
    cairo_surface_t* surface() const { return m_surface.get(); }
    Handle<cairo_t> makeContext() const { return Handle<cairo_t>(cairo_create(m_surface.get())); }

    /// One row of an Opaque or Translucent bitmap.
    std::span<const std::uint32_t> row(int y) const;
    /// For writing; `markChanged` tells cairo afterwards.
    std::span<std::uint32_t> row(int y);
    void markChanged() { cairo_surface_mark_dirty(m_surface.get()); }

private:
    Handle<cairo_surface_t> m_surface;
};

/// Answers why the picture could not be written, or nothing.
std::optional<std::string> writePng(const Bitmap& bitmap, const std::string& path);
/// The same into a stream that is open, and stays so.
std::optional<std::string> writePng(const Bitmap& bitmap, std::FILE& stream);

/// An empty bitmap and the reason in `failure` if the file is no readable PNG.
Bitmap readPng(const std::string& path, std::string& failure);

} // namespace panotra::render
