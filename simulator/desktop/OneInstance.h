/// One mixer a session, and how a second start reaches the first.
#pragma once

#include "simulator/preferences/FileDescriptor.h"

#include <optional>
#include <string>

namespace panotra::sim {

/// The place of the one that runs: a lock that ends with it however that ends, and a socket beside it. What a killed
/// one leaves behind is in nobody's way.
class OneInstance {
public:
    enum class Begun { First, Second, Failed };

    /// In `$XDG_RUNTIME_DIR`. The reason in `failure` after a failure.
    Begun begin(std::string& failure);
    /// Takes the socket away.
    ~OneInstance();
    OneInstance() = default;
    OneInstance(const OneInstance&) = delete;
    OneInstance& operator=(const OneInstance&) = delete;

    /// Those who connect to it have a request; see DesktopRequests.h.
    int descriptor() const { return m_door.get(); }

private:
    preferences::FileDescriptor m_lock;
    preferences::FileDescriptor m_door;
    std::string m_socket; ///< once it is ours
};

/// What the one that runs answers to a request of one line; none: it does not, the reason in `failure`.
std::optional<std::string> askRunningDesktop(const std::string& request, std::string& failure);

} // namespace panotra::sim
