/// A client of the sound server that waits for whatever it asks: a person with another mixer, and programs that play.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

struct pa_context;
struct pa_mainloop;
struct pa_operation;
struct pa_stream;

namespace panotra::testing {

/// What tools call 100%.
inline constexpr std::uint32_t fullScale = 65536;

class SoundClient {
public:
    /// Waits for a server to be there.
    SoundClient();
    ~SoundClient();
    SoundClient(const SoundClient&) = delete;
    SoundClient& operator=(const SoundClient&) = delete;

    /// An empty form factor or bus: the output does not say.
    void addOutput(const std::string& name, const std::string& formFactor, const std::string& bus);
    void removeLastAdded();
    /// Makes it the default; answers once everything that plays is heard there.
    void useOutput(const std::string& name);
    /// Of the first channel; of the second one, if it is another.
    void setVolume(const std::string& output, std::uint32_t volume);
    void setVolumes(const std::string& output, std::uint32_t left, std::uint32_t right);
    std::uint32_t volume(const std::string& output) { return volumes(output).first; }
    std::pair<std::uint32_t, std::uint32_t> volumes(const std::string& output);
    /// Of every output, the first channel.
    std::map<std::string, std::uint32_t> allVolumes();

    /// Begins to play silence; answers a number for it once it is heard.
    std::uint32_t play(const std::string& role);
    void pause(std::uint32_t stream, bool isPaused);
    void stop(std::uint32_t stream);

    // Without waiting, for those who are in a hurry. `finish` waits for all of it.
    void setVolumeSoon(const std::string& output, std::uint32_t volume);
    void useOutputSoon(const std::string& name);
    void finish();

    /// Calls it for every change that the server tells of from now on: which kind of thing, by the library's number.
    std::function<void(unsigned kind)> changed;
    void listen();
    /// Does what there is to do within that time.
    void goOn(int milliseconds);

private:
    void waitFor(pa_operation* operation);
    template <typename Condition> void waitUntil(const std::string& what, Condition condition);
    bool allIsHeardOn(const std::string& output);
    std::size_t streamsOnServer();

    pa_mainloop* m_loop = nullptr;
    pa_context* m_context = nullptr;
    std::map<std::uint32_t, pa_stream*> m_streams;
    pa_operation* m_last = nullptr;
    std::uint32_t m_lastAdded = 0; ///< the module that is the output
};

} // namespace panotra::testing
