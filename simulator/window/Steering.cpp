/// The keyboard alone: from spot to spot with Tab and the arrows, and what Return and the space bar do there.
#include "simulator/window/Person.h"
#include "simulator/window/SettingValues.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>

namespace panotra::sim {

using Purpose = Spot::Purpose;

namespace {

bool isReachedByKeys(const Spot& spot)
{
    const bool isBackground
        = spot.purpose == Purpose::Screen || spot.purpose == Purpose::Help || spot.purpose == Purpose::Menu;
    return !isBackground && !(spot.purpose == Purpose::Trace && spot.index == 0);
}

/// Those that nothing lies over, each once, in the order in which they stand.
std::vector<Spot> reachable(const Sheet& sheet)
{
    std::vector<Spot> all;
    for (const Spot& spot : sheet.spots) {
        if (spot.purpose == Purpose::Help || spot.purpose == Purpose::Menu)
            all.clear();
        const bool isThere = std::ranges::any_of(all, [&](const Spot& other) { return other.isSameAs(spot); });
        if (isReachedByKeys(spot) && !isThere)
            all.push_back(spot);
    }
    return all;
}

struct Direction {
    std::string_view key;
    double x, y;
};
constexpr std::array directions { Direction { "Left", -1, 0 }, Direction { "Right", 1, 0 }, Direction { "Up", 0, -1 },
    Direction { "Down", 0, 1 } };

Point middleOf(const Spot& spot)
{
    return { spot.area.x + spot.area.width / 2, spot.area.y + spot.area.height / 2 };
}

/// The nearest one that way; what lies aside counts twice.
std::optional<Spot> nearest(const std::vector<Spot>& spots, const Spot& from, const Direction& way)
{
    std::optional<Spot> found;
    double least = std::numeric_limits<double>::infinity();
    for (const Spot& spot : spots) {
        const double dx = middleOf(spot).x - middleOf(from).x;
        const double dy = middleOf(spot).y - middleOf(from).y;
        const double ahead = dx * way.x + dy * way.y;
        const double aside = std::abs(dx * way.y) + std::abs(dy * way.x);
        if (ahead > 1 && ahead + 2 * aside < least) {
            least = ahead + 2 * aside;
            found = spot;
        }
    }
    return found;
}

} // namespace

bool Person::steer(std::string_view key, bool isBackwards)
{
    if (m_sheet == nullptr)
        return false;
    const auto spots = reachable(*m_sheet);
    auto& focused = m_attention.focused;
    const auto at = std::ranges::find_if(spots, [&](const Spot& spot) { return focused && spot.isSameAs(*focused); });
    if (key == "Tab" && !spots.empty()) {
        const auto count = std::ssize(spots);
        const auto place = at == spots.end() ? (isBackwards ? 0 : count - 1) : at - spots.begin();
        focused = spots[static_cast<std::size_t>((place + (isBackwards ? count - 1 : 1)) % count)];
        return true;
    }
    if (at == spots.end())
        return false;
    if (key == "Escape") {
        focused.reset();
        return true;
    }
    if (key == "Return" || key == "Space") {
        if (!m_steered) {
            m_steered = *at;
            begin(*at, Holder::Focus);
        }
        return true;
    }
    const auto way = std::ranges::find(directions, key, &Direction::key);
    if (way == directions.end())
        return false;
    if (at->purpose == Purpose::Range && way->x != 0) {
        const MixerSetting setting = offered(mixerSettings[at->index], m_layout->phone.screenSize());
        setValue(m_session, setting,
            std::clamp(valueOf(m_session, setting), setting.least, setting.most) + way->x * setting.step);
    } else if (const auto next = nearest(spots, *at, *way)) {
        focused = next;
    }
    return true;
}

void Person::steerEnds(std::string_view key)
{
    if (key != "Return" && key != "Space")
        return;
    if (const auto spot = std::exchange(m_steered, std::nullopt); spot && spot->purpose == Purpose::Control)
        release(spot->index, Holder::Focus);
}

} // namespace panotra::sim
