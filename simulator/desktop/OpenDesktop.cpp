/// Everything that can be missing is asked for before the mixer begins.
#include "simulator/desktop/OpenDesktop.h"

#include "simulator/Play.h"
#include "simulator/desktop/DesktopLoop.h"
#include "simulator/desktop/OneInstance.h"
#include "simulator/desktop/Overlay.h"
#include "simulator/desktop/PhoneWindow.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/preferences/DefaultFolder.h"
#include "simulator/sound/PulseServer.h"
#include "simulator/text/Printable.h"
#include "simulator/window/PreferenceWatch.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

namespace panotra::sim {

namespace {

ExitStatus failed(const std::string& message, ExitStatus status = ExitStatus::FileFailed)
{
    complain(message);
    return status;
}

ExitStatus printStatus()
{
    std::string failure;
    const auto status = askRunningDesktop(request::status, failure);
    if (!status)
        return failed(failure, ExitStatus::NotFulfilled);
    if (std::fputs(status->c_str(), stdout) < 0 || std::fflush(stdout) != 0)
        return failed("standard output could not be written");
    return ExitStatus::AllWell;
}

/// The first one is there for both.
ExitStatus bringUpTheFirst()
{
    std::string failure;
    const auto answer = askRunningDesktop(request::present, failure);
    if (!answer)
        return failed(failure);
    return *answer == isShown ? ExitStatus::AllWell
                              : failed("panotra desktop runs already, and shows nothing", ExitStatus::NotFulfilled);
}

/// What is shown already goes away: nothing else would send away a mixer that was asked for.
bool present(DesktopPhone& phone)
{
    Device& device = phone.device();
    device.home->sendActivatorEvent(viewToShow(device) == nullptr ? listener::present : listener::dismiss);
    device.runLoop->turn();
    return true;
}

} // namespace

float limitOf(const DesktopOptions& options)
{
    constexpr double percent = 100;
    return static_cast<float>(options.limit / percent);
}

ExitStatus openDesktop(const DesktopOptions& options, const Library& library)
{
    if (options.wantsStatus)
        return printStatus();
    const auto asked
        = options.preferencesFolder ? std::filesystem::path(*options.preferencesFolder) : preferences::defaultFolder();
    if (!asked)
        return failed("no home folder to keep preferences in: give one with --prefs");
    std::error_code error;
    const std::string folder = std::filesystem::absolute(*asked, error).string();
    OneInstance instance;
    std::string failure;
    switch (instance.begin(failure)) {
    case OneInstance::Begun::First:
        break;
    case OneInstance::Begun::Second:
        return bringUpTheFirst();
    case OneInstance::Begun::Failed:
        return failed(failure);
    }
    if (!std::filesystem::create_directories(folder, error) && error)
        return failed(printable(folder) + ": " + error.message());
    if (options.isPhone)
        return openPhoneWindow(options, library, folder, instance.descriptor());

    holdEndingSignals();
    const DesktopBell bell;
    if (!bell.works())
        return failed("the system has no more file descriptors");
    const auto gone = [&folder] {
        complain(printable(folder) + ": the folder is gone; what others change is not noticed any more");
    };
    const auto watch = PreferenceWatch::make(
        folder, [&bell] { bell.ringForSettings(); }, gone, failure);
    if (watch == nullptr)
        return failed(printable(folder) + ": " + failure);
    const auto server = sound::PulseServer::make([&bell] { bell.ring(); });
    if (server == nullptr)
        return failed("the system has no thread for the sound server");

    auto renderer = options.isHeadless ? nullptr : Overlay::prepare(complain, failure);
    const bool isSeen = renderer != nullptr;
    if (!isSeen && !options.isHeadless)
        complain("nothing is shown: " + failure);
    DesktopPhone phone({ .preferencesFolder = folder,
                           .resourceFolder = options.resourceFolder,
                           .screen = isSeen ? overlayScreen : ScreenSize {},
                           .isSeen = isSeen,
                           .complain = complain },
        library);
    DesktopMixer mixer(phone.device(), *server, limitOf(options), complain);
    std::optional<Overlay> overlay;
    if (isSeen)
        overlay.emplace(phone, std::move(renderer), complain);
    DesktopLoop loop(phone, mixer, bell, instance.descriptor(), [&phone, isSeen] { return isSeen && present(phone); });
    const auto show = [&overlay] {
        return overlay ? overlay->turn() : DesktopLoop::Pause {};
    };
    while (loop.turn(show)) { }
    return phone.filesWorked() ? ExitStatus::AllWell : ExitStatus::FileFailed;
}

} // namespace panotra::sim
