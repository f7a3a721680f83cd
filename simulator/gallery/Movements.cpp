/// Each movement, and the two cameras.
#include "simulator/gallery/Movements.h"

#include "facts/AudioNames.h"
#include "facts/MixerStyle.h"
#include "facts/PublicNames.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/film/MovingPicture.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <utility>

namespace panotra::sim {

namespace {

struct Style {
    MixerStyle style;
    const char* caption;
};
constexpr std::array styles { Style { MixerStyle::Panel, "Panel" }, Style { MixerStyle::Banner, "Banner" } };

constexpr int draggedSlot = 0;

std::string seconds(Device&, double time)
{
    std::array<char, 32> text {};
    std::snprintf(text.data(), text.size(), "%.2f s", time);
    return text.data();
}

std::string levelOfDragged(Device& device, double)
{
    return std::to_string(std::lround(levelOf(device, sliderOf(device, draggedSlot)) * 100)) + "%";
}

void beginFadeIn(Device&) { }

void beginFadeOut(Device& device)
{
    device.runLoop->wait(1);
    device.home->sendActivatorEvent(listener::dismiss);
    device.runLoop->turn();
}

void beginFocus(Device& device)
{
    device.runLoop->wait(1);
    device.home->announce(category::audioVideo, changeReason::explicitChange, 0.3125F);
    device.runLoop->turn();
}

void beginDrag(Device& device)
{
    device.runLoop->wait(1);
    holdSlider(device, draggedSlot);
    device.runLoop->wait(0.3);
}

void dragOn(Device& device, double part)
{
    moveHeldSlider(device, draggedSlot, part);
}

/// Pictures at equal steps, the first and the last moment included.
std::vector<CaptionedPicture> takeSteps(
    Studio& studio, const Movement& movement, const Style& style, double scale, int steps)
{
    MixerShowing showing;
    showing.screen = { 320, 568, scale };
    showing.style = static_cast<std::int64_t>(style.style);
    return studio.strip(showing, Light::Dusk, [&](Device& device, const Studio::Camera& take) {
        movement.begin(device);
        for (int step = 0; step <= steps; ++step) {
            if (movement.go != nullptr)
                movement.go(device, static_cast<double>(step) / steps);
            if (movement.go != nullptr || step > 0)
                device.runLoop->wait(movement.length / steps);
            take(movement.caption(device, movement.length * step / steps));
        }
    });
}

/// The pictures from left to right on a dark ground.
render::Bitmap beside(const std::vector<const render::Bitmap*>& pictures)
{
    constexpr int rim = 16;
    constexpr double corners = 10;
    const int width = pictures.front()->width();
    const int height = pictures.front()->height();
    const int count = static_cast<int>(pictures.size());
    render::Bitmap all(count * (width + rim) + rim, height + 2 * rim, render::PixelFormat::Opaque);
    const auto context = all.makeContext();
    cairo_set_source_rgb(context.get(), 0.085, 0.09, 0.11);
    cairo_paint(context.get());
    int x = rim;
    for (const render::Bitmap* const picture : pictures) {
        cairo_set_source_surface(context.get(), picture->surface(), x, rim);
        render::addOutline(context.get(),
            { render::translation(x, rim), { static_cast<double>(width), static_cast<double>(height) }, corners,
                true });
        cairo_fill(context.get());
        x += width + rim;
    }
    cairo_surface_flush(all.surface());
    return all;
}

} // namespace

const Movement fadeIn { beginFadeIn, 0.3, 4, nullptr, seconds };
const Movement fadeOut { beginFadeOut, 0.4, 4, nullptr, seconds };
const Movement focus { beginFocus, 0.6, 4, nullptr, seconds };
const Movement drag { beginDrag, 1.8, 1, dragOn, levelOfDragged };

std::vector<SheetRow> stripsOfMovement(Studio& studio, const Movement& movement)
{
    constexpr int steps = 6;
    std::vector<SheetRow> rows;
    for (const Style& style : styles)
        rows.push_back({ style.caption, takeSteps(studio, movement, style, 1, steps) });
    return rows;
}

std::string filmOfMovement(Studio& studio, const Movement& movement, std::string& failure)
{
    constexpr double scale = 0.75;
    constexpr int framesPerSecond = 30;
    constexpr std::chrono::milliseconds lastMoment(800);
    const int steps = static_cast<int>(std::lround(movement.length * movement.slowness * framesPerSecond));
    std::vector<std::vector<CaptionedPicture>> strips;
    for (const Style& style : styles)
        strips.push_back(takeSteps(studio, movement, style, scale, steps));
    std::unique_ptr<MovingPicture> film;
    std::chrono::milliseconds begin { 0 };
    for (std::size_t index = 0; index < strips.front().size(); ++index) {
        std::vector<const render::Bitmap*> pictures;
        for (const auto& strip : strips)
            pictures.push_back(&strip[index].pixels);
        const render::Bitmap frame = beside(pictures);
        if (film == nullptr)
            film = makeWebp({ frame.width(), frame.height() });
        begin = std::chrono::milliseconds(index * 1000 / framesPerSecond);
        if (const auto problem = film->add(frame, { frame.extent() }, begin)) {
            failure = *problem;
            return {};
        }
    }
    return film->finish(begin + lastMoment, failure);
}

} // namespace panotra::sim
