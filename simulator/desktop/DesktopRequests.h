/// What other processes ask of the mixer that runs: a line each, answered by a text.
#pragma once

#include "simulator/preferences/FileDescriptor.h"

#include <poll.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace panotra::sim {

/// The requests, as they go over the socket.
namespace request {
inline constexpr const char* status = "status"; ///< answered by what `--status` prints
inline constexpr const char* present = "present"; ///< shows the mixer
} // namespace request

/// The answer to `present` where the mixer that runs has nothing to show it on.
inline constexpr const char* nothingToShow = "headless\n";
inline constexpr const char* isShown = "shown\n";

class DesktopRequests {
public:
    /// What is to be done about a request: the answer, or none as long as there is none yet.
    using Answer = std::function<std::optional<std::string>()>;
    /// The way to the answer of a request; empty for one that nobody knows.
    using Take = std::function<Answer(const std::string& request)>;

    /// `door`: where those connect who ask.
    DesktopRequests(int door, Take take);

    /// Adds what has to be waited for.
    void addTo(std::vector<pollfd>& waitingFor) const;
    /// Reads what there is to be read, and answers what can be answered. Never waits.
    void serve();

private:
    struct Visitor {
        preferences::FileDescriptor connection;
        std::string line {};
        Answer answer {};
        bool isDone = false;
    };

    void admit();
    void listenTo(Visitor& visitor) const;
    static void answer(Visitor& visitor);

    int m_door;
    Take m_take;
    std::vector<Visitor> m_visitors;
};

} // namespace panotra::sim
