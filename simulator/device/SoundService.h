/// What the device asks of whoever makes its sound: its own memory (AudioService.h), or a sound server.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace panotra::sim {

/// Levels by category, the active route and the active category. Used on the device's main thread alone.
class SoundService {
public:
    virtual ~SoundService() = default;

    /// 0 for a category without a level.
    virtual float level(const std::string& category) const = 0;
    virtual bool hasLevel(const std::string& category) const = 0;
    /// In the order in which they are to be shown.
    virtual std::vector<std::pair<std::string, float>> allLevels() const = 0;
    /// None: there is no active route.
    virtual std::optional<std::string> activeRoute() const = 0;
    virtual std::string categoryInUse() const = 0;
    /// Whether a level that a program sets is announced, if it is a new one.
    virtual bool announcesSetLevels() const = 0;

    /// Somebody sets a level. Nobody is told. Not clamped here: a service may know its own bounds.
    virtual void store(const std::string& category, float level) = 0;
};

} // namespace panotra::sim
