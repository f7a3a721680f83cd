/// Levels by category, and the one of them that the server is told.
#include "simulator/sound/ServerAudio.h"

#include "facts/AudioNames.h"

#include <algorithm>

namespace panotra::sound {

namespace {

using Levels = std::vector<std::pair<std::string, float>>;

Levels::const_iterator find(const Levels& levels, const std::string& category)
{
    return std::ranges::find(levels, category, &Levels::value_type::first);
}

} // namespace

ServerAudio::ServerAudio(ServerReading& reading, float limit)
    : m_reading(reading)
    , m_limit(limit)
    , m_category(category::audioVideo)
{
    for (const char* const category : audioCategories)
        m_levels.emplace_back(category, 0.0f);
}

void ServerAudio::follow(const Announcement& happened)
{
    // There is one volume for all: what has never been heard by itself would be heard at it.
    if (!std::exchange(m_hasFollowed, true)) {
        for (auto& [category, level] : m_levels)
            level = happened.level;
    }
    m_route = happened.route.name;
    m_category = happened.category;
    keep(m_category, happened.level);
}

float ServerAudio::level(const std::string& category) const
{
    const auto found = find(m_levels, category);
    return found == m_levels.end() ? 0.0f : found->second;
}

bool ServerAudio::hasLevel(const std::string& category) const
{
    return find(m_levels, category) != m_levels.end();
}

void ServerAudio::store(const std::string& category, float level)
{
    if (setLevels == SetLevels::Dropped)
        return;
    // No number is no level.
    const float asked = level >= 0 ? std::min(level, 1.0f) : 0.0f;
    const bool isPutBack = setLevels == SetLevels::PutBack;
    const float allowed = isPutBack ? std::min(asked, m_limit) : asked;
    keep(category, allowed);
    if (category == m_category)
        m_reading.wish(allowed, isPutBack ? Wish::PutBack : Wish::Chosen);
}

void ServerAudio::keep(const std::string& category, float level)
{
    const auto found = std::ranges::find(m_levels, category, &Levels::value_type::first);
    if (found == m_levels.end())
        m_levels.emplace_back(category, level);
    else
        found->second = level;
}

} // namespace panotra::sound
