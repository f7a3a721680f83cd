/// Does one kind of work many times, for a tool that counts instructions.
///
///   instructions WHAT TIMES
///
/// WHAT is `announcement`, `drag` or `layout`. The difference between two counts of TIMES is the work's own.
#include "controller/PNOController.h"
#include "facts/AudioNames.h"
#include "facts/GestureStates.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace {

using namespace panotra;

constexpr std::int64_t began = stateNumber(UIGestureRecognizerState::Began);
constexpr std::int64_t changed = stateNumber(UIGestureRecognizerState::Changed);

void work(sim::Device& device, std::string_view what, int time)
{
    if (what == "announcement")
        device.home->announce(category::audioVideo, changeReason::explicitChange, time % 2 == 0 ? 0.25f : 0.75f);
    else if (what == "drag")
        device.home->pan(0, changed, time % 2 == 0 ? 40 : 80);
    else
        PNOController::sharedInstance().layoutSubviews();
    device.runLoop->wait(1); // what the work leaves pending is part of it
}

} // namespace

int main(int count, char** arguments)
{
    const std::string_view what = count == 3 ? arguments[1] : "";
    if (what != "announcement" && what != "drag" && what != "layout") {
        std::cerr << "instructions: found '" << what << "', expected announcement, drag or layout, then a number\n";
        return 2;
    }
    sim::Device device;
    const sim::Library library = sim::loadedLibrary();
    library.load();
    device.home->finishLaunching();
    PNOController::sharedInstance().createUI();
    device.runLoop->wait(1);
    if (what == "drag")
        device.home->pan(0, began, 40);
    for (int time = std::atoi(arguments[2]); time > 0; --time)
        work(device, what, time);
    return 0;
}
