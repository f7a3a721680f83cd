/// Notices that a property list in a folder was written, by whatever process.
#pragma once

#include "simulator/window/FolderWatch.h"

namespace panotra::sim {

struct PreferenceWatch {
    /// As a watch over a folder has it, for the files that hold a domain.
    static std::unique_ptr<FolderWatch> make(
        const std::string& folder, std::function<void()> changed, std::function<void()> gone, std::string& failure);
};

} // namespace panotra::sim
