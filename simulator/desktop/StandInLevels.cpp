/// Two property lists side by side.
#include "simulator/desktop/StandInLevels.h"

#include "facts/PublicNames.h"
#include "simulator/device/Preferences.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <memory>

namespace panotra::sim {

namespace {

/// Of the sliders that a drag cannot bring to zero one at zero would hold back every save.
constexpr float leastStandIn = 0.0625f;

std::optional<float> levelIn(const Json& domains, const char* domain, const char* key)
{
    const auto settings = domains.find(domain);
    if (settings == domains.end())
        return std::nullopt;
    const auto value = settings->find(key);
    return value == settings->end() ? std::nullopt : std::optional(static_cast<float>(numberOf(*value)));
}

} // namespace

bool StandInLevels::isLevel(std::string_view domainOfIt, std::string_view key)
{
    return domainOfIt == domain
        || (domainOfIt == ownDomain
            && std::ranges::find(volumeSlots, key, &VolumeSlot::preferenceKey) != volumeSlots.end());
}

StandInLevels::StandInLevels(Device& device)
    : m_device(device)
{
    const Json domains = device.preferences->all();
    for (const VolumeSlot& slot : volumeSlots)
        m_standIns[slot.number] = levelIn(domains, domain, slot.preferenceKey);
}

void StandInLevels::fillIn(float level)
{
    const Json domains = m_device.preferences->all();
    // Saved as they go, each in one replacement. The marks go first: a mark without a level means nothing, a level
    // without a mark would be somebody's.
    const std::unique_ptr<PreferenceHandle> levels(m_device.preferences->open(ownDomain));
    const std::unique_ptr<PreferenceHandle> marks(m_device.preferences->open(domain));
    for (const VolumeSlot& slot : volumeSlots) {
        if (levelIn(domains, ownDomain, slot.preferenceKey))
            continue;
        const float standIn = slot.canGoToZero ? level : std::max(level, leastStandIn);
        m_standIns[slot.number] = standIn;
        marks->setFloat(slot.preferenceKey, standIn);
        levels->setFloat(slot.preferenceKey, standIn);
    }
}

std::optional<float> StandInLevels::stored(SlotNumber slot) const
{
    return levelIn(m_device.preferences->all(), ownDomain, volumeSlot(slot).preferenceKey);
}

std::optional<float> StandInLevels::remembered(SlotNumber slot)
{
    const std::optional<float> level = stored(slot);
    if (!level || level == m_standIns[slot])
        return std::nullopt;
    isChosen(slot);
    return level;
}

void StandInLevels::isChosen(SlotNumber slot)
{
    if (!m_standIns[slot])
        return;
    m_standIns[slot].reset();
    m_device.preferences->unset(domain, volumeSlot(slot).preferenceKey);
}

void StandInLevels::take(SlotNumber slot, float level)
{
    m_device.preferences->set(ownDomain, volumeSlot(slot).preferenceKey, double { level });
    isChosen(slot);
}

} // namespace panotra::sim
