/// Notices that a file in a folder was written, by whatever process.
#pragma once

#include "simulator/preferences/FileDescriptor.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace panotra::sim {

class FolderWatch {
public:
    /// All are called on a thread of the watch's own.
    struct Ears {
        std::function<bool(std::string_view fileName)> concerns; ///< whether a file in the folder is one to watch
        std::function<void()> changed; ///< such a file was written, has come, or has gone
        std::function<void()> gone; ///< the folder itself is: nothing is noticed any more
    };

    /// Null and the reason in `failure` if the folder cannot be watched.
    static std::unique_ptr<FolderWatch> make(const std::string& folder, Ears ears, std::string& failure);
    /// None of them is called any more afterwards.
    ~FolderWatch();

private:
    FolderWatch() = default;
    void run(const Ears& ears) const;
    bool waitForNotices() const;

    preferences::FileDescriptor m_notices;
    preferences::FileDescriptor m_end; ///< readable once the watch is to end
    std::thread m_thread;
};

} // namespace panotra::sim
