/// Counts what the library asks of the process: every call of a function of the platform, and every message.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::hosts {

/// What was asked since the last `forgetCrossings`, in order: names of functions, and messages as "-[Class selector]"
/// or "+[Class selector]".
const std::vector<std::string>& crossings();
void forgetCrossings();
/// Nothing is recorded before the first time this is called with true.
void recordCrossings(bool record);

/// How the library asked to be told of a notification.
struct Observation {
    void* center;
    void* observer;
    std::string name;
    const void* object;
    std::intptr_t suspensionBehavior;
};
/// In order; recorded always.
const std::vector<Observation>& observations();

/// Told of each message that the library sends, and of each count that it gives back by the name "release", before it
/// arrives: the receiver, an object or a class, and the name of the selector.
using MessageListener = std::function<void(void* receiver, const char* selector)>;
/// An empty one ends it.
void listenToMessages(MessageListener listener);

// For the stand-ins.

bool areCrossingsRecorded();
void noteCrossing(std::string_view what);
void noteObservation(Observation observation);
void tellListener(void* receiver, const char* selector);

} // namespace panotra::hosts
