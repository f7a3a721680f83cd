/// The table of sheets, and the taking of each.
#include "simulator/gallery/GallerySheets.h"

#include "facts/AudioNames.h"
#include "facts/MixerSkins.h"
#include "facts/MixerStyle.h"
#include "facts/PublicNames.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace panotra::sim {
namespace {

constexpr auto panel = static_cast<std::int64_t>(MixerStyle::Panel);
constexpr auto banner = static_cast<std::int64_t>(MixerStyle::Banner);

/// Small enough that a sheet fits on a desk.
constexpr ScreenSize fullScreen { 375, 667, 1 };
constexpr ScreenSize smallPhone { 320, 568, 1 };

struct Held {
    std::int64_t orientation;
    const char* caption;
};
constexpr std::array waysToHold { Held { 1, "upright" }, Held { 2, "upside down" }, Held { 3, "on its side" },
    Held { 4, "on the other side" } };

std::string seconds(double value)
{
    std::array<char, 32> text {};
    std::snprintf(text.data(), text.size(), "%.2f s", value);
    return text.data();
}

std::string percent(double level)
{
    return std::to_string(std::lround(level * 100)) + "%";
}

// Every skin at every orientation, in one style and one light.

template <std::int64_t style, Light light> std::vector<SheetRow> everySkin(Studio& studio)
{
    std::vector<SheetRow> rows;
    for (std::int64_t skin = 0; skin < std::ssize(mixerSkins); ++skin) {
        SheetRow row { "Skin " + std::to_string(skin), {} };
        for (const Held& held : waysToHold) {
            MixerShowing showing;
            showing.screen = fullScreen;
            showing.orientation = held.orientation;
            showing.style = style;
            showing.skin = skin;
            row.pictures.push_back({ studio.mixer(showing, light), held.caption });
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<SheetRow> everyScreen(Studio& studio)
{
    struct Model {
        ScreenSize screen;
        const char* caption;
    };
    // At the pixels a point that show all of them at about one size.
    static constexpr std::array models { Model { { 320, 480, 1.25 }, "320 × 480" },
        Model { { 375, 667, 1 }, "375 × 667" }, Model { { 414, 736, 1 }, "414 × 736" },
        Model { { 375, 812, 1 }, "375 × 812" }, Model { { 768, 1024, 0.75 }, "768 × 1024" } };
    std::vector<SheetRow> rows;
    for (const auto& [style, caption] : { std::pair { panel, "Panel" }, std::pair { banner, "Banner" } }) {
        SheetRow row { caption, {} };
        for (const Model& model : models) {
            MixerShowing showing;
            showing.screen = model.screen;
            showing.style = style;
            row.pictures.push_back({ studio.mixer(showing, Light::Dusk), model.caption });
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

// Movements.

MixerShowing moving(std::int64_t style)
{
    MixerShowing showing;
    showing.screen = smallPhone;
    showing.style = style;
    return showing;
}

/// Pictures at equal steps from now until `length` seconds later, both included.
void takeAlong(Device& device, double length, const Studio::Camera& take)
{
    constexpr int steps = 6;
    for (int step = 0; step <= steps; ++step) {
        if (step > 0)
            device.runLoop->wait(length / steps);
        take(seconds(length * step / steps));
    }
}

void fadeIn(Device& device, const Studio::Camera& take)
{
    takeAlong(device, 0.3, take);
}

void fadeOut(Device& device, const Studio::Camera& take)
{
    device.runLoop->wait(1);
    device.home->sendActivatorEvent(listener::dismiss);
    device.runLoop->turn();
    takeAlong(device, 0.4, take);
}

/// The slider of the loudspeaker swells while its level changes, and shrinks back.
void focus(Device& device, const Studio::Camera& take)
{
    device.runLoop->wait(1);
    device.home->announce(category::audioVideo, changeReason::explicitChange, 0.3125F);
    device.runLoop->turn();
    takeAlong(device, 0.6, take);
}

void drag(Device& device, const Studio::Camera& take)
{
    constexpr int slot = 0;
    constexpr int steps = 6;
    device.runLoop->wait(1);
    holdSlider(device, slot);
    device.runLoop->wait(0.3);
    for (int step = 0; step <= steps; ++step) {
        moveHeldSlider(device, slot, static_cast<double>(step) / steps);
        device.runLoop->wait(0.3);
        take(percent(levelOf(device, sliderOf(device, slot))));
    }
}

template <void (*move)(Device&, const Studio::Camera&)> std::vector<SheetRow> inBothStyles(Studio& studio)
{
    std::vector<SheetRow> rows;
    rows.push_back({ "Panel", studio.strip(moving(panel), Light::Dusk, move) });
    rows.push_back({ "Banner", studio.strip(moving(banner), Light::Dusk, move) });
    return rows;
}

constexpr std::array sheets {
    GallerySheet { "panel-dusk", "The panel over a dark wallpaper", "Every skin, however the phone is held.",
        everySkin<panel, Light::Dusk> },
    GallerySheet { "panel-dawn", "The panel over a light wallpaper", "Every skin, however the phone is held.",
        everySkin<panel, Light::Dawn> },
    GallerySheet { "banner-dusk", "The banner over a dark wallpaper", "Every skin, however the phone is held.",
        everySkin<banner, Light::Dusk> },
    GallerySheet { "banner-dawn", "The banner over a light wallpaper", "Every skin, however the phone is held.",
        everySkin<banner, Light::Dawn> },
    GallerySheet { "screens", "Five screens", "From the smallest phone to a tablet, in points.", everyScreen },
    GallerySheet { "fade-in", "Fading in", "The blur comes first, then what stands on it.", inBothStyles<fadeIn> },
    GallerySheet { "fade-out", "Fading out", "Everything goes at once.", inBothStyles<fadeOut> },
    GallerySheet { "focus", "A level changes", "Its slider swells, and shrinks back.", inBothStyles<focus> },
    GallerySheet {
        "drag", "A finger drags a slider", "The held slider is larger than the others.", inBothStyles<drag> },
};

} // namespace

std::span<const GallerySheet> gallerySheets()
{
    return sheets;
}

} // namespace panotra::sim
