/// Each act in a few lines.
#include "simulator/window/Desk.h"

#include "simulator/Files.h"
#include "simulator/text/Printable.h"

#include <filesystem>
#include <utility>

namespace panotra::sim {

Desk::Desk(Session& session, Means means)
    : m_session(session)
    , m_means(std::move(means))
{
}

Desk::~Desk()
{
    endRecording();
}

void Desk::perform(WindowAct act)
{
    switch (act) {
    case WindowAct::Pause:
        m_pace.pauseOrGoOn();
        say(m_pace.isPaused() ? "Time stands still" : "Time goes on");
        break;
    case WindowAct::NextLine:
        if (!m_session.isPlaying())
            return say("No scenario is being played");
        m_pace.pause();
        m_session.playNextLine();
        break;
    case WindowAct::NextFrame:
        m_pace.pause();
        m_session.advance(frameInterval);
        break;
    case WindowAct::Slower:
        m_pace.slower();
        say("Speed " + m_pace.speed());
        break;
    case WindowAct::Faster:
        m_pace.faster();
        say("Speed " + m_pace.speed());
        break;
    case WindowAct::FromStart:
        goToStart();
        break;
    case WindowAct::Picture:
        takePicture();
        break;
    case WindowAct::Recording:
        switchRecording();
        break;
    case WindowAct::Sound:
        m_isHeard = !m_isHeard;
        say(m_isHeard ? "Buttons click, steps sound" : "Silent");
        break;
    case WindowAct::Help:
    case WindowAct::Menu:
    case WindowAct::Inspector:
    case WindowAct::CopyTrace:
    case WindowAct::OtherSystem:
    case WindowAct::Quit:
        break;
    }
}

void Desk::hang(const std::string& wallpaper)
{
    std::string failure;
    if (m_means.hang && !m_means.hang(wallpaper, failure))
        return fail(failure);
    m_wallpaper = wallpaper;
}

void Desk::say(std::string text, bool stays)
{
    m_notice = Notice { std::move(text), stays, ++m_notices };
}

void Desk::goToStart()
{
    if (m_session.playback() == nullptr)
        say("No scenario is being played");
    else if (!m_session.canStartAnew())
        say("A phone that is recorded or traced is not started anew");
    else
        m_wantsStart = true;
}

void Desk::takePicture()
{
    std::string failure;
    const auto name = makeFreshFile(m_means.folder, "panotra", ".png", failure);
    if (!name)
        return fail(failure);
    if (const auto reason
        = m_means.takePicture ? m_means.takePicture(*name) : std::optional<std::string>("no picture")) {
        std::error_code ignored;
        std::filesystem::remove(*name, ignored); // it is empty, and ours
        return fail(printable(*name) + ": " + *reason);
    }
    say("Picture: " + printable(*name));
    if (m_means.tell)
        m_means.tell("picture " + printable(*name));
}

void Desk::switchRecording()
{
    if (m_recording != nullptr)
        return endRecording();
    std::string failure;
    const auto name = makeFreshFile(m_means.folder, "panotra", ".scenario", failure);
    if (!name)
        return fail(failure);
    m_recording = std::make_unique<OutputFile>(OutputFile::named(*name));
    m_recordingName = *name;
    m_session.beginRecording([this](std::string_view text) {
        m_recording->write(text);
        m_recording->flush(); // a crash leaves what led to it
    });
    say("Recording into " + printable(*name));
}

void Desk::endRecording()
{
    if (m_recording == nullptr)
        return;
    m_session.endRecording();
    const auto file = std::exchange(m_recording, nullptr);
    file->close();
    if (file->error())
        return fail(file->error()->message);
    say("Recorded: " + printable(m_recordingName));
    if (m_means.tell)
        m_means.tell("recording " + printable(m_recordingName));
}

void Desk::fail(const std::string& message)
{
    m_filesWorked = false;
    say(message);
    if (m_means.complain)
        m_means.complain(message);
}

} // namespace panotra::sim
