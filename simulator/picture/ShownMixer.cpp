/// Settings, levels, launch, gesture: as a person would bring the mixer up to look at it.
#include "simulator/picture/ShownMixer.h"

#include "simulator/Domains.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"

#include <array>
#include <string>

namespace panotra::sim {

namespace {

constexpr const char* presentingListener = "net.qorvath.panotra.presentmixer";

constexpr double fadeInSeconds = 0.3;
constexpr double focusSeconds = 0.25; ///< before it grows and while it does
/// The platform's numbers of a recogniser's states.
constexpr std::int64_t gestureBegan = 1;
constexpr std::int64_t gestureChanged = 2;

/// One a slot.
constexpr std::array<double, slotCount> pleasantLevels { 0.8125, 0.5, 0.6875, 0.625, 0.75, 0.4375, 0.5625, 0.875,
    0.6875, 0.375, 0.5, 0.3125 };

void storeSettings(Device& device, const MixerShowing& showing)
{
    const auto set = [&device](const std::string& key, const Json& value) {
        device.preferences->set(ownDomain, key, value);
    };
    if (showing.style)
        set("activeStyle", *showing.style);
    if (showing.skin)
        set("mixerSkin", *showing.skin);
    if (showing.mixerScale)
        set("scale", *showing.mixerScale);
    for (int slot = 0; slot < slotCount; ++slot)
        set("volume" + std::to_string(slot), pleasantLevels[static_cast<std::size_t>(slot)]);
    for (const SlotLevel& each : showing.levels)
        set("volume" + std::to_string(each.slot), each.level);
}

} // namespace

void beginToShow(Device& device, const Library& library, const MixerShowing& showing)
{
    device.screen->width = showing.screen.width;
    device.screen->height = showing.screen.height;
    device.screen->scale = showing.screen.scale;
    device.screen->orientation = showing.orientation;
    storeSettings(device, showing);
    library.load();
    device.home->finishLaunching();
    device.home->sendActivatorEvent(presentingListener);
    device.runLoop->turn();
}

void finishShowing(Device& device, const MixerShowing& showing)
{
    device.runLoop->wait(fadeInSeconds);
    if (!showing.focusedSlot)
        return;
    holdSlider(device, *showing.focusedSlot);
    device.runLoop->wait(focusSeconds);
}

void holdSlider(Device& device, int slot)
{
    View* const slider = sliderOf(device, slot);
    if (slider == nullptr)
        return;
    // The mixer measures the finger against the frame, which grows as the finger goes down: the level is put right
    // where the finger then is.
    const double level = levelOf(device, slider);
    for (const std::int64_t state : { gestureBegan, gestureChanged })
        device.home->pan(slot, state, level * slider->frame().width);
    device.runLoop->turn();
}

void moveHeldSlider(Device& device, int slot, double level)
{
    if (const View* const slider = sliderOf(device, slot))
        device.home->pan(slot, gestureChanged, level * slider->frame().width);
    device.runLoop->turn();
}

View* sliderOf(Device& device, int slot)
{
    return dynamic_cast<View*>(device.classes->heldInField("_volumeView" + std::to_string(slot)));
}

double levelOf(Device& device, View* slider)
{
    return slider == nullptr ? 0 : device.classes->scalarForKey(slider, "volume").get<double>();
}

} // namespace panotra::sim
