/// The table of sheets, and the taking of each.
#include "simulator/gallery/GallerySheets.h"

#include "facts/MixerSettings.h"
#include "facts/MixerSkins.h"
#include "facts/MixerStyle.h"
#include "simulator/gallery/Movements.h"

#include <array>
#include <iterator>

namespace panotra::sim {
namespace {

constexpr auto panel = static_cast<std::int64_t>(MixerStyle::Panel);
constexpr auto banner = static_cast<std::int64_t>(MixerStyle::Banner);

/// Small enough that a sheet fits on a desk.
constexpr ScreenSize fullScreen { 375, 667, 1 };

struct Held {
    std::int64_t orientation;
    const char* caption;
    bool isBelow; ///< the picture before it: two that lie are about as high as one that stands
};
constexpr std::array waysToHold { Held { 1, "upright", false }, Held { 2, "upside down", false },
    Held { 3, "on its side", false }, Held { 4, "on the other side", true } };

// Every skin at every orientation, in one style and one light.

template <std::int64_t style, Light light> std::vector<SheetRow> everySkin(Studio& studio)
{
    std::vector<SheetRow> rows;
    for (std::int64_t skin = 0; skin < std::ssize(mixerSkins); ++skin) {
        SheetRow row { mixerSetting("mixerSkin").choices[static_cast<std::size_t>(skin)], {} };
        for (const Held& held : waysToHold) {
            MixerShowing showing;
            showing.screen = fullScreen;
            showing.orientation = held.orientation;
            showing.style = style;
            showing.skin = skin;
            row.pictures.push_back({ studio.mixer(showing, light), held.caption, held.isBelow });
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

template <const Movement& movement> std::vector<SheetRow> stripsOf(Studio& studio)
{
    return stripsOfMovement(studio, movement);
}

template <const Movement& movement> std::string filmOf(Studio& studio, std::string& failure)
{
    return filmOfMovement(studio, movement, failure);
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
    GallerySheet {
        "fade-in", "Fading in", "The blur comes first, then what stands on it.", stripsOf<fadeIn>, filmOf<fadeIn> },
    GallerySheet { "fade-out", "Fading out", "Everything goes at once.", stripsOf<fadeOut>, filmOf<fadeOut> },
    GallerySheet { "focus", "A level changes", "Its slider swells, and shrinks back.", stripsOf<focus>, filmOf<focus> },
    GallerySheet {
        "drag", "A finger drags a slider", "The held slider is larger than the others.", stripsOf<drag>, filmOf<drag> },
};

} // namespace

std::span<const GallerySheet> gallerySheets()
{
    return sheets;
}

} // namespace panotra::sim
