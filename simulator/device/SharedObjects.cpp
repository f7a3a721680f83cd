/// The overlays of two other programs, and the voice assistant.
#include "simulator/device/SharedObjects.h"

#include "simulator/device/ClassTable.h"
#include "simulator/device/EventFields.h"

#include <nlohmann/json.hpp>

namespace panotra::sim {

namespace {

template <typename Object, typename... Arguments> Object* make(const char* className, Arguments&&... arguments)
{
    return Device::current()->classes->make<Object>(className, std::forward<Arguments>(arguments)...);
}

} // namespace

void OverlayView::setHidden(bool value)
{
    View::setHidden(value);
    Device::current()->trace(
        "overlay", [&](EventFields& fields) { fields.add("class", owner, "action", "setHidden", "value", value); });
}

MeliorWindow::MeliorWindow()
{
    auto* const overlay = make<OverlayView>("UIView", "MeliorWindow");
    addSubview(*overlay);
    release(overlay);
}

VolumeHUDManager::VolumeHUDManager()
    : visibilityManager(make<HostObject>("ABVolumeHUDVisibilityManager"))
    , targetView(make<OverlayView>("UIView", "ABVolumeHUDManager"))
{
}

VolumeHUDManager::~VolumeHUDManager()
{
    release(visibilityManager);
    release(targetView);
}

void StatusBar::setFrame(Rect frame)
{
    Device::current()->trace("statusBarFrame", [&](EventFields& fields) {
        fields.add("class", isa->name, "frame", Json::array({ frame.x, frame.y, frame.width, frame.height }));
    });
}

void AssistantWindow::setHidden(bool value)
{
    View::setHidden(value);
    if (value)
        Device::current()->trace("assistant", [](EventFields& fields) { fields.add("action", "hideWindow"); });
}

AssistantController::AssistantController()
    : window(make<AssistantWindow>("UIWindow"))
{
}

AssistantController::~AssistantController()
{
    release(window);
}

} // namespace panotra::sim
