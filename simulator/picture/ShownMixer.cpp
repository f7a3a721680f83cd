/// Settings, levels, launch, gesture: as a person would bring the mixer up to look at it.
#include "simulator/picture/ShownMixer.h"

#include "facts/GestureStates.h"
#include "facts/MixerSettings.h"
#include "facts/PublicNames.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"

#include <nlohmann/json.hpp>

#include <array>
#include <string>

namespace panotra::sim {

namespace {

/// One a slot; a slot beyond them stands in the middle.
constexpr std::array pleasantLevels { 0.8125, 0.5, 0.6875, 0.625, 0.75, 0.4375, 0.5625, 0.875, 0.6875, 0.375, 0.5,
    0.3125 };

void storeSettings(Device& device, const MixerShowing& showing)
{
    const auto set = [&device](const std::string& key, const Json& value) {
        device.preferences->set(ownDomain, key, value);
    };
    if (showing.style)
        set(mixerSetting("activeStyle").key, *showing.style);
    if (showing.skin)
        set(mixerSetting("mixerSkin").key, *showing.skin);
    if (showing.mixerScale)
        set(mixerSetting("scale").key, *showing.mixerScale);
    for (const VolumeSlot& slot : volumeSlots)
        set(slot.preferenceKey, slot.number < pleasantLevels.size() ? pleasantLevels[slot.number] : 0.5);
    for (const SlotLevel& each : showing.levels)
        set(volumeSlot(each.slot).preferenceKey, each.level);
}

/// Lets what moves come to rest, and what follows on from it.
void settle(Device& device)
{
    while (device.runLoop->runningAnimations() > 0)
        device.runLoop->wait(device.runLoop->nextDue().value() - device.runLoop->now()); // the end of one of them
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
    device.home->sendActivatorEvent(listener::present);
    device.runLoop->turn();
}

void finishShowing(Device& device, const MixerShowing& showing)
{
    settle(device);
    if (!showing.focusedSlot)
        return;
    holdSlider(device, *showing.focusedSlot);
    settle(device);
}

void holdSlider(Device& device, int slot)
{
    View* const slider = sliderOf(device, slot);
    if (slider == nullptr)
        return;
    // The mixer measures the finger against the frame, which grows as the finger goes down: the level is put right
    // where the finger then is.
    const double level = levelOf(device, slider);
    for (const auto state : { UIGestureRecognizerState::Began, UIGestureRecognizerState::Changed })
        device.home->pan(slot, stateNumber(state), level * slider->frame().width);
    device.runLoop->turn();
}

void moveHeldSlider(Device& device, int slot, double level)
{
    if (const View* const slider = sliderOf(device, slot))
        device.home->pan(slot, stateNumber(UIGestureRecognizerState::Changed), level * slider->frame().width);
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
