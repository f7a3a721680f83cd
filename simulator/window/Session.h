/// A phone that a person plays with: every act is a line of the scenario language, so that what was done can be
/// done again.
///
/// The session's clock stands still between calls of `advance`; who calls it makes it follow the real one. A scenario
/// may be played before the person has the phone: its lines are recorded as theirs are.
#pragma once

#include "simulator/picture/ShownMixer.h"
#include "simulator/scenario/Playback.h"
#include "simulator/scenario/Player.h"
#include "simulator/scenario/TraceLines.h"
#include "simulator/scenario/TraceWriter.h"
#include "simulator/window/LooksAnew.h"

#include <nlohmann/json.hpp>

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
    std::optional<std::string> preferencesFolder; ///< exists; none: what is stored lives in memory
    std::string resourceFolder {};
    ScreenSize screen {};
    std::optional<int> system {}; ///< the system whose shape the phone has; none: `ios` is left out
    /// Played from its first line on, free of mistakes, outlives the session; then screen and system are the
    /// scenario's own. Null: the phone is as somebody finds it who unpacks it.
    const Scenario* scenario = nullptr;
    std::function<void(std::string_view text)> record {}; ///< gets the scenario; may be empty
    std::function<void(std::string_view text)> trace {}; ///< gets the trace as JSON Lines; may be empty
    std::function<void(const std::string& message)> fileFailed {}; ///< as Audience has it
    std::function<void(std::size_t line, const std::string& message)> expectationFailed {}; ///< likewise
    /// Settings whose change by others is recorded and not announced: whoever needs them reads them anew. Empty: none.
    std::function<bool(const std::string& domain, const std::string& key)> isUnannounced {};
    bool isOnlyPhone = false; ///< what drives it knows this phone alone: it is not started anew
};

class Session : private Stage {
public:
    static constexpr std::size_t traceLinesKept = 200;

    /// Without a scenario it loads the library and has the host launch; where nobody has chosen, the mixer replaces the
    /// indicator. With one nothing is played yet.
    Session(SessionSetup setup, const Library& library);

    Device& device() { return m_device; }
    const Device& device() const { return m_device; }

    /// A line that may stand after `load`, `wait` aside: the person does it, and has the phone from then on. One that
    /// is no such line is a programmer's mistake.
    void play(const std::string& line);
    void playAll(const std::vector<std::string>& lines);

    /// The scenario as far as it has got; null if there is none.
    const Playback* playback() const { return m_playback ? &*m_playback : nullptr; }
    /// Whether the next line comes from the scenario: it is not over, and the person has not taken over.
    bool isPlaying() const { return m_playback && !m_isTakenOver && !m_playback->isAtEnd(); }
    /// The scenario's next line, or what is left of a wait. Nothing if none is being played.
    void playNextLine();
    /// The person has the phone, which is started if the scenario has not come so far.
    void takeOver();
    /// Hears of each line of the scenario before it is played.
    void setWatcher(std::function<void(const Command& command)> watcher) { m_watcher = std::move(watcher); }

    /// Stores a number, boolean or string and announces it as the settings page does. If it is of the looks
    /// of a mixer that is shown, that one is shown anew as soon as it can be.
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

    /// Gives `record` what was done so far, and from then on whatever is done, until the recording ends. It plays to
    /// the same trace as the session from its start on.
    void beginRecording(std::function<void(std::string_view text)> record);
    void endRecording();
    bool isRecording() const { return m_recorder != nullptr; }

    /// Puts the time since the last line into what is recorded. To be called once, at the end.
    void finish();
    bool filesWorked() const { return m_player.filesWorked(); }
    bool expectationsHeld() const { return m_player.expectationsHeld(); }

    /// Whether the phone can be started anew: not if it is recorded or traced, for both know of one phone.
    bool canStartAnew() const { return !m_setup.isOnlyPhone && !m_setup.record && !m_setup.trace && !isRecording(); }
    /// Whether it can be started as one of another system: a scenario says itself which it is for.
    bool canChangeSystem() const { return canStartAnew() && !m_playback; }

private:
    struct ParsedLine;

    void playCommand(const Command& command) override;
    void passPartOfWait(std::chrono::microseconds time) override;
    void finishWait(const Command& wait, std::chrono::microseconds rest) override;

    void start();
    void readSettings();
    void act(const std::string& line);
    void passTime(std::chrono::microseconds time);
    void remember(std::string_view text);
    void remember(const Command& command);
    void noteSetting(const Command& command);
    void recordTime();
    void record(const std::string& line);
    void run(const std::string& line);
    void tell(const Command& command);
    Json announced(const Json& settings) const;
    void keep(TraceLine line);
    void moveClockTo(double time);
    void observe(const Json& event);
    void showLooks();

    SessionSetup m_setup;
    Device m_device;
    std::unique_ptr<TraceWriter> m_json;
    TraceLines m_lines;
    Player m_player;
    std::optional<Playback> m_playback;
    LooksAnew m_looks;
    std::function<void(const Command&)> m_watcher;
    std::function<void(std::string_view)> m_recorder;
    std::string m_history; ///< all lines so far
    bool m_isTakenOver = false;
    bool m_isLoaded = false;
    double m_lineTime = 0; ///< on the phone's clock, when the last line was played
    std::chrono::microseconds m_sinceLine { 0 };
    std::chrono::microseconds m_waited { 0 }; ///< of the scenario's wait that has begun
    Json m_settings = Json::object(); ///< by domain and key, as this process knows them
    std::deque<TraceLine> m_traceLines;
};

} // namespace panotra::sim
