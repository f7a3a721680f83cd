/// Who draws what the screen shows.
#pragma once

#include <optional>
#include <string>

namespace panotra::sim {

class Device;

class Pictures {
public:
    virtual ~Pictures() = default;
    /// Writes what the screen of `device` shows now as `fileName` into the folder of pictures. Answers why not,
    /// as "NAME: reason", or nothing.
    virtual std::optional<std::string> write(Device& device, const std::string& fileName) = 0;
};

} // namespace panotra::sim
