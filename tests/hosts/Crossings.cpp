/// The record of crossings.
#include "tests/hosts/Crossings.h"

#include <utility>

namespace panotra::hosts {

namespace {

std::vector<std::string> recorded;
bool isRecording = false;
MessageListener messageListener;
std::vector<Observation> observed;

} // namespace

const std::vector<std::string>& crossings()
{
    return recorded;
}

void forgetCrossings()
{
    recorded.clear();
}

void recordCrossings(bool record)
{
    isRecording = record;
}

bool areCrossingsRecorded()
{
    return isRecording;
}

void noteCrossing(std::string_view what)
{
    if (isRecording)
        recorded.emplace_back(what);
}

const std::vector<Observation>& observations()
{
    return observed;
}

void noteObservation(Observation observation)
{
    observed.push_back(std::move(observation));
}

void listenToMessages(MessageListener listener)
{
    messageListener = std::move(listener);
}

void tellListener(void* receiver, const char* selector)
{
    if (messageListener)
        messageListener(receiver, selector);
}

} // namespace panotra::hosts
