/// The audio service.
#include "simulator/device/AudioService.h"

#include <algorithm>

namespace panotra::sim {

namespace {

constexpr float initialLevel = 0.5f;

} // namespace

AudioService::AudioService()
{
    for (const char* const category : audioCategories)
        levels.emplace_back(category, initialLevel);
}

float AudioService::level(const std::string& category) const
{
    const auto entry = std::ranges::find(levels, category, &decltype(levels)::value_type::first);
    return entry == levels.end() ? 0.0f : entry->second;
}

bool AudioService::hasLevel(const std::string& category) const
{
    return std::ranges::find(levels, category, &decltype(levels)::value_type::first) != levels.end();
}

void AudioService::store(const std::string& category, float level)
{
    const auto entry = std::ranges::find(levels, category, &decltype(levels)::value_type::first);
    if (entry == levels.end())
        levels.emplace_back(category, level);
    else
        entry->second = level;
}

} // namespace panotra::sim
