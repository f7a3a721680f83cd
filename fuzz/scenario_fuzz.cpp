/// Feeds any bytes to the scenario language and plays what it takes for a scenario, with a library that does nothing.
#include "simulator/device/Device.h"
#include "simulator/scenario/Grammar.h"
#include "simulator/scenario/Player.h"
#include "simulator/scenario/TraceWriter.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

using namespace panotra::sim;

void play(const Scenario& scenario)
{
    const auto discard = [](std::string_view) {
    };
    const auto story = makeTraceWriter(TraceFormat::Story, discard);
    const auto text = makeTraceWriter(TraceFormat::Verbose, discard);
    const auto json = makeTraceWriter(TraceFormat::JsonLines, discard);
    Device device;
    device.traceSink = [&](const Json& event) {
        story->event(event);
        text->event(event);
        json->event(event);
    };
    const Library library {
        .load = [] {},
        .globals = [] { return Json::object(); },
        .layoutMemory = [] { return LayoutMemory { .justCreated = true, .previousOrientation = -1 }; },
    };
    const Audience audience {
        .commandBegins =
            [&](const Command& command) {
                story->command(command);
                text->command(command);
            },
        .expectationFailed = {},
        .fileFailed = {},
    };
    Player(device, library, audience).play(scenario);
    story->finish();
    text->finish();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto scenario = parseScenario(bytes); scenario.mistakes.empty())
        play(scenario);
    return 0;
}
