/// Tables of fields, one for each part of the event.
#include "simulator/scenario/StateReport.h"

#include "facts/VolumeSlots.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"
#include "simulator/scenario/ReportField.h"

#include <nlohmann/json.hpp>

#include <array>
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

struct Controller {
    Device& device;
    HostObject* object; ///< not null
    LayoutMemory layout;

    Json isSet(std::string_view field) const { return device.classes->objectForKey(object, field) != nullptr; }
    Json scalar(std::string_view field) const { return device.classes->scalarForKey(object, field); }
};

using ControllerField = ReportField<Controller>;

constexpr std::array controllerFields {
    ControllerField { "window", "whether the mixer has its window", "yes",
        [](const Controller& c) {
            return c.isSet("_window");
        } },
    ControllerField { "rootView", "whether it has the view that holds all others", "yes",
        [](const Controller& c) {
            return c.isSet("_rootView");
        } },
    ControllerField { "containerView", "whether it has the panel or the banner", "yes",
        [](const Controller& c) {
            return c.isSet("_containerView");
        } },
    ControllerField { "blurBackdropView", "whether it has the blur behind the panel, which is never given up", "no",
        [](const Controller& c) {
            return c.isSet("_blurBackdropView");
        } },
    ControllerField { "containerAlpha", "the alpha of the panel or the banner; null without one", "0",
        [](const Controller& c) {
            const auto* const container = objectInField<View>(c.device, c.object, "_containerView");
            return container != nullptr ? Json(container->alpha) : Json();
        } },
    ControllerField { "blurRadius", "the radius of the blur; null until it is set", "nil",
        [](const Controller& c) {
            const auto* const blur = objectInField<BackdropView>(c.device, c.object, "_blurBackdropView");
            return blur != nullptr ? orNull(blur->blurRadius) : Json();
        } },
    ControllerField { "boundsWidth", "the width of the screen, held upright, in points", "375",
        [](const Controller& c) {
            return c.scalar("_boundsWidth");
        } },
    ControllerField { "boundsHeight", "the height of the screen, held upright, in points", "667",
        [](const Controller& c) {
            return c.scalar("_boundsHeight");
        } },
    ControllerField { "iphone4Width", "the width for which the panel was drawn", "320",
        [](const Controller& c) {
            return c.scalar("_iphone4Width");
        } },
    ControllerField { "iphone4Height", "the height for which the panel was drawn", "480",
        [](const Controller& c) {
            return c.scalar("_iphone4Height");
        } },
    ControllerField { "volume", "the level that was read last from the preferences", "0",
        [](const Controller& c) {
            return c.scalar("_volume");
        } },
    ControllerField { "justCreated", "nothing was ever laid out in this process", "no",
        [](const Controller& c) -> Json {
            return c.layout.justCreated;
        } },
    ControllerField { "previousOrientation", "the orientation of the latest layout; -1 before the first", "1",
        [](const Controller& c) -> Json {
            return c.layout.previousOrientation;
        } },
};

struct Slider {
    Device& device;
    View& view;
};

using SliderField = ReportField<Slider>;

constexpr std::array sliderFields {
    SliderField { "volume", "the slider's level", "0.5625",
        [](const Slider& slider) -> Json {
            return slider.device.classes->scalarForKey(&slider.view, "volume");
        } },
    SliderField { "text", "its percentage; null until it is written", "56%",
        [](const Slider& slider) {
            const auto* const label = objectInField<Label>(slider.device, &slider.view, "_label1");
            return label != nullptr ? orNull(label->text) : Json();
        } },
    SliderField { "scale", "how much it is enlarged", "1.05",
        [](const Slider& slider) -> Json {
            return slider.view.transform.a;
        } },
    SliderField { "frame", "its place in its group: x, y, width and height are 0 to 3 of it", ".3 49.476",
        [](const Slider& slider) {
            const auto frame = slider.view.frame();
            return Json::array({ frame.x, frame.y, frame.width, frame.height });
        } },
};

Json controllerReport(Device& device, const Library& library)
{
    auto* const object = mixerController(device);
    return object != nullptr ? reportOf(controllerFields, Controller { device, object, library.layoutMemory() })
                             : Json();
}

Json slidersReport(Device& device)
{
    auto sliders = Json::object();
    for (std::size_t slot = 0; slot < volumeSlotCount; ++slot) {
        const auto number = std::to_string(slot);
        auto* const view = objectInField<View>(device, mixerController(device), "_volumeView" + number);
        sliders[number] = view != nullptr ? reportOf(sliderFields, Slider { device, *view }) : Json();
    }
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

std::vector<FieldNote> stateNotes()
{
    std::vector<FieldNote> notes;
    addNotes(notes, "controller.", controllerFields);
    addNotes(notes, "sliders.SLOT.", sliderFields);
    // What varies by its keys, or is listed by whoever owns it.
    notes.insert(notes.end(),
        {
            { "system.CATEGORY", "the system's level of a category", "0.5625" },
            { "prefs.DOMAIN.KEY", "a stored value, by the domain and the key", "0.5625" },
            { "pending.N.selector", "the deferred performs in the order in which they are due: what is called",
                "destroyHUDWindow" },
            { "pending.N.object", "with which object; null without one", "nil" },
            { "pending.N.due", "at which time", "2" },
            { "running", "how many animations run", "4" },
        });
    return notes;
}

std::string exampleOf(const FieldNote& note)
{
    struct Substitute {
        std::string_view varying, instance;
    };
    constexpr std::array substitutes {
        Substitute { "SLOT", "0" },
        Substitute { "CATEGORY", "Audio/Video" },
        Substitute { "DOMAIN.KEY", "net.qorvath.panotra.volume0" },
        Substitute { ".N.", ".0." },
    };
    auto path = note.path;
    for (const auto& [varying, instance] : substitutes) {
        if (const auto place = path.find(varying); place != path.npos)
            path.replace(place, varying.size(), instance);
    }
    return "expect " + path + (note.example.starts_with('.') ? "" : " ") + note.example;
}

} // namespace panotra::sim
