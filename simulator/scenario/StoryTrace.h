/// The trace as a story: the scenario's comments and commands, and under each what happened, in words and once. No line
/// is wider than the look allows.
#pragma once

#include "simulator/scenario/Story.h"
#include "simulator/scenario/TraceWriter.h"

#include <string>
#include <vector>

namespace panotra::sim {

class StoryTrace : public TraceWriter {
public:
    StoryTrace(Sink sink, TextLook look);

    void command(const Command& command) override;
    void event(const Json& event) override;
    void finish() override;

private:
    void tellMoment();
    void tellReport(const Json& event);
    void write(const std::string& text);

    Sink m_sink;
    TextLook m_look;
    Story m_story;
    std::vector<Json> m_moment; ///< events of one time, of one command
    std::string m_heading {}; ///< the command and its comments, while nothing came of it
    bool m_wroteHeading = false;
    bool m_wroteEvents = false; ///< since the last heading
};

} // namespace panotra::sim
