/// libpulse, one operation after the other.
#include "tests/desktop/SoundClient.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <utility>

#include <pulse/pulseaudio.h>

namespace panotra::testing {

namespace {

using Clock = std::chrono::steady_clock;

/// A server that does not get there by then never will.
constexpr std::chrono::seconds patience { 30 };

/// The server does not do what it was told, whatever the program under test does.
constexpr int exitStatusOfServerAtFault = 75;

[[noreturn]] void giveUp(const std::string& what)
{
    std::fprintf(stderr, "waited in vain for %s\n", what.c_str());
    std::exit(exitStatusOfServerAtFault); // and the servers with it
}

struct SinkAnswer {
    std::string name;
    std::uint32_t index = PA_INVALID_INDEX;
    std::pair<std::uint32_t, std::uint32_t> volumes {};
};

void takeSink(pa_context*, const pa_sink_info* info, int end, void* answer)
{
    auto& asked = *static_cast<SinkAnswer*>(answer);
    if (end == 0 && info != nullptr && asked.name == info->name)
        asked = { info->name, info->index,
            { info->volume.values[0], info->volume.values[info->volume.channels > 1 ? 1 : 0] } };
}

void takeServer(pa_context*, const pa_server_info* info, void* answer)
{
    if (info != nullptr && info->default_sink_name != nullptr)
        *static_cast<std::string*>(answer) = info->default_sink_name;
}

} // namespace

SoundClient::SoundClient()
    : m_loop(pa_mainloop_new())
{
    const auto deadline = Clock::now() + patience;
    for (bool isReady = false; !isReady;) {
        if (Clock::now() > deadline)
            giveUp("the server");
        m_context = pa_context_new(pa_mainloop_get_api(m_loop), "a person");
        pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
        while (PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context)) && !isReady) {
            pa_mainloop_iterate(m_loop, 1, nullptr);
            isReady = pa_context_get_state(m_context) == PA_CONTEXT_READY;
        }
        if (!isReady) {
            pa_context_unref(m_context);
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }
}

SoundClient::~SoundClient()
{
    for (const auto& [index, stream] : m_streams) {
        pa_stream_disconnect(stream);
        pa_stream_unref(stream);
    }
    if (m_last != nullptr)
        pa_operation_unref(m_last);
    pa_context_disconnect(m_context);
    pa_context_unref(m_context);
    pa_mainloop_free(m_loop);
}

void SoundClient::waitFor(pa_operation* operation)
{
    if (operation == nullptr)
        giveUp("an operation that the server takes");
    while (pa_operation_get_state(operation) == PA_OPERATION_RUNNING)
        pa_mainloop_iterate(m_loop, 1, nullptr);
    pa_operation_unref(operation);
}

template <typename Condition> void SoundClient::waitUntil(const std::string& what, Condition condition)
{
    const auto deadline = Clock::now() + patience;
    while (!condition()) {
        if (Clock::now() > deadline)
            giveUp(what);
        goOn(2);
    }
}

void SoundClient::addOutput(const std::string& name, const std::string& formFactor, const std::string& bus)
{
    std::string properties = bus.empty() ? "" : " device.bus=" + bus;
    if (!formFactor.empty())
        properties += " device.form_factor=" + formFactor;
    const std::string arguments = "sink_name=" + name + " sink_properties=\"" + properties + "\"";
    const auto take = [](pa_context*, std::uint32_t module, void* self) {
        *static_cast<std::uint32_t*>(self) = module;
    };
    waitFor(pa_context_load_module(m_context, "module-null-sink", arguments.c_str(), take, &m_lastAdded));
    waitUntil("an output", [&] {
        SinkAnswer answer { .name = name };
        waitFor(pa_context_get_sink_info_list(m_context, takeSink, &answer));
        return answer.index != PA_INVALID_INDEX;
    });
}

void SoundClient::removeLastAdded()
{
    waitFor(pa_context_unload_module(m_context, m_lastAdded, nullptr, nullptr));
}

void SoundClient::useOutputSoon(const std::string& name)
{
    if (m_last != nullptr)
        pa_operation_unref(m_last);
    m_last = pa_context_set_default_sink(m_context, name.c_str(), nullptr, nullptr);
}

void SoundClient::useOutput(const std::string& name)
{
    int tries = 0;
    std::string what;
    std::string now;
    const auto choose = [this](const std::string& output) {
        waitFor(pa_context_set_default_sink(m_context, output.c_str(), nullptr, nullptr));
    };
    waitUntil(what, [&] {
        // WirePlumber overlooks a choice now and then, and the same one again is no change that it is told of: it is
        // told of one when what is so now has been chosen in between.
        if (tries++ % 50 == 0) {
            if (!now.empty() && now != name)
                choose(now);
            choose(name);
        }
        waitFor(pa_context_get_server_info(m_context, takeServer, &now));
        what = name + " as the default output, with all streams on it; it is " + now;
        return now == name && allIsHeardOn(name);
    });
}

bool SoundClient::allIsHeardOn(const std::string& output)
{
    SinkAnswer answer { .name = output };
    waitFor(pa_context_get_sink_info_by_name(m_context, output.c_str(), takeSink, &answer));
    struct Elsewhere {
        std::uint32_t output;
        std::size_t onIt = 0;
    } elsewhere { answer.index };
    const auto take = [](pa_context*, const pa_sink_input_info* info, int end, void* self) {
        if (end == 0 && info != nullptr)
            static_cast<Elsewhere*>(self)->onIt += info->sink == static_cast<Elsewhere*>(self)->output ? 1 : 0;
    };
    waitFor(pa_context_get_sink_input_info_list(m_context, take, &elsewhere));
    return elsewhere.onIt >= m_streams.size();
}

std::size_t SoundClient::streamsOnServer()
{
    std::size_t count = 0;
    const auto take = [](pa_context*, const pa_sink_input_info*, int end, void* self) {
        *static_cast<std::size_t*>(self) += end == 0 ? 1 : 0;
    };
    waitFor(pa_context_get_sink_input_info_list(m_context, take, &count));
    return count;
}

void SoundClient::setVolume(const std::string& output, std::uint32_t volume)
{
    setVolumes(output, volume, volume);
}

void SoundClient::setVolumes(const std::string& output, std::uint32_t left, std::uint32_t right)
{
    pa_cvolume volume {};
    volume.channels = 2;
    volume.values[0] = left;
    volume.values[1] = right;
    waitFor(pa_context_set_sink_volume_by_name(m_context, output.c_str(), &volume, nullptr, nullptr));
}

void SoundClient::setVolumeSoon(const std::string& output, std::uint32_t volume)
{
    pa_cvolume both {};
    pa_cvolume_set(&both, 2, volume);
    if (m_last != nullptr)
        pa_operation_unref(m_last);
    m_last = pa_context_set_sink_volume_by_name(m_context, output.c_str(), &both, nullptr, nullptr);
}

void SoundClient::finish()
{
    if (m_last != nullptr)
        waitFor(std::exchange(m_last, nullptr));
}

std::pair<std::uint32_t, std::uint32_t> SoundClient::volumes(const std::string& output)
{
    SinkAnswer answer { .name = output };
    waitFor(pa_context_get_sink_info_by_name(m_context, output.c_str(), takeSink, &answer));
    return answer.volumes;
}

std::map<std::string, std::uint32_t> SoundClient::allVolumes()
{
    std::map<std::string, std::uint32_t> all;
    const auto take = [](pa_context*, const pa_sink_info* info, int end, void* self) {
        if (end == 0 && info != nullptr)
            static_cast<decltype(all)*>(self)->emplace(info->name, info->volume.values[0]);
    };
    waitFor(pa_context_get_sink_info_list(m_context, take, &all));
    return all;
}

std::uint32_t SoundClient::play(const std::string& role)
{
    constexpr pa_sample_spec format { PA_SAMPLE_S16LE, 8000, 1 };
    pa_proplist* const properties = pa_proplist_new();
    if (!role.empty())
        pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, role.c_str());
    pa_stream* const stream = pa_stream_new_with_proplist(m_context, "silence", &format, nullptr, properties);
    pa_proplist_free(properties);
    // As rarely as can be: nobody listens.
    const pa_buffer_attr buffer { 32000, 16000, 1, 16000, UINT32_MAX };
    const auto silence = [](pa_stream* self, std::size_t size, void*) {
        const std::string zeros(size, '\0');
        pa_stream_write(self, zeros.data(), zeros.size(), nullptr, 0, PA_SEEK_RELATIVE);
    };
    pa_stream_set_write_callback(stream, silence, nullptr);
    pa_stream_connect_playback(stream, nullptr, &buffer, PA_STREAM_NOFLAGS, nullptr, nullptr);
    waitUntil("a stream", [&] { return pa_stream_get_state(stream) == PA_STREAM_READY; });
    const std::uint32_t index = pa_stream_get_index(stream);
    m_streams.emplace(index, stream);
    waitUntil("a stream to be heard", [&] {
        std::string now;
        waitFor(pa_context_get_server_info(m_context, takeServer, &now));
        return allIsHeardOn(now);
    });
    return index;
}

void SoundClient::pause(std::uint32_t stream, bool isPaused)
{
    waitFor(pa_stream_cork(m_streams.at(stream), isPaused ? 1 : 0, nullptr, nullptr));
    const auto take = [](pa_context*, const pa_sink_input_info* info, int end, void* self) {
        if (end == 0 && info != nullptr)
            *static_cast<bool*>(self) = info->corked != 0;
    };
    waitUntil("a stream to pause or go on", [&] {
        bool isCorked = !isPaused;
        waitFor(pa_context_get_sink_input_info(m_context, stream, take, &isCorked));
        return isCorked == isPaused;
    });
}

void SoundClient::stop(std::uint32_t stream)
{
    pa_stream* const stopped = m_streams.at(stream);
    m_streams.erase(stream);
    pa_stream_disconnect(stopped);
    waitUntil("the end of a stream", [&] { return pa_stream_get_state(stopped) == PA_STREAM_TERMINATED; });
    pa_stream_unref(stopped);
    waitUntil("the server to forget a stream", [&] { return streamsOnServer() == m_streams.size(); });
}

void SoundClient::listen()
{
    const auto take = [](pa_context*, pa_subscription_event_type_t type, std::uint32_t, void* self) {
        if (static_cast<SoundClient*>(self)->changed)
            static_cast<SoundClient*>(self)->changed(type & PA_SUBSCRIPTION_EVENT_FACILITY_MASK);
    };
    pa_context_set_subscribe_callback(m_context, take, this);
    constexpr auto interesting
        = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_SINK);
    waitFor(pa_context_subscribe(m_context, interesting, nullptr, nullptr));
}

void SoundClient::goOn(int milliseconds)
{
    if (pa_mainloop_prepare(m_loop, milliseconds * 1000) >= 0 && pa_mainloop_poll(m_loop) >= 0)
        pa_mainloop_dispatch(m_loop);
}

} // namespace panotra::testing
