/// Finds the methods under their names on earlier and on later systems.
#include "tests/threads/Methods.h"

#include "simulator/systems/Systems.h"

namespace panotra::testing {

namespace {

/// The first system whose indicator, ringer and turns go by other methods.
constexpr int firstOfTheLater = 13;

} // namespace

bool isLater()
{
    return sim::Device::current()->system.value_or(0) >= firstOfTheLater;
}

Methods::Methods()
{
    if (isLater())
        takeLaterOnes();
    else
        takeEarlierOnes();
}

void Methods::takeEarlierOnes()
{
    presentIndicator = [shown = Method<void(HostObject*, double)>(
                            "SBHUDController", "presentHUDView:autoDismissWithDelay:")](HostObject* view) {
        shown(view, 1);
    };
    presentVolumeIndicator = [shown = Method<void(std::int32_t, float)>(
                                  "VolumeControl", "_presentVolumeHUDWithMode:volume:")](int mode, float level) {
        shown(mode, level);
    };
    turn = [reorient = Method<void(bool)>("SBHUDController", "reorientHUDIfNeeded:")](int) {
        reorient(true);
    };
}

void Methods::takeLaterOnes()
{
    presentIndicator
        = [shown = Method<void(HostObject*, bool)>("SBHUDController", "_presentHUD:animated:")](HostObject* model) {
              shown(model, true);
          };
    presentVolumeIndicator
        = [shown = Method<void(float)>("SBVolumeControl", "_presentVolumeHUDWithVolume:")](int, float level) {
              shown(level);
          };
    presentRingerIndicator
        = [shown = Method<void(std::int32_t)>("SBRingerControl", "activateRingerHUDFromMuteSwitch:")](int number) {
              shown(number);
          };
    if (sim::Device::current()->system == systems::newest) {
        presentRingerIndicator = [shown = Method<void(std::int32_t, float, std::uint64_t)>("SBRingerControl",
                                      "activateRingerHUD:withInitialVolume:fromSource:")](int number) {
            shown(number, 0.5F, 2);
        };
    }
    turn = [note = Method<void(std::int64_t, double, HostObject*)>(
                "SpringBoard", "noteInterfaceOrientationChanged:duration:logMessage:")](int orientation) {
        note(orientation, 0.25, nullptr);
    };
}

} // namespace panotra::testing
