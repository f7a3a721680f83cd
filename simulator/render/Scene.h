/// What is to be drawn, back to front, as plain values: two scenes that are equal look the same.
#pragma once

#include "simulator/device/View.h"
#include "simulator/render/Materials.h"
#include "simulator/render/Shapes.h"
#include "simulator/render/Typesetter.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace panotra::render {

using sim::Rgba;

/// The home screen, over everything.
struct HomeItem {
    bool isBare = false; ///< nothing but the wallpaper
    std::int64_t orientation = 1; ///< of the interface; a bare one has none
    friend bool operator==(const HomeItem&, const HomeItem&) = default;
};

struct StatusBarItem {
    std::string time;
    friend bool operator==(const StatusBarItem&, const StatusBarItem&) = default;
};

struct FillItem {
    Rgba color;
    friend bool operator==(const FillItem&, const FillItem&) = default;
};

struct BackdropItem {
    Material material;
    double sigma; ///< the blur's standard deviation in pixels
    double opacity;
    friend bool operator==(const BackdropItem&, const BackdropItem&) = default;
};

struct TextItem {
    std::string text;
    TextStyle style;
    Rgba color;
    friend bool operator==(const TextItem&, const TextItem&) = default;
};

struct ImageItem {
    std::string file;
    bool isTemplate; ///< its shape alone counts
    Rgba tint; ///< of a template
    friend bool operator==(const ImageItem&, const ImageItem&) = default;
};

/// One of the renderer's own signs.
struct SignItem {
    std::string name;
    Rgba color;
    friend bool operator==(const SignItem&, const SignItem&) = default;
};

/// Inside the shape, along its edge.
struct BorderItem {
    double width; ///< in the shape's own units
    Rgba color;
    bool isWhole; ///< no clip cuts anything off it but one of its own shape
    friend bool operator==(const BorderItem&, const BorderItem&) = default;
};

/// Everything up to its end is cut off at the shape.
struct ClipItem {
    bool isWhole; ///< no clip around it cuts anything off it: while it lasts, they need not be thought of
    friend bool operator==(const ClipItem&, const ClipItem&) = default;
};
struct ClipEndItem {
    friend bool operator==(const ClipEndItem&, const ClipEndItem&) = default;
};

/// Everything up to its end is drawn as if alone and then laid over what is behind it as a whole.
struct GroupItem {
    double opacity;
    friend bool operator==(const GroupItem&, const GroupItem&) = default;
};
struct GroupEndItem {
    double opacity;
    friend bool operator==(const GroupEndItem&, const GroupEndItem&) = default;
};

struct Item {
    using Content = std::variant<HomeItem, StatusBarItem, FillItem, BackdropItem, TextItem, ImageItem, SignItem,
        BorderItem, ClipItem, ClipEndItem, GroupItem, GroupEndItem>;

    Content content;
    Shape shape; ///< to pixels of the screen
    PixelRect extent; ///< every pixel it can change, on the screen and within the clips around it
    /// The innermost clip around it cuts out the same box: its own edges need not be drawn, and must not be, or the
    /// pixels of the edge would be covered in part twice.
    bool fillsClip = false;
    friend bool operator==(const Item&, const Item&) = default;

    template <typename Kind> const Kind* as() const { return std::get_if<Kind>(&content); }
};

using Scene = std::vector<Item>;

/// The pixels of a device's screen, upright as the screen is built.
PixelRect screenPixels(const sim::Device& device);

/// What the screen of the device shows at this moment of its clock: running animations are where they are.
Scene sceneOf(const sim::Device& device);

/// What one view of the device shows at this moment, and all that is in it, over the bare wallpaper: nothing of what
/// stands before, behind or around it.
Scene sceneOfView(const sim::Device& device, const sim::View& view);

/// The part of the screen that a view takes at this moment of the clock, to pixels, and how much of what is behind it
/// the view hides there, from 0 to 1.
struct Presence {
    Shape shape;
    double opacity = 0;
    friend bool operator==(const Presence&, const Presence&) = default;
};
Presence presenceOf(const sim::Device& device, const sim::View& view);

} // namespace panotra::render
