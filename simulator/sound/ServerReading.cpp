/// One snapshot compared with the last.
#include "simulator/sound/ServerReading.h"

#include "facts/AudioNames.h"

#include <algorithm>
#include <cmath>

namespace panotra::sound {

namespace {

std::uint32_t peakOf(const ChannelVolumes& volumes)
{
    return volumes.empty() ? 0 : std::ranges::max(volumes);
}

/// A server that keeps volumes as factors may give one step more or less than it was told.
bool isSame(const ChannelVolumes& one, const ChannelVolumes& other)
{
    return std::ranges::equal(
        one, other, [](std::uint32_t a, std::uint32_t b) { return (a > b ? a - b : b - a) <= 1; });
}

/// Whether volumes of the one go on as volumes of the other: not after a change of the port, which has its own.
bool isSamePlace(const Output& one, const Output& other)
{
    return one.index == other.index && one.traits.name == other.traits.name && one.port == other.port
        && routeOf(one.traits) == routeOf(other.traits);
}

} // namespace

float levelOf(const ChannelVolumes& volumes)
{
    return std::min(static_cast<float>(peakOf(volumes)) / static_cast<float>(fullVolume), 1.0f);
}

ChannelVolumes volumesAt(float level, const ChannelVolumes& balance)
{
    const auto peak = static_cast<std::uint64_t>(std::lround(static_cast<double>(level) * fullVolume));
    const std::uint64_t loudest = peakOf(balance);
    ChannelVolumes volumes = balance;
    for (std::uint32_t& volume : volumes)
        volume = static_cast<std::uint32_t>(loudest == 0 ? peak : (volume * peak + loudest / 2) / loudest);
    return volumes;
}

std::vector<Announcement> ServerReading::see(const Snapshot& snapshot)
{
    m_isConnected = true;
    m_server = snapshot.server;
    std::vector<Announcement> happened;
    if (m_output) {
        // The last one, which need not be the default any more: what was done to it comes first.
        const Output* const last = snapshot.find(m_output->traits.name);
        if (last != nullptr && isSamePlace(*last, *m_output) && wasSetByOthers(*last, snapshot) && m_route.hasSlot)
            happened.push_back({ Reason::ExplicitVolume, m_category, m_route, levelOf(last->volumes) });
    }

    noteStreams(snapshot);
    const Output* const now = snapshot.find(snapshot.defaultOutput);
    if (now == nullptr) {
        m_output.reset();
        m_route = { "none", false };
        m_inFlight.clear();
        m_wish.reset();
        return happened;
    }
    const bool isOther = !m_output || !isSamePlace(*now, *m_output);
    m_output = *now;
    noteBalance(*now);
    if (isOther) {
        m_inFlight.clear();
        m_wish.reset();
        m_route = routeOf(now->traits);
        happened.push_back({ Reason::Route, m_category, m_route, level() });
    }
    if (std::string category = categoryNow(snapshot); category != m_category) {
        m_category = std::move(category);
        happened.push_back({ Reason::Category, m_category, m_route, levelToCome() });
    }
    return happened;
}

/// Forgets those of our sets that are seen.
bool ServerReading::wasSetByOthers(const Output& now, const Snapshot& snapshot)
{
    const bool isAsBefore = now.volumes == m_output->volumes;
    if (isAsBefore && !isSettled(snapshot))
        return false;
    const auto own = std::ranges::find_if(
        m_inFlight, [&now](const OwnSet& each) { return isSame(each.set.volumes, now.volumes); });
    if (own != m_inFlight.end()) {
        m_inFlight.erase(m_inFlight.begin(), own + 1);
        return false;
    }
    // Once somebody else has spoken, whatever follows is what is heard, and is remembered.
    const std::uint32_t believed = peakOf(m_inFlight.empty() ? m_output->volumes : m_inFlight.back().set.volumes);
    m_inFlight.clear();
    return peakOf(now.volumes) != believed;
}

/// Whether the snapshot shows all of our sets, or what came after them.
bool ServerReading::isSettled(const Snapshot& snapshot) const
{
    return !m_inFlight.empty() && snapshot.changed > m_inFlight.back().set.serial
        && std::ranges::all_of(
            m_inFlight, [&snapshot](const OwnSet& each) { return each.answered && *each.answered < snapshot.asked; });
}

void ServerReading::noteStreams(const Snapshot& snapshot)
{
    std::map<std::uint32_t, std::uint64_t> begun;
    for (const Stream& stream : snapshot.streams) {
        if (stream.isPaused || !categoryOfRole(stream.role))
            continue;
        const auto known = m_begun.find(stream.index);
        begun.emplace(stream.index, known != m_begun.end() ? known->second : 0);
    }
    // Those of which nothing was known began since, in the order of the server's numbers.
    for (auto& [index, place] : begun) {
        if (place == 0)
            place = ++m_beginnings;
    }
    m_begun = std::move(begun);
}

/// A call above all, then the one that began last; silence keeps the last.
std::string ServerReading::categoryNow(const Snapshot& snapshot) const
{
    std::string category = m_category;
    std::uint64_t latest = 0;
    for (const Stream& stream : snapshot.streams) {
        const auto begun = m_begun.find(stream.index);
        if (begun == m_begun.end() || stream.output != m_output->index)
            continue;
        const std::string its = categoryOfRole(stream.role).value_or(m_category);
        if (its == category::phoneCall)
            return its;
        if (begun->second > latest) {
            latest = begun->second;
            category = its;
        }
    }
    return category;
}

void ServerReading::noteBalance(const Output& output)
{
    if (peakOf(output.volumes) > 0)
        m_balances[output.traits.name] = output.volumes;
}

/// What the server was told counts, though it is not to be seen yet.
float ServerReading::levelToCome() const
{
    return m_inFlight.empty() ? level() : levelOf(m_inFlight.back().set.volumes);
}

void ServerReading::hear(const Answer& answer)
{
    const auto own
        = std::ranges::find_if(m_inFlight, [&answer](const OwnSet& each) { return each.set.serial == answer.set; });
    if (own == m_inFlight.end())
        return;
    if (answer.isDone)
        own->answered = answer.heard;
    else
        m_inFlight.erase(own);
}

void ServerReading::lose()
{
    // What played last is still the last.
    m_isConnected = false;
    m_output.reset();
    m_route = { "none", false };
    m_inFlight.clear();
    m_wish.reset();
    m_begun.clear();
}

void ServerReading::wish(float level, Wish why)
{
    m_wish = { level, why };
}

std::optional<VolumeSet> ServerReading::nextSet(Serial serial)
{
    const bool isWaiting = std::ranges::any_of(m_inFlight, [](const OwnSet& each) { return !each.answered; });
    if (!m_wish || isWaiting)
        return std::nullopt;
    const WishedLevel wished = *m_wish;
    m_wish.reset();
    if (!m_output || !m_route.hasSlot)
        return std::nullopt;
    const ChannelVolumes& current = m_inFlight.empty() ? m_output->volumes : m_inFlight.back().set.volumes;
    // Above full counts as full: whoever chooses full has it already.
    if (peakOf(current) > fullVolume && (wished.why == Wish::PutBack || wished.level >= 1))
        return std::nullopt;
    const auto balance = m_balances.find(m_output->traits.name);
    VolumeSet set { serial, m_output->index,
        volumesAt(wished.level, balance != m_balances.end() ? balance->second : m_output->volumes) };
    if (set.volumes == current)
        return std::nullopt;
    m_inFlight.push_back({ set });
    return set;
}

} // namespace panotra::sound
