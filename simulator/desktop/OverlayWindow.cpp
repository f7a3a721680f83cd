/// SDL, with hints that make of a window what a desktop's own notices are.
#include "simulator/desktop/OverlayWindow.h"

#include "simulator/window/Display.h"

#include <SDL.h>
#include <SDL_syswm.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace panotra::sim {

using render::PixelRect;

std::unique_ptr<OverlayDisplay> OverlayDisplay::open(std::string& failure)
{
    if (!chooseVideoDriver(failure))
        return nullptr;
    for (const auto& [hint, value] : {
             std::pair { SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1" },
             std::pair { SDL_HINT_NO_SIGNAL_HANDLERS, "1" },
             std::pair { SDL_HINT_WINDOW_NO_ACTIVATION_WHEN_SHOWN, "1" },
             std::pair { SDL_HINT_VIDEO_WAYLAND_ALLOW_LIBDECOR, "0" }, // there are no borders to draw
             std::pair { SDL_HINT_X11_FORCE_OVERRIDE_REDIRECT, "1" },
             std::pair { SDL_HINT_X11_WINDOW_TYPE, "_NET_WM_WINDOW_TYPE_NOTIFICATION" },
         })
        SDL_SetHint(hint, value);
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        failure = SDL_GetError();
        return nullptr;
    }
    std::unique_ptr<OverlayDisplay> display(new OverlayDisplay);
    display->m_isX11 = std::string_view(SDL_GetCurrentVideoDriver()) == "x11";
    // Elsewhere there is no way to the display but the graphics library.
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, display->m_isX11 ? "0" : "1");
    return display;
}

OverlayDisplay::~OverlayDisplay()
{
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

PixelRect OverlayDisplay::usableMonitorAt(const std::optional<X11Server::Pointer>& pointer) const
{
    int monitor = 0;
    if (pointer) {
        const SDL_Point point { pointer->x, pointer->y };
        monitor = std::max(SDL_GetPointDisplayIndex(&point), 0);
    }
    SDL_Rect usable {};
    if (SDL_GetDisplayUsableBounds(monitor, &usable) != 0)
        SDL_GetDisplayBounds(monitor, &usable);
    return { usable.x, usable.y, usable.w, usable.h };
}

std::unique_ptr<OverlayWindow> OverlayWindow::open(
    const OverlayDisplay& display, const PixelRect& place, const std::string& visual, std::string& failure)
{
    const auto failed = [&failure] {
        failure = SDL_GetError();
        return nullptr;
    };
    SDL_SetHint(SDL_HINT_VIDEO_X11_WINDOW_VISUALID, visual.c_str());
    std::unique_ptr<OverlayWindow> window(new OverlayWindow);
    window->m_place = place;
    window->m_window = SDL_CreateWindow("Panotra", place.x, place.y, place.width, place.height,
        SDL_WINDOW_HIDDEN | SDL_WINDOW_BORDERLESS | SDL_WINDOW_ALWAYS_ON_TOP | SDL_WINDOW_SKIP_TASKBAR
            | SDL_WINDOW_UTILITY | SDL_WINDOW_ALLOW_HIGHDPI);
    if (window->m_window == nullptr || SDL_GetWindowSurface(window->m_window) == nullptr)
        return failed();
    SDL_ShowWindow(window->m_window);
    SDL_SysWMinfo system {};
    SDL_VERSION(&system.version)
    if (display.isX11() && SDL_GetWindowWMInfo(window->m_window, &system) == SDL_TRUE
        && system.subsystem == SDL_SYSWM_X11)
        window->m_descriptor = ConnectionNumber(system.info.x11.display);
    return window;
}

OverlayWindow::~OverlayWindow()
{
    if (m_window != nullptr)
        SDL_DestroyWindow(m_window);
}

PixelSize OverlayWindow::size() const
{
    PixelSize size;
    SDL_GetWindowSizeInPixels(m_window, &size.width, &size.height);
    return { std::max(size.width, 1), std::max(size.height, 1) };
}

std::vector<OverlayWindow::Happening> OverlayWindow::take()
{
    std::vector<Happening> happenings;
    for (SDL_Event event; SDL_PollEvent(&event) != 0;) {
        if (event.type == SDL_MOUSEBUTTONDOWN && event.button.button == SDL_BUTTON_LEFT)
            happenings.push_back({ Act::Press, event.button.x, event.button.y });
        else if (event.type == SDL_MOUSEBUTTONUP && event.button.button == SDL_BUTTON_LEFT)
            happenings.push_back({ Act::Release, event.button.x, event.button.y });
        else if (event.type == SDL_MOUSEMOTION)
            happenings.push_back({ Act::Move, event.motion.x, event.motion.y });
        else if (event.type == SDL_WINDOWEVENT
            && (event.window.event == SDL_WINDOWEVENT_EXPOSED || event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED))
            happenings.push_back({ Act::Uncover });
    }
    return happenings;
}

bool OverlayWindow::hasMore() const
{
    SDL_PumpEvents();
    return SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) == SDL_TRUE;
}

bool OverlayWindow::show(const render::Bitmap& picture, const std::vector<PixelRect>& changed, std::string& failure)
{
    SDL_Surface* const surface = SDL_GetWindowSurface(m_window);
    if (surface == nullptr) {
        failure = SDL_GetError();
        return false;
    }
    std::vector<SDL_Rect> rectangles;
    for (const PixelRect& rect : changed) {
        const PixelRect part = intersection(rect, intersection(picture.extent(), { 0, 0, surface->w, surface->h }));
        if (part.isEmpty())
            continue;
        // What is premultiplied stays so: pixels are copied, not laid over others.
        auto* const to = static_cast<std::uint8_t*>(surface->pixels)
            + static_cast<std::ptrdiff_t>(part.y) * surface->pitch
            + static_cast<std::ptrdiff_t>(part.x) * surface->format->BytesPerPixel;
        const std::uint32_t* const from = picture.row(part.y).data() + part.x;
        const bool hasAlpha = surface->format->Amask != 0;
        if (SDL_ConvertPixels(part.width, part.height, hasAlpha ? SDL_PIXELFORMAT_ARGB8888 : SDL_PIXELFORMAT_RGB888,
                from, cairo_image_surface_get_stride(picture.surface()), surface->format->format, to, surface->pitch)
            != 0) {
            failure = SDL_GetError();
            return false;
        }
        rectangles.push_back({ part.x, part.y, part.width, part.height });
    }
    if (rectangles.empty()
        || SDL_UpdateWindowSurfaceRects(m_window, rectangles.data(), static_cast<int>(rectangles.size())) == 0)
        return true;
    failure = SDL_GetError();
    return false;
}

} // namespace panotra::sim
