/// The screen as its viewer sees it, and lines for a terminal.
#include "simulator/window/WindowMeans.h"

#include "simulator/Play.h"
#include "simulator/device/Services.h"
#include "simulator/picture/LooksOfPhone.h"
#include "simulator/render/Bitmap.h"
#include "simulator/render/Orientation.h"
#include "simulator/window/Menu.h"

#include <SDL.h>

#include <cstdio>
#include <utility>

namespace panotra::sim {

Desk::Means windowMeans(const std::string& folder, Session& session, const Phone& phone, render::Renderer& renderer)
{
    return { .folder = folder,
        .takePicture = [&](const std::string& path) -> std::optional<std::string> {
            const render::Bitmap& screen = renderer.draw(session.device()).pixels;
            if (!phone.isScreenOn())
                return writePng(render::Bitmap(screen.width(), screen.height(), render::PixelFormat::Opaque), path);
            return writePng(render::asViewed(screen, session.device().screen->orientation), path);
        },
        .hang =
            [&renderer](const std::string& name, std::string& failure) {
                auto wallpaper = findWallpaper(wallpaperOfMenu(name), failure);
                if (wallpaper)
                    renderer.setWallpaper(std::move(*wallpaper));
                return wallpaper.has_value();
            },
        .tell =
            [](const std::string& message) {
                std::fprintf(stdout, "%s\n", message.c_str());
                std::fflush(stdout);
            },
        .complain = complain };
}

std::function<void()> pusherOf(std::uint32_t event)
{
    return [event] {
        SDL_Event pushed {};
        pushed.type = event;
        SDL_PushEvent(&pushed);
    };
}

} // namespace panotra::sim
