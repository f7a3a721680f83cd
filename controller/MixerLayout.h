/// The mixer's geometry: from sizes and orientation to every frame, without a view in sight.
///
/// Points throughout; nothing is clamped: a container too small for its margins gives negative sizes.
#pragma once

#include "facts/VolumeSlots.h"
#include "platform/CoreGraphics.h"

#include <array>
#include <cstdint>

namespace panotra {

enum class Aspect : std::uint8_t { Portrait, Landscape };

/// 1 upright and 2 upside down are portrait; everything else, unknown values included, is laid out as landscape.
constexpr Aspect aspectOf(std::int64_t orientation)
{
    return orientation == 1 || orientation == 2 ? Aspect::Portrait : Aspect::Landscape;
}

/// The reference size of the panel: that of the smallest phone, and smaller still on a screen just as wide or high.
CGSize referenceSizeForScreen(CGSize screen);

/// The turn that makes the mixer stand upright: half a turn for 2, quarter turns for 3 and 4, else none.
CGAffineTransform rootTransform(std::int64_t orientation);

/// Whether going from one orientation to the other is half a turn, which takes twice as long.
bool isHalfTurn(std::int64_t from, std::int64_t to);

/// Where groups, titles and sliders stand. Groups in the container's content; title and cells in their group, the
/// same in all three groups.
struct MixerLayout {
    std::array<CGRect, groupCount> groups;
    CGRect title;
    std::array<CGRect, cellsPerGroup> cells;
};

/// The centred panel, before it is scaled.
CGRect panelFrame(CGSize superview, CGSize reference, Aspect aspect);
/// `content`: the panel's inner size. Portrait stacks the groups, each a grid of two by two; landscape sets them
/// side by side, each a column of four.
MixerLayout panelLayout(CGSize content, Aspect aspect);
CGFloat panelCornerRadius(CGSize panel);

/// The banner near the top of the window.
CGRect bannerFrame(CGFloat windowWidth, CGSize reference);
/// `container`: the banner's size. Three groups side by side, each a grid of two by two.
MixerLayout bannerLayout(CGSize container);
CGFloat bannerCornerRadius(CGSize banner);

} // namespace panotra
