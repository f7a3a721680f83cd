/// The record of crossings.
#include "tests/hosts/Crossings.h"

namespace panotra::hosts {

namespace {

std::vector<std::string> recorded;
bool isRecording = false;

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

} // namespace panotra::hosts
