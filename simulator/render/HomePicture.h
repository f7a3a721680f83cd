/// What lies behind the mixer: a plain home screen of our own, and the status bar.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/render/Shapes.h"
#include "simulator/render/Typesetter.h"
#include "simulator/render/Wallpaper.h"

#include <cstdint>
#include <optional>
#include <string>

namespace panotra::render {

/// The home screen, without status bar, on the whole bitmap (Opaque) of an upright screen: wallpaper, tiles with their
/// names, a dock. It is turned so that it stands upright for who looks at an interface of that orientation.
void drawHomeScreen(Bitmap& bitmap, double pixelsPerPoint, const Wallpaper& wallpaper, const Typesetter& typesetter,
    std::int64_t orientation = 1);

/// The tile at a point of the home screen, without its name; none if there is none. Points from the top left of the
/// interface as it is turned, whose size is `interface`.
std::optional<Shape> tileAt(Size interface, Point point);

/// Points; the same at every orientation.
inline constexpr double statusBarHeight = 20;

/// Signal, time and battery in a rectangle of `size` at the context's origin, black or white as asked for.
void drawStatusBar(cairo_t* context, Size size, const std::string& time, bool isBlack, const Typesetter& typesetter);

/// A group of the signs' drawing, as large as fits into a rectangle of `size` at the context's origin.
void drawSign(cairo_t* context, Size size, const std::string& name);

/// Whether black is more legible than white on that part of the picture (Opaque).
bool isLight(const Bitmap& bitmap, const PixelRect& area);

} // namespace panotra::render
