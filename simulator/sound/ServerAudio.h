/// A sound server as the simulated device's audio service: one volume out there, a level for each category in here.
#pragma once

#include "simulator/device/SoundService.h"
#include "simulator/sound/ServerReading.h"

namespace panotra::sound {

/// What is done with a level that is set.
enum class SetLevels {
    Chosen, ///< somebody chose it: the server is told
    PutBack, ///< it was remembered: the server is told, up to the limit
    Dropped, ///< nothing
};

class ServerAudio final : public sim::SoundService {
public:
    /// `limit`: how loud what is put back may be, 0 to 1.
    ServerAudio(ServerReading& reading, float limit);

    /// From now on this is so.
    void follow(const Announcement& happened);
    /// Whether there was ever an announcement to follow. Before, all levels are 0 and there is no route.
    bool hasFollowed() const { return m_hasFollowed; }
    SetLevels setLevels = SetLevels::Chosen;

    float level(const std::string& category) const override;
    bool hasLevel(const std::string& category) const override;
    std::vector<std::pair<std::string, float>> allLevels() const override { return m_levels; }
    std::optional<std::string> activeRoute() const override { return m_route; }
    std::string categoryInUse() const override { return m_category; }
    /// Ours are not: the server confirms them instead, and that is not news.
    bool announcesSetLevels() const override { return false; }
    /// The category in use is what is heard. The others keep their level until they are.
    void store(const std::string& category, float level) override;

private:
    void keep(const std::string& category, float level);

    ServerReading& m_reading;
    const float m_limit;
    bool m_hasFollowed = false;
    std::vector<std::pair<std::string, float>> m_levels;
    std::optional<std::string> m_route;
    std::string m_category;
};

} // namespace panotra::sound
