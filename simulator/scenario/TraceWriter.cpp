/// JSON Lines, and the choice between the formats.
#include "simulator/scenario/TraceWriter.h"

#include "simulator/device/EventForms.h"
#include "simulator/scenario/StoryTrace.h"
#include "simulator/scenario/TextTrace.h"

#include <utility>

namespace panotra::sim {

namespace {

class JsonTrace : public TraceWriter {
public:
    explicit JsonTrace(Sink sink)
        : m_sink(std::move(sink))
    {
    }

    void watch(Device& device) override { device.traceLines = m_sink; }
    void event(const Json& event) override { m_sink(jsonLine(event)); }

private:
    Sink m_sink;
};

} // namespace

void TraceWriter::watch(Device& device)
{
    device.traceSink = [this](const Json& each) {
        event(each);
    };
}

std::unique_ptr<TraceWriter> makeTraceWriter(TraceFormat format, TraceWriter::Sink sink, TextLook look)
{
    switch (format) {
    case TraceFormat::Story:
        return std::make_unique<StoryTrace>(std::move(sink), std::move(look));
    case TraceFormat::Verbose:
        return std::make_unique<TextTrace>(std::move(sink), std::move(look.only));
    case TraceFormat::JsonLines:
        break;
    }
    return std::make_unique<JsonTrace>(std::move(sink));
}

std::string jsonLine(const Json& event)
{
    return jsonText(event) + '\n';
}

} // namespace panotra::sim
