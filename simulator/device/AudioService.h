/// The audio service: levels, the active route and the active category.
#pragma once

#include "facts/AudioNames.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace panotra::sim {

/// Levels by category, the active route and category. A category without a level reads as 0.
class AudioService {
public:
    std::vector<std::pair<std::string, float>> levels; ///< in the order first stored; the known ones at 0.5
    std::optional<std::string> route = panotra::route::speaker; ///< none: there is no active route
    std::string activeCategory = category::audioVideo;
    bool echo = false; ///< a level that a program sets is announced if it is a new one

    AudioService();
    float level(const std::string& category) const;
    bool hasLevel(const std::string& category) const;
    /// Nobody is told. Levels are not clamped.
    void store(const std::string& category, float level);
};

} // namespace panotra::sim
