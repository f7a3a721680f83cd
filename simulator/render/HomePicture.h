/// What lies behind the mixer: a plain home screen of our own, and the status bar.
#pragma once

#include "simulator/render/Bitmap.h"
#include "simulator/render/Typesetter.h"
#include "simulator/render/Wallpaper.h"

#include <string>

namespace panotra::render {

/// The home screen upright, without status bar, on the whole bitmap (Opaque): wallpaper, tiles with their names, a
/// dock. It does not turn: on phones of this kind only the status bar follows the orientation.
void drawHomeScreen(Bitmap& bitmap, double pixelsPerPoint, const Wallpaper& wallpaper, const Typesetter& typesetter);

/// Points; the same at every orientation.
inline constexpr double statusBarHeight = 20;

/// Signal, time and battery in a rectangle of `size` at the context's origin, black or white as asked for.
void drawStatusBar(cairo_t* context, Size size, const std::string& time, bool isBlack, const Typesetter& typesetter);

/// A group of the signs' drawing, as large as fits into a rectangle of `size` at the context's origin.
void drawSign(cairo_t* context, Size size, const std::string& name);

/// Whether black is more legible than white on that part of the picture (Opaque).
bool isLight(const Bitmap& bitmap, const PixelRect& area);

} // namespace panotra::render
