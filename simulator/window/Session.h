/// A phone that a person plays with: every act is a line of the scenario language, so that what was done can be
/// done again.
///
/// The session's clock stands still between calls of `advance`; who calls it makes it follow the real one.
#pragma once

#include "simulator/picture/ShownMixer.h"
#include "simulator/scenario/Player.h"
#include "simulator/scenario/TraceLines.h"
#include "simulator/scenario/TraceWriter.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

struct SessionSetup {
    std::string preferencesFolder; ///< exists
    std::string resourceFolder {};
    ScreenSize screen {};
    std::optional<int> system {}; ///< the system whose shape the phone has; none: `ios` is left out
    std::function<void(std::string_view text)> record {}; ///< gets the scenario; may be empty
    std::function<void(std::string_view text)> trace {}; ///< gets the trace as JSON Lines; may be empty
    std::function<void(const std::string& message)> fileFailed {}; ///< as Audience has it
};

class Session {
public:
    static constexpr std::size_t traceLinesKept = 200;

    /// Loads the library and has the host launch. Where nobody has chosen, the mixer replaces the indicator.
    Session(SessionSetup setup, const Library& library);

    Device& device() { return m_device; }
    const Device& device() const { return m_device; }

    /// A line that may stand after `load`, `wait` aside. One that is no such line is a programmer's mistake.
    void play(const std::string& line);
    void playAll(const std::vector<std::string>& lines);

    /// Stores a number, boolean or string and announces it as the settings page does.
    void set(const std::string& domain, const std::string& key, const Json& value);
    /// Null if the key is absent.
    const Json* setting(const std::string& domain, const std::string& key) const;
    /// Looks whether other processes have changed settings; announces those that they have.
    void lookForForeignChanges();

    void advance(std::chrono::microseconds time);
    /// How long until something is due on the phone: at the latest the next full minute, which the status bar shows.
    /// A phone that nobody touches needs nothing else.
    std::chrono::microseconds untilDue() const;
    /// Whether what the screen shows changes by itself.
    bool isMoving() const;

    /// The last lines of the trace for people, the newest last. A command, as it was played, has no time.
    const std::deque<TraceLine>& traceLines() const { return m_traceLines; }

    /// Puts the time since the last line into the recording. To be called once, at the end.
    void finish();
    bool filesWorked() const { return m_player.filesWorked(); }

    /// Whether the phone can be started anew: not if it is recorded or traced, for both know of one phone.
    bool canStartAnew() const { return !m_setup.record && !m_setup.trace; }

private:
    struct ParsedLine;

    void start();
    void recordTime();
    void record(const std::string& line);
    void run(const std::string& line);
    void tell(const Command& command);
    void keep(TraceLine line);
    void moveClockTo(double time);
    void observe(const Json& event);

    SessionSetup m_setup;
    Device m_device;
    std::unique_ptr<TraceWriter> m_json;
    TraceLines m_lines;
    Player m_player;
    bool m_isLoaded = false;
    double m_lineTime = 0; ///< on the phone's clock, when the last line was played
    std::chrono::microseconds m_sinceLine { 0 };
    Json m_settings = Json::object(); ///< by domain and key, as this process knows them
    std::deque<TraceLine> m_traceLines;
};

} // namespace panotra::sim
