/// The window's own phone, alone on a sheet.
#include "simulator/film/FilmSet.h"

#include "simulator/device/Services.h"
#include "simulator/text/Printable.h"
#include "simulator/window/Board.h"
#include "simulator/window/Palette.h"

#include <cmath>

namespace panotra::sim {

using std::chrono::microseconds;

namespace {

SessionSetup setupOf(const DrawnScenario& scenario, std::string resourceFolder,
    std::function<void(std::size_t line, const std::string& message)> failed)
{
    SessionSetup setup;
    setup.resourceFolder = std::move(resourceFolder);
    setup.scenario = &scenario.scenario;
    setup.expectationFailed = std::move(failed);
    return setup;
}

} // namespace

double lengthOfFilm(const Scenario& scenario, const FilmLook& look)
{
    return lengthOf(scenario) / look.speed;
}

FilmSet::FilmSet(const DrawnScenario& scenario, const FilmLook& look, const Library& library,
    std::string resourceFolder, render::Renderer& renderer,
    std::function<void(std::size_t line, const std::string& message)> failed)
    : m_look(look)
    , m_session(setupOf(scenario, std::move(resourceFolder), std::move(failed)), library)
    , m_phone(m_session.device())
    , m_picture(renderer)
    , m_frames(static_cast<std::size_t>(lengthOfFilm(scenario.scenario, look) * look.framesPerSecond) + 1)
{
    m_session.setWatcher([this](const Command& command) { m_phone.follow(command); });
}

microseconds FilmSet::beginOf(std::size_t frame) const
{
    return microseconds(static_cast<std::int64_t>(frame) * 1000000 / m_look.framesPerSecond);
}

void FilmSet::goTo(std::size_t frame)
{
    const microseconds time(std::llround(static_cast<double>(beginOf(frame).count()) * m_look.speed));
    m_session.advance(time - m_played);
    m_played = time;
}

WindowPicture::Frame FilmSet::take()
{
    const Screen& screen = *m_session.device().screen;
    const auto strip = m_look.captions == Captions::Shown ? Strip::Caption : Strip::None;
    const PixelSize size { m_look.size.width, m_look.size.height };
    Layout layout = layOutAlone(size, { screen.width, screen.height, screen.scale }, screen.orientation, strip);
    layout.phone = layout.phone.movedBy(m_phone.shakeOffset() * layout.phone.unitsPerPoint(), layout.unit);
    Sheet sheet;
    sheet.add(Box { layout.sheet, palette::surround });
    const Attention nobody;
    addPhone(sheet, { m_session, m_phone, layout, nobody });
    const Caption* const caption = m_session.playback()->caption();
    if (layout.player && caption != nullptr)
        sheet.add(Text { *layout.player, printable(caption->text),
            { 17, render::TextWeight::Regular, render::TextAlignment::Center, 3 }, palette::bright });
    return m_picture.draw(m_session.device(), sheet, layout, size);
}

} // namespace panotra::sim
