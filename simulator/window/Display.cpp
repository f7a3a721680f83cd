/// SDL's window with a surface in memory: what changed goes to the display, nothing else does.
#include "simulator/window/Display.h"

#include "simulator/window/Palette.h"
#include "simulator/window/WindowPicture.h"
#include "simulator/window/X11Scale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace panotra::sim {

/// SDL would make do without any display, and draw where nobody looks. Whoever names a driver knows what they want.
bool chooseVideoDriver(std::string& failure)
{
    if (std::getenv("SDL_VIDEODRIVER") != nullptr)
        return true;
    if (std::getenv("DISPLAY") != nullptr)
        SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11");
    else if (std::getenv("WAYLAND_DISPLAY") != nullptr)
        SDL_SetHint(SDL_HINT_VIDEODRIVER, "wayland");
    else
        failure = "neither DISPLAY nor WAYLAND_DISPLAY is set";
    return failure.empty();
}

namespace {

/// How much of the display a new window takes, and how much larger than made for it may be.
constexpr double partOfDisplay = 0.92;
constexpr double largestGrowth = 1.25;

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

bool isWayland()
{
    const char* const driver = SDL_GetCurrentVideoDriver();
    return driver != nullptr && std::string_view(driver) == "wayland";
}

/// Whether enough of it could be seen and reached there.
bool isOnDisplay(const WindowPlace& place)
{
    constexpr int enough = 100;
    const SDL_Rect window { place.x, place.y, place.width, place.height };
    for (int i = 0; i < SDL_GetNumVideoDisplays(); ++i) {
        SDL_Rect usable {};
        SDL_Rect seen {};
        if (SDL_GetDisplayUsableBounds(i, &usable) == 0 && SDL_IntersectRect(&window, &usable, &seen) == SDL_TRUE
            && seen.w >= enough && seen.h >= enough && window.y >= usable.y)
            return true;
    }
    return false;
}

} // namespace

std::unique_ptr<Display> Display::open(const Wish& wish, std::string& failure)
{
    if (!chooseVideoDriver(failure))
        return nullptr;
    // The surface goes to the display without a graphics library in between, and in parts.
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    // Nobody writes here: keys are single letters. Reading how letters are composed would take longer than all else
    // that SDL does before there is a window.
    setenv("XCOMPOSEFILE", "/dev/null", 0);
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        failure = SDL_GetError();
        return nullptr;
    }
    std::unique_ptr<Display> display(new Display);
    display->m_forcedScale = wish.scale;
    // X11 has no scale of its own: what desktops leave is how fine fonts are. What a monitor says of its size in inches
    // is not taken, for projectors have none.
    if (!isWayland() && !wish.scale)
        display->m_scaleOfX11 = scaleOfX11();
    SDL_Rect place { SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 0, 0 };
    if (wish.place && isOnDisplay(*wish.place)) {
        place = { wish.place->x, wish.place->y, wish.place->width, wish.place->height };
    } else {
        SDL_Rect usable { 0, 0, static_cast<int>(sheetWidth), static_cast<int>(sheetHeight) };
        SDL_GetDisplayUsableBounds(0, &usable);
        // Where units of the display are not pixels, they have the scale in them already.
        const double growth = largestGrowth * (isWayland() ? 1 : display->scale());
        const double factor
            = std::min({ usable.w * partOfDisplay / sheetWidth, usable.h * partOfDisplay / sheetHeight, growth });
        place.w = std::max(static_cast<int>(sheetWidth * factor), 1);
        place.h = std::max(static_cast<int>(sheetHeight * factor), 1);
    }
    display->m_window = SDL_CreateWindow(
        "Panotra", place.x, place.y, place.w, place.h, SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
    if (display->m_window == nullptr || SDL_GetWindowSurface(display->m_window) == nullptr) {
        failure = SDL_GetError();
        return nullptr;
    }
    constexpr int smallestWidth = 360;
    constexpr int smallestHeight = 480;
    SDL_SetWindowMinimumSize(display->m_window, smallestWidth, smallestHeight);
    display->m_arrow = SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_ARROW);
    display->m_hand = SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_HAND);
    display->setIcon();
    return display;
}

Display::~Display()
{
    SDL_FreeCursor(m_hand);
    SDL_FreeCursor(m_arrow);
    if (m_window != nullptr)
        SDL_DestroyWindow(m_window);
    SDL_Quit();
}

void Display::setTitle(const std::string& title)
{
    SDL_SetWindowTitle(m_window, title.c_str());
}

void Display::setPointing(bool isPointing)
{
    if (isPointing == m_isPointing)
        return;
    m_isPointing = isPointing;
    SDL_SetCursor(isPointing ? m_hand : m_arrow);
}

/// Three sliders on a dark plate.
void Display::setIcon()
{
    constexpr int side = 64;
    render::Bitmap icon(side, side, render::PixelFormat::Translucent);
    const auto context = icon.makeContext();
    drawBox(context.get(), Box { { 2, 2, 60, 60 }, palette::card, 14, palette::bodyEdge }, 1);
    constexpr std::array levels { 0.75, 0.4, 0.6 };
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const double y = 15 + 14 * static_cast<double>(i);
        drawBox(context.get(), Box { { 12, y, 40, 6 }, palette::keyCap, 3 }, 1);
        drawBox(context.get(), Box { { 12, y, 40 * levels[i], 6 }, palette::accent, 3 }, 1);
    }
    cairo_surface_flush(icon.surface());
    const std::unique_ptr<SDL_Surface, FreeSurface> surface(
        SDL_CreateRGBSurfaceWithFormatFrom(cairo_image_surface_get_data(icon.surface()), side, side, 32,
            cairo_image_surface_get_stride(icon.surface()), SDL_PIXELFORMAT_ARGB8888));
    if (surface != nullptr)
        SDL_SetWindowIcon(m_window, surface.get());
}

double Display::scale() const
{
    if (m_forcedScale)
        return *m_forcedScale;
    if (isWayland())
        return m_window == nullptr ? 1 : pixelsPerPointerUnit();
    return m_scaleOfX11;
}

WindowPlace Display::place() const
{
    WindowPlace place;
    SDL_GetWindowPosition(m_window, &place.x, &place.y);
    SDL_GetWindowSize(m_window, &place.width, &place.height);
    return place;
}

PixelSize Display::size() const
{
    PixelSize size;
    SDL_GetWindowSizeInPixels(m_window, &size.width, &size.height);
    return { std::max(size.width, 1), std::max(size.height, 1) };
}

double Display::pixelsPerPointerUnit() const
{
    int width = 1;
    SDL_GetWindowSize(m_window, &width, nullptr);
    return static_cast<double>(size().width) / std::max(width, 1);
}

void Display::raise() const
{
    SDL_RaiseWindow(m_window);
}

Display::Shown Display::show(
    const render::Bitmap& picture, const std::vector<render::PixelRect>& changed, std::string& failure)
{
    const auto failed = [&failure] {
        failure = SDL_GetError();
        return Shown::Failed;
    };
    SDL_Surface* const window = SDL_GetWindowSurface(m_window);
    if (window == nullptr)
        return failed();
    if (window->w != picture.width() || window->h != picture.height())
        return Shown::OtherSize;
    cairo_surface_t* const pixels = picture.surface();
    const std::unique_ptr<SDL_Surface, FreeSurface> source(
        SDL_CreateRGBSurfaceWithFormatFrom(cairo_image_surface_get_data(pixels), picture.width(), picture.height(), 32,
            cairo_image_surface_get_stride(pixels), SDL_PIXELFORMAT_RGB888));
    if (source == nullptr)
        return failed();
    std::vector<SDL_Rect> rectangles;
    for (const render::PixelRect& rect : changed) {
        SDL_Rect place { rect.x, rect.y, rect.width, rect.height };
        if (SDL_BlitSurface(source.get(), &place, window, &place) != 0)
            return failed();
        rectangles.push_back({ rect.x, rect.y, rect.width, rect.height });
    }
    if (SDL_UpdateWindowSurfaceRects(m_window, rectangles.data(), static_cast<int>(rectangles.size())) != 0)
        return failed();
    return Shown::Whole;
}

} // namespace panotra::sim
