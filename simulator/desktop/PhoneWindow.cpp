/// The window's own loop, woken by whatever else there is to wait for.
#include "simulator/desktop/PhoneWindow.h"

#include "simulator/Play.h"
#include "simulator/desktop/DescriptorWatch.h"
#include "simulator/desktop/DesktopAnswers.h"
#include "simulator/desktop/DesktopLoop.h"
#include "simulator/desktop/WiredPhone.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/sound/PulseServer.h"
#include "simulator/text/Printable.h"
#include "simulator/window/PreferenceWatch.h"
#include "simulator/window/WindowLoop.h"
#include "simulator/window/WindowMeans.h"

#include <memory>
#include <utility>
#include <vector>

namespace panotra::sim {

namespace {

ExitStatus failedWindow(const std::string& message)
{
    complain(message);
    return ExitStatus::FileFailed;
}

/// Other processes, signals and the sound server, in the turns of a window's loop.
class Turns {
public:
    Turns(WiredPhone& wired, const Display& display, int door)
        : m_wired(wired)
        , m_requests(door,
              answersOf(wired.mixer(),
                  [this, &display] {
                      m_wired.present();
                      display.raise();
                      return true;
                  }))
        , m_watch(pusherOf(WindowLoop::turnEvent()))
    {
    }

    bool work() const { return m_signals.isOpen() && m_watch.works(); }
    /// Answers false once a signal has asked for the end.
    bool turn()
    {
        m_wired.mixer().turn();
        m_requests.serve();
        std::vector<pollfd> waitingFor { { m_signals.get(), POLLIN, 0 } };
        m_requests.addTo(waitingFor);
        pollfd& signals = waitingFor.front();
        constexpr int notAtAll = 0;
        if (::poll(&signals, 1, notAtAll) > 0)
            return false;
        m_watch.waitFor(std::move(waitingFor));
        return true;
    }

private:
    WiredPhone& m_wired;
    preferences::FileDescriptor m_signals = openEndingSignals();
    DesktopRequests m_requests;
    DescriptorWatch m_watch;
};

} // namespace

ExitStatus openPhoneWindow(const DesktopOptions& options, const Library& library, const std::string& folder, int door)
{
    std::string failure;
    holdEndingSignals();
    const auto renderer = makeRenderer(render::Wallpaper::dusk(), complain, failure);
    if (renderer == nullptr)
        return failedWindow(failure);
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    const auto display = Display::open({ {}, rememberedPlace() }, failure);
    if (display == nullptr)
        return failedWindow("no display to open a window on: " + failure);
    const auto gone = [&folder] {
        complain(printable(folder) + ": the folder is gone; what others change is not noticed any more");
    };
    const auto watch = PreferenceWatch::make(folder, pusherOf(WindowLoop::preferencesEvent()), gone, failure);
    if (watch == nullptr)
        return failedWindow(printable(folder) + ": " + failure);
    const auto server = sound::PulseServer::make(pusherOf(WindowLoop::turnEvent()));
    if (server == nullptr)
        return failedWindow("the system has no thread for the sound server");

    WiredPhone wired({ .preferencesFolder = folder,
                         .resourceFolder = options.resourceFolder,
                         .limit = limitOf(options),
                         .complain = complain },
        library, *server);
    Turns turns(wired, *display, door);
    if (!turns.work())
        return failedWindow("the system has no more file descriptors");
    Desk desk(wired.session(), windowMeans(".", wired.session(), wired.phone(), *renderer));
    WindowLoop loop(*display, wired.session(), wired.phone(), desk, *renderer, Statistics::None);
    loop.onTurn([&turns] { return turns.turn(); });
    const bool isWell = loop.run(failure);
    desk.endRecording();
    if (!isWell)
        complain("the display takes no more pictures: " + failure);
    return isWell && wired.session().filesWorked() && desk.filesWorked() ? ExitStatus::AllWell : ExitStatus::FileFailed;
}

} // namespace panotra::sim
