/// The doctor's library in a process of Objective-C objects: what it writes there goes to standard output.
///
///     panotra-doctor-host SYSTEM DOCTOR [--mixer FILE] [--lack CLASS] [--raise CLASS] [--thread] [--odd] [--still]
///                         [--hook]
///
/// SYSTEM is the shape of the process, DOCTOR and FILE the libraries' files, CLASS is missing in it,
/// or raises when it is asked to make a method that it has not.
/// The audio service announces a change within the minute that the doctor waits, with --thread on a thread of its own,
/// with --odd one of other keys and values; and the screen turns, unless --still. With --hook another library hooks the
/// announcements meanwhile, and the doctor is asked twice.
/// Status 1: the report was not finished, an announcement was lost, or something of the process is not as it was; 3: a
/// file could not be loaded.
#include "simulator/device/ClassTable.h"
#include "simulator/device/Device.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Screen.h"
#include "simulator/device/SystemShape.h"
#include "simulator/systems/Systems.h"
#include "tests/hosts/HostLibrary.h"
#include "tests/hosts/HostProcess.h"
#include "tests/hosts/Imports.h"
#include "tests/hosts/LibraryImage.h"
#include "tests/hosts/doctor/DoctorProcess.h"
#include "tests/hosts/macho/MachImage.h"
#include "tests/hosts/macho/MachImports.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>

using namespace panotra;

namespace {

constexpr const char* askingNotification = "net.qorvath.panotra.doctor";
/// Longer than the doctor waits.
constexpr double afterTheWait = 61;

void* import(std::string_view name)
{
    void* const ofFormat = hosts::machImport(name);
    return ofFormat != nullptr ? ofFormat : hosts::importedSymbol(name);
}

void loadDoctor(const std::string& path)
{
    // Neither is ever unloaded.
    static std::unique_ptr<hosts::LibraryImage> image;
    image = hosts::isMachFile(path) ? hosts::openMachImage(path, import) : hosts::openNativeImage(path);
}

void pass(sim::Device& device, double seconds)
{
    device.runLoop->turn();
    device.runLoop->wait(seconds);
}

} // namespace

int main(int argumentCount, char** arguments)
{
    int system = 0;
    std::string doctor;
    std::string mixer;
    std::string lacking;
    std::string raising;
    bool onThread = false;
    bool isOdd = false;
    bool isStill = false;
    bool isHooked = false;
    CLI::App app("The doctor's library in a process of Objective-C objects.", "panotra-doctor-host");
    app.add_option("SYSTEM", system)->required()->check(CLI::Range(systems::oldest, systems::newest));
    app.add_option("DOCTOR", doctor)->required();
    app.add_option("--mixer", mixer);
    app.add_option("--lack", lacking);
    app.add_option("--raise", raising);
    app.add_flag("--thread", onThread);
    app.add_flag("--odd", isOdd);
    app.add_flag("--still", isStill);
    app.add_flag("--hook", isHooked);
    CLI11_PARSE(app, argumentCount, arguments);

    sim::Device device;
    std::size_t hooks = 0;
    std::size_t announced = 0;
    std::size_t announcements = 0;
    bool isCounting = false;
    device.traceSink = [&](const sim::Json& event) {
        hooks += isCounting && event["event"] == "hook" ? 1 : 0;
        announced += event["event"] == "announced" ? 1 : 0;
    };
    sim::takeShape(device, system);
    if (!lacking.empty())
        sim::setClassPresent(device, lacking, false);
    hosts::prepareProcess();
    hosts::prepareForDoctor(device, system);
    if (!raising.empty())
        hosts::raiseOverMissingMethods(raising);
    if (!mixer.empty()) {
        hosts::chooseLibrary(mixer);
        hosts::chosenLibrary().load();
        hosts::noteLoaded("/Library/MobileSubstrate/DynamicLibraries/Panotra.dylib");
    }
    isCounting = true;
    try {
        loadDoctor(doctor);
    } catch (const std::runtime_error& error) {
        std::cerr << error.what() << '\n';
        return 3;
    }
    device.home->finishLaunching();
    pass(device, 1);
    const void* const implementation = hosts::implementationOfAnnouncements();
    const auto announce = [&] {
        if (device.classes->find("AVSystemController") != nullptr)
            ++announcements;
        hosts::announceByItself(isOdd ? hosts::Announcement::Odd : hosts::Announcement::Usual);
    };
    const auto ask = [&] {
        device.home->notify(askingNotification);
        pass(device, 1);
    };
    ask();
    if (isHooked) { // the doctor cannot let go without cutting it off
        hosts::hookAnnouncements();
        announce();
        pass(device, afterTheWait);
        ask();
    }
    device.home->volumeUpIsDown = true;
    if (onThread)
        std::thread(announce).join();
    else
        announce();
    pass(device, 1);
    device.screen->orientation = 3;
    if (!isStill)
        device.home->reorientHUD(true);
    pass(device, afterTheWait);

    const std::string first = hosts::reportOfDoctor();
    announce(); // nobody looks any more
    device.home->reorientHUD(true);
    pass(device, afterTheWait);
    std::cout << hosts::reportOfDoctor();
    if (hosts::reportOfDoctor() != first || !first.ends_with("end\n")) {
        std::cerr << "the doctor did not let go\n";
        return 1;
    }
    if (hooks != 0 || (!isHooked && hosts::implementationOfAnnouncements() != implementation)) {
        std::cerr << "the doctor hooked something\n";
        return 1;
    }
    if (announced != announcements) {
        std::cerr << announcements << " announcements, of which the service saw " << announced << '\n';
        return 1;
    }
    return 0;
}
