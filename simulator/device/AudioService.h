/// The audio service that the device has by itself: levels, the active route and the active category, in memory.
#pragma once

#include "facts/AudioNames.h"
#include "simulator/device/SoundService.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace panotra::sim {

/// A category without a level reads as 0. Levels are not clamped.
class AudioService final : public SoundService {
public:
    std::vector<std::pair<std::string, float>> levels; ///< in the order first stored; the known ones at 0.5
    std::optional<std::string> route = panotra::route::speaker; ///< none: there is no active route
    std::string activeCategory = category::audioVideo;
    bool echo = false; ///< a level that a program sets is announced if it is a new one

    AudioService();
    float level(const std::string& category) const override;
    bool hasLevel(const std::string& category) const override;
    std::vector<std::pair<std::string, float>> allLevels() const override { return levels; }
    std::optional<std::string> activeRoute() const override { return route; }
    std::string categoryInUse() const override { return activeCategory; }
    bool announcesSetLevels() const override { return echo; }
    void store(const std::string& category, float level) override;
};

} // namespace panotra::sim
