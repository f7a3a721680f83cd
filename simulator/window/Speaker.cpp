/// SDL's queue of samples.
#include "simulator/window/Speaker.h"

namespace panotra::sim {

Speaker::~Speaker()
{
    close();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool Speaker::open()
{
    if (m_device != 0)
        return true;
    if (m_isMissing)
        return false;
    SDL_AudioSpec wanted {};
    wanted.freq = samplesPerSecond;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = 512;
    if (SDL_WasInit(SDL_INIT_AUDIO) != 0 || SDL_InitSubSystem(SDL_INIT_AUDIO) == 0)
        m_device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    m_isMissing = m_device == 0;
    return !m_isMissing;
}

void Speaker::close()
{
    if (m_device != 0)
        SDL_CloseAudioDevice(m_device);
    m_device = 0;
    m_closesAt.reset();
}

void Speaker::play(const Samples& samples, Moment now)
{
    using namespace std::chrono_literals;
    if (!open())
        return;
    SDL_ClearQueuedAudio(m_device);
    SDL_QueueAudio(m_device, samples.data(), static_cast<Uint32>(samples.size() * sizeof(samples.front())));
    SDL_PauseAudioDevice(m_device, 0);
    const auto length = std::chrono::microseconds(1s) * static_cast<std::int64_t>(samples.size()) / samplesPerSecond;
    constexpr auto latency = 300ms; // what is on its way is not cut off
    m_closesAt = now + length + latency;
}

void Speaker::closeIfDue(Moment now)
{
    if (m_closesAt && now >= *m_closesAt)
        close();
}

} // namespace panotra::sim
