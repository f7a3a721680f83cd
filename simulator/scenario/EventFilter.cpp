/// Names out of the table of events.
#include "simulator/scenario/EventFilter.h"

#include "simulator/device/TraceEvents.h"
#include "simulator/scenario/NearestName.h"
#include "simulator/text/Printable.h"

#include <algorithm>
#include <array>

namespace panotra::sim {

namespace {

constexpr auto eventNames = [] {
    std::array<std::string_view, traceEvents.size()> names {};
    std::ranges::transform(traceEvents, names.begin(), &TraceEvent::name);
    return names;
}();

std::string whyNoEvent(std::string_view name)
{
    const auto nearest = didYouMean(name, eventNames);
    return "found " + inQuotes(name) + ", expected the name of an event"
        + (nearest.empty() ? " (panotra play --reference lists them)" : nearest);
}

} // namespace

std::string EventFilter::add(std::string_view names)
{
    while (true) {
        const auto name = names.substr(0, names.find(','));
        if (std::ranges::find(eventNames, name) == eventNames.end())
            return whyNoEvent(name);
        m_names.emplace_back(name);
        if (name.size() == names.size())
            return {};
        names.remove_prefix(name.size() + 1);
    }
}

bool EventFilter::takes(std::string_view event) const
{
    return takesAll() || std::ranges::find(m_names, event) != m_names.end();
}

bool EventFilter::takesOneOf(const std::vector<std::string_view>& events) const
{
    return std::ranges::any_of(events, [this](std::string_view event) { return takes(event); });
}

} // namespace panotra::sim
