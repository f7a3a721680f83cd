/// The trace on its way out: as JSON Lines for programs, or as text for people.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/Grammar.h"
#include "simulator/scenario/TextLook.h"

#include <functional>
#include <memory>
#include <string_view>

namespace panotra::sim {

enum class TraceFormat {
    Story, ///< for people: what happened, in words and once
    Verbose, ///< for people: every event, rows of them told together
    JsonLines, ///< for programs
};

class TraceWriter {
public:
    using Sink = std::function<void(std::string_view text)>;

    virtual ~TraceWriter() = default;
    /// From here on it writes what the device reports, and must outlive the last event.
    virtual void watch(Device& device);
    /// The events from here on come of this command.
    virtual void command(const Command&) { }
    virtual void event(const Json& event) = 0;
    /// Writes out what was held back.
    virtual void finish() { }
};

/// `look` is that of text; programs get all events.
std::unique_ptr<TraceWriter> makeTraceWriter(TraceFormat format, TraceWriter::Sink sink, TextLook look = {});

/// One object as a line of JSON Lines. Numbers read back as the very same; bytes that are no UTF-8 are replaced.
std::string jsonLine(const Json& event);

} // namespace panotra::sim
