/// The trace as a panel: newest last, scrolled, filtered, paused, copied.
#include "simulator/window/TracePanel.h"

#include "simulator/window/Palette.h"

#include <algorithm>
#include <set>

namespace panotra::sim {

using render::TextAlignment;
using Purpose = Spot::Purpose;

namespace {

constexpr double textSize = 11;
constexpr double lineHeight = 16;

/// What a line says behind the kind of its event; as much of it is shown as there is room for.
std::string wordsOf(const TraceLine& line)
{
    std::string words = line.text;
    for (const std::string& item : line.items)
        words += (&item == &line.items.front() ? "" : ", ") + item;
    return line.times > 1 ? words + "  (" + std::to_string(line.times) + " times)" : words;
}

/// A line of the trace in its columns: when, what, with what. A command begins at the first.
void addTraceLine(Sheet& sheet, Area row, const TraceLine& line, double timeWidth)
{
    constexpr double whatWidth = 92;
    if (line.time.empty()) {
        addText(sheet, row, line.what, palette::accent, textSize);
        return;
    }
    Area time = row.takeLeft(timeWidth);
    time.width -= 8;
    addText(sheet, time, line.time, palette::dim, textSize, TextAlignment::Right);
    addText(sheet, row.takeLeft(whatWidth), line.what, palette::text, textSize);
    addText(sheet, row, wordsOf(line), palette::dim, textSize);
}

/// As wide as the longest time, which is never cut.
double widthOfTimes(std::span<const TraceLine* const> lines)
{
    constexpr double digitWidth = 6.8;
    constexpr double rim = 10;
    std::size_t longest = 5;
    for (const TraceLine* const line : lines)
        longest = std::max(longest, line->time.size());
    return static_cast<double>(longest) * digitWidth + rim;
}

void addTools(Sheet& sheet, const Subject& subject, Area row)
{
    constexpr double gap = 4;
    constexpr double width = 62;
    const TraceLooks& looks = subject.attention.trace;
    const auto button = [&](TracePart part, double buttonWidth, const std::string& label, bool isOn) {
        const Spot spot { row.takeRight(buttonWidth), Purpose::Trace, static_cast<std::size_t>(part) };
        row.takeRight(gap);
        addChoice(sheet, spot.area, label, subject.emphasisOf(spot, isOn));
        sheet.spots.push_back(spot);
    };
    button(TracePart::Pause, width, looks.held ? "Go on" : "Pause", looks.held.has_value());
    button(TracePart::Copy, width, "Copy", false);
    button(TracePart::Filter, 1.6 * width, looks.filter.empty() ? "All events" : looks.filter, !looks.filter.empty());
}

} // namespace

std::vector<const TraceLine*> shownLines(const Session& session, const TraceLooks& looks)
{
    std::vector<const TraceLine*> lines;
    for (const TraceLine& line : looks.held ? *looks.held : session.traceLines()) {
        if (looks.filter.empty() || (!line.time.empty() && line.what == looks.filter))
            lines.push_back(&line);
    }
    return lines;
}

std::size_t roomForLines(double height)
{
    return static_cast<std::size_t>(std::max(height / lineHeight, 0.0));
}

std::string nextFilter(const Session& session, const TraceLooks& looks)
{
    std::set<std::string> kinds;
    for (const TraceLine& line : looks.held ? *looks.held : session.traceLines()) {
        if (!line.time.empty())
            kinds.insert(line.what);
    }
    const auto next = looks.filter.empty() ? kinds.begin() : kinds.upper_bound(looks.filter);
    return next == kinds.end() ? std::string() : *next;
}

std::string textOf(const TraceLine& line)
{
    return line.time.empty() ? line.what : line.time + "  " + line.what + "  " + wordsOf(line);
}

std::string viewNamedIn(const TraceLine& line)
{
    // Fields of the mixer begin with an underscore, and nothing else does.
    const std::string words = wordsOf(line);
    const std::size_t begin = words.find('_');
    if (begin == std::string::npos)
        return {};
    constexpr const char* letters = "_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    return words.substr(begin, words.find_first_not_of(letters, begin) - begin);
}

void addTrace(Sheet& sheet, const Subject& subject, const Area& card)
{
    constexpr double toolsHeight = 20;
    constexpr double thumbWidth = 3;
    Area inside = addCard(sheet, card, "Trace");
    addTools(sheet, subject, { inside.x, card.y + 8, inside.width, toolsHeight });
    const TraceLooks& looks = subject.attention.trace;
    const auto lines = shownLines(subject.session, looks);
    const std::size_t room = roomForLines(inside.height);
    const std::size_t last = lines.size() - std::min(looks.back, lines.size() - std::min(room, lines.size()));
    const std::size_t first = last - std::min(room, last);
    const Spot whole { { card.x, inside.y, card.width, inside.height }, Purpose::Trace,
        static_cast<std::size_t>(TracePart::Whole) };
    sheet.spots.push_back(whole);
    const std::span<const TraceLine* const> shown(lines.begin() + static_cast<std::ptrdiff_t>(first), last - first);
    const double timeWidth = widthOfTimes(shown);
    for (std::size_t i = first; i < last; ++i) {
        const Spot spot { inside.takeTop(lineHeight), Purpose::Trace, static_cast<std::size_t>(TracePart::Line), i };
        if (!viewNamedIn(*lines[i]).empty()) {
            if (subject.emphasisOf(spot, false) == Emphasis::Hovered)
                sheet.add(Box { spot.area.inset(-4, 0), palette::hovered, 4 });
            sheet.spots.push_back(spot);
        }
        addTraceLine(sheet, spot.area, *lines[i], timeWidth);
    }
    if (lines.size() > room && room > 0) {
        const double part = static_cast<double>(room) / static_cast<double>(lines.size());
        const double from = static_cast<double>(first) / static_cast<double>(lines.size());
        sheet.add(Box { { card.right() - 8, whole.area.y + from * whole.area.height, thumbWidth,
                            std::max(part * whole.area.height, 2 * thumbWidth) },
            palette::keyCap, thumbWidth / 2 });
    }
}

} // namespace panotra::sim
