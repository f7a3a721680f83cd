/// The mixer's geometry.
#include "controller/MixerLayout.h"

#include "facts/MixerSize.h"

#include <algorithm>
#include <numbers>

namespace panotra {
namespace {

constexpr CGFloat factor(double value)
{
    return static_cast<CGFloat>(value);
}

constexpr CGFloat panelTitleHeight = 25;
/// Kept free above the first row of sliders for the group's title.
constexpr CGFloat titleRoom = 20;

constexpr CGFloat bannerTop = 40;
constexpr CGFloat bannerTitleInset = factor(2.5);
constexpr CGFloat bannerTitleHeight = factor(17.5);

/// Slider measures within one group.
struct Cells {
    CGFloat left;
    CGFloat right;
    CGFloat gap; ///< above each row
    CGSize size;
};

std::array<CGRect, cellsPerGroup> grid(const Cells& cells)
{
    const CGFloat top = cells.gap + titleRoom;
    const CGFloat bottom = 2 * cells.gap + titleRoom + cells.size.height;
    const auto [width, height] = cells.size;
    return { CGRectMake(cells.left, top, width, height), CGRectMake(cells.right, top, width, height),
        CGRectMake(cells.left, bottom, width, height), CGRectMake(cells.right, bottom, width, height) };
}

std::array<CGRect, cellsPerGroup> column(const Cells& cells)
{
    std::array<CGRect, cellsPerGroup> frames;
    for (std::size_t row = 0; row < frames.size(); ++row) {
        const CGFloat y = cells.gap + titleRoom + static_cast<CGFloat>(row) * (cells.size.height + cells.gap);
        frames[row] = CGRectMake(cells.left, y, cells.size.width, cells.size.height);
    }
    return frames;
}

std::array<CGRect, groupCount> stacked(CGFloat x, CGFloat gap, CGSize group)
{
    return { CGRectMake(x, gap, group.width, group.height),
        CGRectMake(x, 2 * gap + group.height, group.width, group.height),
        CGRectMake(x, 2 * group.height + 3 * gap, group.width, group.height) };
}

std::array<CGRect, groupCount> sideBySide(CGFloat gap, CGFloat y, CGSize group)
{
    return { CGRectMake(gap, y, group.width, group.height),
        CGRectMake(2 * gap + group.width, y, group.width, group.height),
        CGRectMake(2 * group.width + 3 * gap, y, group.width, group.height) };
}

MixerLayout portraitPanel(CGSize content)
{
    const CGFloat marginX = content.width * factor(0.01);
    const CGFloat marginY = content.height * factor(0.01);
    const CGSize group { content.width - 2 * marginX, (content.height - 4 * marginY) / 3 };
    const CGFloat gapX = 1 + group.width * factor(0.025);
    const CGFloat gapY = factor(2.5) + group.height * factor(0.05);
    const CGSize slider { (group.width - 3 * gapX) / 2, (group.height - 3 * gapY - titleRoom) / 2 };
    return { stacked(marginX, marginY, group), CGRectMake(0, 0, group.width, panelTitleHeight),
        grid({ gapX, 2 * gapX + slider.width, gapY, slider }) };
}

MixerLayout landscapePanel(CGSize content)
{
    const CGFloat marginX = content.width * factor(0.01);
    const CGFloat marginY = content.height * factor(0.015);
    const CGSize group { (content.width - 4 * marginX) / 3, content.height - 2 * marginY };
    const CGFloat gapX = factor(2.5) + group.width * factor(0.034);
    const CGFloat gapY = 1 + group.height * factor(0.0435);
    const CGSize slider { group.width - 2 * gapX, (group.height - 5 * gapY - titleRoom) / 4 };
    return { sideBySide(marginX, marginY, group), CGRectMake(0, 0, group.width, panelTitleHeight),
        column({ gapX, gapX, gapY, slider }) };
}

} // namespace

CGSize referenceSizeForScreen(CGSize screen)
{
    const MixerSize size = mixerSizeOn(screen.width, screen.height);
    return { CGFloat(size.width), CGFloat(size.height) };
}

CGAffineTransform rootTransform(std::int64_t orientation)
{
    constexpr CGFloat halfTurn = std::numbers::pi_v<CGFloat>;
    switch (orientation) {
    case 2:
        return CGAffineTransformMakeRotation(halfTurn);
    case 3:
        return CGAffineTransformMakeRotation(halfTurn / 2);
    case 4:
        return CGAffineTransformMakeRotation(-halfTurn / 2);
    default:
        return CGAffineTransformIdentity;
    }
}

bool isHalfTurn(std::int64_t from, std::int64_t to)
{
    return (from == 1 && to == 2) || (from == 2 && to == 1) || (from == 3 && to == 4) || (from == 4 && to == 3);
}

CGRect panelFrame(CGSize superview, CGSize reference, Aspect aspect)
{
    const CGSize size = aspect == Aspect::Portrait ? reference : CGSize { reference.height, reference.width };
    return CGRectMake(
        superview.width / 2 - size.width / 2, superview.height / 2 - size.height / 2, size.width, size.height);
}

MixerLayout panelLayout(CGSize content, Aspect aspect)
{
    return aspect == Aspect::Portrait ? portraitPanel(content) : landscapePanel(content);
}

CGFloat panelCornerRadius(CGSize panel)
{
    return panel.width * panel.height * factor(0.000175);
}

CGRect bannerFrame(CGFloat windowWidth, CGSize reference)
{
    return CGRectMake((windowWidth - reference.width) / 2, bannerTop, reference.width, reference.height / factor(3.5));
}

MixerLayout bannerLayout(CGSize container)
{
    const CGFloat margin = container.width * factor(0.01);
    const CGFloat top = container.height * factor(0.01);
    const CGSize group { (container.width - 4 * margin) / 3, container.height - 2 * top };
    const CGFloat gapX = group.width * factor(0.05);
    const CGFloat gapY = group.height * factor(0.05);
    const CGFloat height = (group.height - titleRoom - 3 * gapY) / 2;
    // Never narrower than high. The columns stand at the banner's margin, not at the gap that the width was
    // worked out with.
    const CGSize slider { std::max((group.width - 3 * gapX) / 2, height), height };
    return { sideBySide(margin, top, group),
        CGRectMake(bannerTitleInset, bannerTitleInset, group.width - 2 * bannerTitleInset, bannerTitleHeight),
        grid({ margin, 2 * margin + slider.width, gapY, slider }) };
}

CGFloat bannerCornerRadius(CGSize banner)
{
    return banner.width * banner.height * factor(0.000425);
}

} // namespace panotra
