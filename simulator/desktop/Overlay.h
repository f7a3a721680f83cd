/// The mixer on the desktop: while it is on the phone's screen it is on the person's, and else nothing is.
#pragma once

#include "simulator/desktop/DesktopLoop.h"
#include "simulator/desktop/OverlayPicture.h"
#include "simulator/desktop/OverlayPlan.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace panotra::sim {

class Overlay {
public:
    /// What draws it, once there is a display to show it on. Null and the reason in `failure` if there is none, or no
    /// font. `warn` is told of a font that is not the right one.
    static std::unique_ptr<render::Renderer> prepare(
        const std::function<void(const std::string&)>& warn, std::string& failure);

    /// The phone's screen is `overlayScreen`. `complain` is told, once for each time that the mixer comes, that it
    /// could not be shown. Both outlive this.
    Overlay(DesktopPhone& phone, std::unique_ptr<render::Renderer> renderer,
        std::function<void(const std::string& line)> complain);
    ~Overlay();
    Overlay(const Overlay&) = delete;
    Overlay& operator=(const Overlay&) = delete;

    /// Shows what the phone shows, after the person has done to the phone what they did to the overlay.
    DesktopLoop::Pause turn();

private:
    using Clock = std::chrono::steady_clock;
    struct Stage;

    /// Null and the reason in `failure` if it cannot be seen.
    std::unique_ptr<Stage> appear(const View& mixer, std::string& failure);
    void passOnPointer(Stage& stage);
    bool draw(Stage& stage, const View& mixer, std::string& failure);
    void giveUp(const std::string& failure);

    DesktopPhone& m_phone;
    std::unique_ptr<render::Renderer> m_renderer;
    std::function<void(const std::string& line)> m_complain;
    std::unique_ptr<Stage> m_stage; ///< while the mixer is to be seen
    bool m_hasFailed = false; ///< it is to be seen, and could not be
    Clock::time_point m_lastFrame;
};

} // namespace panotra::sim
