/// Notices that a property list in a folder was written, by whatever process.
#pragma once

#include "simulator/preferences/FileDescriptor.h"

#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace panotra::sim {

class PreferenceWatch {
public:
    /// Both are called on a thread of the watch's own: `changed` when something was written, `gone` when the folder
    /// itself is removed or moved away, after which nothing is noticed any more. Null and the reason in `failure` if
    /// the folder cannot be watched.
    static std::unique_ptr<PreferenceWatch> make(
        const std::string& folder, std::function<void()> changed, std::function<void()> gone, std::string& failure);
    /// Neither is called any more afterwards.
    ~PreferenceWatch();

private:
    PreferenceWatch() = default;
    void run(const std::function<void()>& changed, const std::function<void()>& gone) const;
    bool waitForNotices() const;

    preferences::FileDescriptor m_notices;
    preferences::FileDescriptor m_end; ///< readable once the watch is to end
    std::thread m_thread;
};

} // namespace panotra::sim
