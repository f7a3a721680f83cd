/// The phone before the camera: a scenario, played as far as a film has got, and the picture of that moment.
#pragma once

#include "simulator/film/FilmLook.h"
#include "simulator/film/MovingPicture.h"
#include "simulator/picture/DrawnScenario.h"
#include "simulator/scenario/Library.h"
#include "simulator/window/Phone.h"
#include "simulator/window/Session.h"
#include "simulator/window/WindowPicture.h"

#include <chrono>
#include <functional>
#include <string>

namespace panotra::sim {

class FilmSet {
public:
    /// The scenario and the renderer must outlive the set. `failed` hears of expectations that failed, by their line.
    FilmSet(const DrawnScenario& scenario, const FilmLook& look, const Library& library, std::string resourceFolder,
        render::Renderer& renderer, std::function<void(std::size_t line, const std::string& message)> failed = {});

    /// How many frames the film has, above 0; a frame is shown from its number times the length of one frame on.
    std::size_t frameCount() const { return m_frames; }
    std::chrono::microseconds beginOf(std::size_t frame) const;

    /// Plays on to the frame, which must not be before the one that was last gone to.
    void goTo(std::size_t frame);
    /// What the camera sees now.
    WindowPicture::Frame take();

private:
    const FilmLook m_look;
    Session m_session;
    Phone m_phone;
    WindowPicture m_picture;
    const std::size_t m_frames;
    std::chrono::microseconds m_played { 0 };
};

/// How many seconds a film of the scenario lasts.
double lengthOfFilm(const Scenario& scenario, const FilmLook& look);

} // namespace panotra::sim
