/// The inspector beside the phone, and its frame on the phone.
#include "simulator/device/Services.h"
#include "simulator/render/Scene.h"
#include "simulator/window/Board.h"
#include "simulator/window/Palette.h"

#include <algorithm>

namespace panotra::sim {

using Purpose = Spot::Purpose;

namespace {

constexpr double textSize = 11;
constexpr double rowHeight = 15;

/// The marked view, if it is still there.
const InspectedView* markedIn(const std::vector<InspectedView>& views, const ViewMark& mark)
{
    const auto found = std::ranges::find_if(
        views, [&](const InspectedView& each) { return mark.view != nullptr && each.view == mark.view; });
    return found == views.end() ? nullptr : &*found;
}

void addValues(Sheet& sheet, const Subject& subject, const InspectedView& marked, Area area)
{
    constexpr double labelWidth = 68;
    addText(sheet, area.takeTop(rowHeight + 4), marked.name, palette::bright, plainText, render::TextAlignment::Left,
        render::TextWeight::Medium);
    for (const auto& [label, value] : describe(subject.session.device(), *marked.view)) {
        Area row = area.takeTop(rowHeight);
        addText(sheet, row.takeLeft(labelWidth), label, palette::dim, textSize);
        addText(sheet, row, value, palette::text, textSize);
    }
}

} // namespace

void addInspector(Sheet& sheet, const Subject& subject, const Area& card)
{
    constexpr double valuesHeight = 8 * rowHeight + 12;
    constexpr double indent = 10;
    Area inside = addCard(sheet, card, "Inspector");
    const auto views = viewsOf(subject.session.device());
    if (views.empty()) {
        addText(
            sheet, inside.takeTop(rowHeight), "No mixer is shown. A volume button shows one.", palette::dim, textSize);
        return;
    }
    const InspectedView* const marked = markedIn(views, subject.attention.mark);
    const Area values = inside.takeBottom(std::min(valuesHeight, inside.height / 2));
    inside.takeBottom(6);
    if (marked != nullptr)
        addValues(sheet, subject, *marked, values);
    else
        addText(sheet, { values.x, values.y, values.width, rowHeight },
            "Point at the phone, or click a view here or an event in the trace.", palette::dim, textSize);

    // The marked row is always among those that find room.
    const auto room = static_cast<std::size_t>(std::max(inside.height / rowHeight, 1.0));
    const std::size_t at = marked == nullptr ? 0 : static_cast<std::size_t>(marked - views.data());
    const std::size_t most = views.size() - std::min(room, views.size());
    const std::size_t first = std::min(at - std::min(room / 2, at), most);
    for (std::size_t i = first; i < std::min(first + room, views.size()); ++i) {
        const InspectedView& each = views[i];
        const Spot spot { inside.takeTop(rowHeight), Purpose::View, i };
        const bool isMarked = &each == marked;
        const Emphasis emphasis = subject.emphasisOf(spot, isMarked);
        if (emphasis != Emphasis::None)
            sheet.add(
                Box { spot.area.inset(-4, 0), emphasis == Emphasis::On ? palette::accentDark : palette::hovered, 4 });
        Area row = spot.area;
        row.takeLeft(indent * static_cast<double>(each.depth));
        const bool isSeen = !each.view->hidden && each.view->alpha > 0;
        addText(sheet, row, each.name, isMarked ? palette::bright : isSeen ? palette::text : palette::dim, textSize);
        sheet.spots.push_back(spot);
    }
}

void addInspection(Sheet& sheet, const Subject& subject)
{
    if (subject.attention.tab != Tab::Inspector || !subject.phone.isScreenOn())
        return;
    const Device& device = subject.session.device();
    const auto views = viewsOf(device);
    const InspectedView* const marked = markedIn(views, subject.attention.mark);
    if (marked == nullptr)
        return;
    const render::PixelRect pixels
        = render::intersection(render::presenceOf(device, *marked->view).shape.extent(), render::screenPixels(device));
    const double scale = device.screen->scale;
    if (pixels.isEmpty())
        return;
    const Area points { pixels.x / scale, pixels.y / scale, pixels.width / scale, pixels.height / scale };
    sheet.add(Box { subject.layout.phone.onSheet(points), palette::inspected, 0, palette::accent });
}

} // namespace panotra::sim
