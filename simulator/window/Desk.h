/// What the window does for a person besides what the phone does: time that stands still or runs, pictures,
/// recordings, and a scenario from its start again.
#pragma once

#include "simulator/window/Pace.h"
#include "simulator/window/Session.h"
#include "simulator/window/WindowKeys.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace panotra::sim {

class OutputFile;

/// A sentence that is shown over the phone for a while.
struct Notice {
    std::string text;
    bool stays = false; ///< until there is another one
    std::size_t number = 0; ///< counts up: the same words may be said again
};

class Desk {
public:
    struct Means {
        std::string folder = "."; ///< where pictures and recordings go
        /// Writes what the phone shows into the file. Answers why not, or nothing.
        std::function<std::optional<std::string>(const std::string& path)> takePicture {};
        /// Puts the wallpaper of that name behind the home screen. Answers false and the reason if there is none.
        std::function<bool(const std::string& wallpaper, std::string& failure)> hang {};
        /// Where a file went, in a line.
        std::function<void(const std::string& message)> tell {};
        /// What went wrong with a file, in a line.
        std::function<void(const std::string& message)> complain {};
    };

    Desk(Session& session, Means means);
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    /// Those acts that concern the window's own looks, its end and the choice of a system are left to others.
    void perform(WindowAct act);
    void say(std::string text, bool stays = false);
    void hang(const std::string& wallpaper);
    /// It hangs there already.
    void setWallpaperName(const std::string& name) { m_wallpaper = name; }
    /// As it is called in the menu; empty until one was chosen.
    const std::string& wallpaperName() const { return m_wallpaper; }
    /// Ends the recording that runs, if one does.
    void endRecording();
    void beSilent() { m_notice.reset(); }

    Pace& pace() { return m_pace; }
    const Pace& pace() const { return m_pace; }
    const std::optional<Notice>& notice() const { return m_notice; }
    /// Whether buttons click and steps of the volume sound.
    bool isHeard() const { return m_isHeard; }
    void setHeard(bool isHeard) { m_isHeard = isHeard; }
    bool wantsStart() const { return m_wantsStart; }
    bool filesWorked() const { return m_filesWorked; }

    /// The real time of a frame: what `NextFrame` goes on by.
    static constexpr std::chrono::microseconds frameInterval { 16667 };

private:
    void goToStart();
    void takePicture();
    void switchRecording();
    void fail(const std::string& message);

    Session& m_session;
    Means m_means;
    Pace m_pace;
    std::optional<Notice> m_notice;
    std::size_t m_notices = 0;
    std::unique_ptr<OutputFile> m_recording; ///< null: none runs
    std::string m_recordingName;
    std::string m_wallpaper;
    bool m_isHeard = false;
    bool m_wantsStart = false;
    bool m_filesWorked = true;
};

} // namespace panotra::sim
