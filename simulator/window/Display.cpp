/// SDL's window with a surface in memory: what changed goes to the display, nothing else does.
#include "simulator/window/Display.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

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

} // namespace

std::unique_ptr<Display> Display::open(const char* title, std::string& failure)
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
    SDL_Rect usable { 0, 0, static_cast<int>(sheetWidth), static_cast<int>(sheetHeight) };
    SDL_GetDisplayUsableBounds(0, &usable);
    const double factor
        = std::min({ usable.w * partOfDisplay / sheetWidth, usable.h * partOfDisplay / sheetHeight, largestGrowth });
    display->m_window = SDL_CreateWindow(title, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
        std::max(static_cast<int>(sheetWidth * factor), 1), std::max(static_cast<int>(sheetHeight * factor), 1),
        SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
    if (display->m_window == nullptr || SDL_GetWindowSurface(display->m_window) == nullptr) {
        failure = SDL_GetError();
        return nullptr;
    }
    constexpr int smallestWidth = 240;
    constexpr int smallestHeight = 320;
    SDL_SetWindowMinimumSize(display->m_window, smallestWidth, smallestHeight);
    return display;
}

Display::~Display()
{
    if (m_window != nullptr)
        SDL_DestroyWindow(m_window);
    SDL_Quit();
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
