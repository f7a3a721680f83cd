/// JSON Lines, and the choice between the formats.
#include "simulator/scenario/TraceWriter.h"

#include "simulator/scenario/StoryTrace.h"
#include "simulator/scenario/TextTrace.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace panotra::sim {

namespace {

class JsonTrace : public TraceWriter {
public:
    explicit JsonTrace(Sink sink)
        : m_sink(std::move(sink))
    {
    }

    void event(const Json& event) override { m_sink(jsonLine(event)); }

private:
    Sink m_sink;
};

} // namespace

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
    constexpr int onOneLine = -1;
    // Preference files of other programs may hold any bytes.
    return event.dump(onOneLine, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace panotra::sim
