/// What a window shows, as data: boxes and texts from back to front, and the places that answer to the pointer.
///
/// Lengths are in units of the sheet; whoever draws it decides how many pixels one is.
#pragma once

#include "simulator/device/View.h"
#include "simulator/render/Typesetter.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace panotra::sim {

struct Area {
    double x = 0, y = 0, width = 0, height = 0;
    friend bool operator==(const Area&, const Area&) = default;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
    bool contains(Point point) const { return point.x >= x && point.x < right() && point.y >= y && point.y < bottom(); }
    Area inset(double dx, double dy) const { return { x + dx, y + dy, width - 2 * dx, height - 2 * dy }; }
    /// Cuts `size` off one of the sides and answers it.
    Area takeTop(double size)
    {
        const Area taken { x, y, width, size };
        y += size;
        height -= size;
        return taken;
    }
    Area takeLeft(double size)
    {
        const Area taken { x, y, size, height };
        x += size;
        width -= size;
        return taken;
    }
    Area takeRight(double size)
    {
        width -= size;
        return { right(), y, size, height };
    }
    Area takeBottom(double size)
    {
        height -= size;
        return { x, bottom(), width, size };
    }
};

struct Box {
    Area area;
    Rgba fill;
    double radius = 0;
    std::optional<Rgba> border {}; ///< one unit wide, inside
    friend bool operator==(const Box&, const Box&) = default;
};

/// What is between a rectangle and the same one with round corners.
struct Rim {
    Area area;
    Rgba fill;
    double radius = 0;
    friend bool operator==(const Rim&, const Rim&) = default;
};

/// One line, centred in the height of its area, cut short where it is too long.
struct Text {
    Area area;
    std::string text;
    render::TextStyle style;
    Rgba color;
    friend bool operator==(const Text&, const Text&) = default;
};

/// Where the screen of the phone is shown.
struct ScreenPicture {
    Area area;
    std::int64_t orientation = 1;
    friend bool operator==(const ScreenPicture&, const ScreenPicture&) = default;
};

using Element = std::variant<Box, Rim, Text, ScreenPicture>;

/// A place that answers to the pointer.
struct Spot {
    enum class Purpose {
        Screen,
        HomeButton,
        Control,
        Choice,
        Switch,
        Range,
        Help,
        Menu,
        MenuItem,
        Tab,
        Trace,
        View,
        Act
    };

    Area area;
    Purpose purpose;
    std::size_t index = 0; ///< of the control or the setting in its table, or the number of an act
    std::size_t choice = 0;

    bool isSameAs(const Spot& other) const
    {
        return purpose == other.purpose && index == other.index && choice == other.choice;
    }
};

struct Sheet {
    std::vector<Element> elements; ///< back to front
    std::vector<Spot> spots; ///< likewise

    /// A box, a text or a picture, made in its place: gcc 12 takes moving the variant for the use of a text that is
    /// not there.
    template <typename Kind> void add(Kind element)
    {
        elements.emplace_back(std::in_place_type<Kind>, std::move(element));
    }
    /// The foremost spot at the point, or null.
    const Spot* spotAt(Point point) const
    {
        for (auto spot = spots.rbegin(); spot != spots.rend(); ++spot) {
            if (spot->area.contains(point))
                return &*spot;
        }
        return nullptr;
    }
};

} // namespace panotra::sim
