/// One context at a time, one question at a time.
#include "simulator/sound/PulseServer.h"

#include "simulator/sound/PulseOutput.h"
#include "simulator/sound/ServerSocket.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <string>
#include <utility>

#include <pulse/pulseaudio.h>

namespace panotra::sound {

namespace {

constexpr pa_usec_t firstRetry = 50 * PA_USEC_PER_MSEC;
constexpr pa_usec_t lastRetry = 60 * PA_USEC_PER_SEC;

/// A server that says a thousand times a second that something has changed is asked fifty times, the last time
/// after the last of them. A few questions may follow each other at once: what a person does is several changes to a
/// server.
constexpr pa_usec_t questionInterval = 20 * PA_USEC_PER_MSEC;
constexpr pa_usec_t questionsAtOnce = 5;

/// The loop's lock, which its thread holds while it works.
class LoopLock {
public:
    explicit LoopLock(pa_threaded_mainloop* loop)
        : m_loop(loop)
    {
        pa_threaded_mainloop_lock(m_loop);
    }
    ~LoopLock() { pa_threaded_mainloop_unlock(m_loop); }
    LoopLock(const LoopLock&) = delete;
    LoopLock& operator=(const LoopLock&) = delete;

private:
    pa_threaded_mainloop* m_loop;
};

/// An operation goes on without anybody who holds it.
void letRun(pa_operation* operation)
{
    if (operation != nullptr)
        pa_operation_unref(operation);
}

} // namespace

/// All of it is used with the loop's lock held. What libpulse calls is a static function that gets this as its last
/// argument.
struct PulseServer::Implementation {
    std::function<void()> wake {};
    pa_threaded_mainloop* loop = nullptr;
    pa_mainloop_api* api = nullptr;
    pa_context* context = nullptr;
    pa_time_event* retry = nullptr;
    pa_usec_t retryAfter = firstRetry;
    std::optional<SocketWatch> folder {};
    pa_io_event* folderNotices = nullptr;
    bool isReady = false;
    bool isLossTold = false;
    bool isHurried = false; ///< something has appeared since the last try

    Serial serial = 0;
    Serial changed = 0;
    bool isAsked = false; ///< a question is on its way
    bool isUntaken = false; ///< a snapshot lies among the reports
    bool isStale = false; ///< something changed since the last question
    pa_time_event* laterQuestion = nullptr; ///< while one has to wait
    pa_usec_t questionsUntil = 0; ///< up to when those asked so far count
    Snapshot answerSoFar {};
    std::deque<Serial> sets {}; ///< unanswered, in the order of the answers
    std::vector<Report> reports {};

    static Implementation& from(void* self) { return *static_cast<Implementation*>(self); }

    void report(Report report)
    {
        reports.push_back(std::move(report));
        wake();
    }

    void connect()
    {
        pa_proplist* const properties = pa_proplist_new();
        pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "Panotra");
        pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "net.qorvath.panotra");
        context = pa_context_new_with_proplist(api, nullptr, properties);
        pa_proplist_free(properties);
        if (context == nullptr)
            return lose("out of memory");
        pa_context_set_state_callback(context, stateChanged, this);
        // Whether a server runs is not this program's to say.
        if (pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0 && context != nullptr)
            lose(pa_strerror(pa_context_errno(context)));
    }

    static void stateChanged(pa_context* context, void* self)
    {
        Implementation& server = from(self);
        switch (pa_context_get_state(context)) {
        case PA_CONTEXT_READY:
            server.begin();
            break;
        case PA_CONTEXT_FAILED:
        case PA_CONTEXT_TERMINATED:
            server.lose(pa_strerror(pa_context_errno(context)));
            break;
        default:
            break;
        }
    }

    void begin()
    {
        isReady = true;
        isLossTold = false;
        retryAfter = firstRetry;
        stopWatching();
        pa_context_set_subscribe_callback(context, somethingChanged, this);
        constexpr auto interesting = static_cast<pa_subscription_mask_t>(
            PA_SUBSCRIPTION_MASK_SERVER | PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SINK_INPUT);
        letRun(pa_context_subscribe(context, interesting, nullptr, nullptr));
        refresh();
    }

    void lose(const char* why)
    {
        isReady = false;
        isAsked = false;
        isStale = false;
        forgetLaterQuestion();
        sets.clear();
        disconnect();
        if (!std::exchange(isLossTold, true))
            report(Loss { why });
        watchFolder();
        retryIn(retryAfter);
        retryAfter = std::min(2 * retryAfter, lastRetry);
    }

    void disconnect()
    {
        if (context == nullptr)
            return;
        pa_context_set_state_callback(context, nullptr, nullptr);
        pa_context_set_subscribe_callback(context, nullptr, nullptr);
        pa_context_disconnect(context);
        pa_context_unref(std::exchange(context, nullptr));
    }

    void watchFolder()
    {
        const auto place = folderOfServerSocket();
        if (folder || !place)
            return;
        folder.emplace(*place);
        if (folder->descriptor() >= 0)
            folderNotices = api->io_new(api, folder->descriptor(), PA_IO_EVENT_INPUT, appeared, this);
    }

    void stopWatching()
    {
        if (folderNotices != nullptr)
            api->io_free(std::exchange(folderNotices, nullptr));
        folder.reset();
        isHurried = false;
        if (retry != nullptr)
            api->time_free(std::exchange(retry, nullptr));
    }

    static void appeared(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* self)
    {
        Implementation& server = from(self);
        server.folder->renew();
        // However much appears, what is due stays due.
        if (server.context != nullptr || std::exchange(server.isHurried, true))
            return;
        server.retryAfter = firstRetry; // the socket may be there before anybody listens to it
        server.retryIn(firstRetry);
    }

    void retryIn(pa_usec_t time)
    {
        timeval due {};
        pa_timeval_add(pa_gettimeofday(&due), time);
        if (retry != nullptr)
            api->time_restart(retry, &due);
        else
            retry = api->time_new(api, &due, tryAgain, this);
    }

    static void tryAgain(pa_mainloop_api* api, pa_time_event* event, const timeval*, void* self)
    {
        api->time_restart(event, nullptr);
        from(self).isHurried = false;
        if (from(self).context == nullptr)
            from(self).connect();
    }

    static void somethingChanged(pa_context*, pa_subscription_event_type_t type, std::uint32_t, void* self)
    {
        Implementation& server = from(self);
        constexpr auto sinkChanged = static_cast<int>(PA_SUBSCRIPTION_EVENT_SINK) | PA_SUBSCRIPTION_EVENT_CHANGE;
        if (static_cast<int>(type) == sinkChanged)
            server.changed = ++server.serial;
        server.refresh();
    }

    void refresh()
    {
        isStale = true;
        if (isReady && !isAsked && !isUntaken && laterQuestion == nullptr)
            questionInTime();
    }

    void questionInTime()
    {
        const pa_usec_t now = pa_rtclock_now();
        const pa_usec_t earliest = now - questionsAtOnce * questionInterval;
        if (questionsUntil > now) {
            timeval due {};
            pa_timeval_add(pa_gettimeofday(&due), questionsUntil - now);
            laterQuestion = api->time_new(api, &due, timeForQuestion, this);
            return;
        }
        questionsUntil = std::max(questionsUntil, earliest) + questionInterval;
        question();
    }

    static void timeForQuestion(pa_mainloop_api*, pa_time_event*, const timeval*, void* self)
    {
        from(self).forgetLaterQuestion();
        if (from(self).isStale)
            from(self).refresh();
    }

    void forgetLaterQuestion()
    {
        if (laterQuestion != nullptr)
            api->time_free(std::exchange(laterQuestion, nullptr));
    }

    /// Asks for all of it at once. The answers come in this order, the last one ends the snapshot.
    void question()
    {
        isAsked = true;
        isStale = false;
        answerSoFar = { .asked = ++serial, .changed = changed };
        letRun(pa_context_get_server_info(context, serverSeen, this));
        letRun(pa_context_get_sink_info_list(context, sinkSeen, this));
        letRun(pa_context_get_sink_input_info_list(context, streamSeen, this));
    }

    static void serverSeen(pa_context*, const pa_server_info* info, void* self)
    {
        if (info == nullptr)
            return;
        Snapshot& answer = from(self).answerSoFar;
        answer.server = textOf(info->server_name) + ' ' + textOf(info->server_version);
        answer.defaultOutput = textOf(info->default_sink_name);
    }

    static void sinkSeen(pa_context*, const pa_sink_info* info, int end, void* self)
    {
        if (end == 0 && info != nullptr)
            from(self).answerSoFar.outputs.push_back(outputOf(*info));
    }

    static void streamSeen(pa_context*, const pa_sink_input_info* info, int end, void* self)
    {
        Implementation& server = from(self);
        if (end == 0 && info != nullptr) {
            server.answerSoFar.streams.push_back({ info->index, info->sink,
                textOf(pa_proplist_gets(info->proplist, PA_PROP_MEDIA_ROLE)), info->corked != 0 });
        }
        if (end == 0 || !server.isReady)
            return;
        server.isAsked = false;
        server.isUntaken = true;
        server.report(std::move(server.answerSoFar));
    }

    static void setAnswered(pa_context*, int isDone, void* self)
    {
        Implementation& server = from(self);
        if (server.sets.empty())
            return;
        const Serial set = server.sets.front();
        server.sets.pop_front();
        server.report(Answer { set, ++server.serial, isDone != 0 });
        server.refresh();
    }

    void send(const VolumeSet& set)
    {
        pa_cvolume volume {};
        volume.channels = static_cast<std::uint8_t>(std::min<std::size_t>(set.volumes.size(), PA_CHANNELS_MAX));
        std::copy_n(set.volumes.begin(), volume.channels, volume.values);
        pa_operation* const operation
            = isReady ? pa_context_set_sink_volume_by_index(context, set.output, &volume, setAnswered, this) : nullptr;
        if (operation == nullptr)
            return report(Answer { set.serial, ++serial, false });
        sets.push_back(set.serial);
        letRun(operation);
    }
};

PulseServer::PulseServer()
    : m_implementation(std::make_unique<Implementation>())
{
}

std::unique_ptr<PulseServer> PulseServer::make(std::function<void()> wake)
{
    std::unique_ptr<PulseServer> server(new PulseServer);
    Implementation& implementation = *server->m_implementation;
    implementation.wake = std::move(wake);
    implementation.loop = pa_threaded_mainloop_new();
    if (implementation.loop == nullptr)
        return nullptr;
    implementation.api = pa_threaded_mainloop_get_api(implementation.loop);
    implementation.connect();
    return pa_threaded_mainloop_start(implementation.loop) < 0 ? nullptr : std::move(server);
}

PulseServer::~PulseServer()
{
    Implementation& implementation = *m_implementation;
    if (implementation.loop == nullptr)
        return;
    pa_threaded_mainloop_stop(implementation.loop);
    implementation.disconnect();
    implementation.stopWatching();
    implementation.forgetLaterQuestion();
    pa_threaded_mainloop_free(implementation.loop);
}

std::vector<Report> PulseServer::take()
{
    Implementation& implementation = *m_implementation;
    const LoopLock lock(implementation.loop);
    implementation.isUntaken = false;
    if (implementation.isStale)
        implementation.refresh();
    return std::exchange(implementation.reports, {});
}

Serial PulseServer::nextSerial()
{
    const LoopLock lock(m_implementation->loop);
    return ++m_implementation->serial;
}

void PulseServer::set(const VolumeSet& set)
{
    const LoopLock lock(m_implementation->loop);
    m_implementation->send(set);
}

void PulseServer::ask()
{
    const LoopLock lock(m_implementation->loop);
    if (m_implementation->isReady && !m_implementation->isAsked && !m_implementation->isUntaken)
        m_implementation->question(); // whoever asks is not the server
    else
        m_implementation->isStale = true;
}

} // namespace panotra::sound
