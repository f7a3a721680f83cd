/// One function a field of the event.
#include "simulator/scenario/StateReport.h"

#include "facts/VolumeSlots.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"

#include <string>
#include <string_view>

namespace panotra::sim {

namespace {

/// The one controller, or null while there is none.
HostObject* mixerController(Device& device)
{
    return device.classes->anyInstance("PNOController");
}

/// What a field of `owner` holds. Null for a null owner, an empty field and an object of another kind.
template <typename Kind> Kind* objectInField(Device& device, HostObject* owner, std::string_view field)
{
    return owner == nullptr ? nullptr : dynamic_cast<Kind*>(device.classes->objectForKey(owner, field));
}

Json controllerReport(Device& device, const Library& library)
{
    auto* const controller = mixerController(device);
    if (controller == nullptr)
        return nullptr;
    const auto isSet = [&](const char* field) {
        return device.classes->objectForKey(controller, field) != nullptr;
    };
    const auto scalar = [&](const char* field) {
        return device.classes->scalarForKey(controller, field);
    };
    const auto* const container = objectInField<View>(device, controller, "_containerView");
    const auto* const blur = objectInField<BackdropView>(device, controller, "_blurBackdropView");
    const auto layout = library.layoutMemory();
    return {
        { "window", isSet("_window") },
        { "rootView", isSet("_rootView") },
        { "containerView", isSet("_containerView") },
        { "blurBackdropView", isSet("_blurBackdropView") },
        { "containerAlpha", container != nullptr ? Json(container->alpha) : Json() },
        { "blurRadius", blur != nullptr && blur->blurRadius ? Json(*blur->blurRadius) : Json() },
        { "boundsWidth", scalar("_boundsWidth") },
        { "boundsHeight", scalar("_boundsHeight") },
        { "iphone4Width", scalar("_iphone4Width") },
        { "iphone4Height", scalar("_iphone4Height") },
        { "volume", scalar("_volume") },
        { "justCreated", layout.justCreated },
        { "previousOrientation", layout.previousOrientation },
    };
}

Json sliderReport(Device& device, const std::string& field)
{
    auto* const slider = objectInField<View>(device, mixerController(device), field);
    if (slider == nullptr)
        return nullptr;
    const auto* const label = objectInField<Label>(device, slider, "_label1");
    const auto frame = slider->frame();
    return {
        { "volume", device.classes->scalarForKey(slider, "volume") },
        { "text", label != nullptr && label->text ? Json(*label->text) : Json() },
        { "scale", slider->transform.a },
        { "frame", Json::array({ frame.x, frame.y, frame.width, frame.height }) },
    };
}

Json slidersReport(Device& device)
{
    auto sliders = Json::object();
    for (std::size_t slot = 0; slot < volumeSlotCount; ++slot)
        sliders[std::to_string(slot)] = sliderReport(device, "_volumeView" + std::to_string(slot));
    return sliders;
}

Json systemReport(const AudioService& audio)
{
    auto levels = Json::object();
    for (const auto& [category, level] : audio.levels)
        levels[category] = level;
    return levels;
}

} // namespace

Json stateReport(Device& device, const Library& library)
{
    return {
        { "globals", library.globals() },
        { "controller", controllerReport(device, library) },
        { "sliders", slidersReport(device) },
        { "system", systemReport(*device.audio) },
        { "prefs", device.preferences->all() },
        { "pending", device.runLoop->pending() },
        { "running", device.runLoop->runningAnimations() },
    };
}

} // namespace panotra::sim
