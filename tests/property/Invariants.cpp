/// The invariants, a function each.
#include "tests/property/Invariants.h"

#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "simulator/device/Animation.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace panotra::testing {
namespace {

using sim::Json;
using Complaint = std::optional<std::string>;

constexpr double fadeOutSeconds = 0.4; // nothing else lasts as long in these scenarios
constexpr double enlarged = 1.05;
constexpr SlotNumber ringerSlot = 7;

struct SliderParts {
    sim::View& view;
    sim::View& fill;
    const sim::Label& percentage;
    double volume;
};

std::string ofSlot(SlotNumber slot)
{
    return " of slider " + std::to_string(slot);
}

/// Null as long as nothing has made it.
PNOController livingController()
{
    return processValues.sharedController ? PNOController::sharedInstance() : PNOController();
}

template <typename Action> Complaint forEachSlider(Action action)
{
    const PNOController mixer = livingController();
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot) {
        const PNOVolumeView slider = mixer.volumeView(slot);
        if (!slider)
            continue;
        const auto& fields = *static_cast<const PNOVolumeView::InstanceVariables*>(
            instanceVariables(slider.get(), PNOVolumeView::description()));
        const SliderParts parts { dynamic_cast<sim::View&>(*slider.get()),
            dynamic_cast<sim::View&>(*fields._volumeView.get()), dynamic_cast<sim::Label&>(*fields._label1.get()),
            fields.volume };
        if (Complaint complaint = action(slot, parts))
            return complaint;
    }
    return std::nullopt;
}

std::size_t sliderCount()
{
    std::size_t count = 0;
    forEachSlider([&count](SlotNumber, const SliderParts&) {
        ++count;
        return Complaint();
    });
    return count;
}

std::size_t pendingPerforms(const sim::Device& device, const char* selector)
{
    const auto waiting = device.runLoop->pending();
    return static_cast<std::size_t>(
        std::ranges::count_if(waiting, [selector](const Json& perform) { return perform["selector"] == selector; }));
}

Complaint oneWindowThatComesAndGoesWithItsOverlay(const Moment& moment)
{
    const PNOController mixer = livingController();
    const bool isSet = bool(mixer.window());
    if (isSet != bool(mixer.rootView()))
        return "a window and a root view that are not both there";
    const std::size_t alive = moment.device.classes->liveObjects("PNOWindow");
    if (alive != (isSet ? 1u : 0u))
        return "windows alive: " + std::to_string(alive);
    const std::size_t sliders = sliderCount();
    if (sliders != 0 && (sliders != volumeSlotCount || !isSet))
        return "sliders in the fields: " + std::to_string(sliders);
    return std::nullopt;
}

Complaint aTouchKillsOnlyWhileItFades(const Moment& moment)
{
    const auto& running = moment.device.runLoop->animations();
    const bool isFading
        = std::ranges::any_of(running, [](const auto& animation) { return animation->duration == fadeOutSeconds; });
    if (processValues.killedByTouch && !isFading)
        return "killedByTouch is left over from a dismissal";
    return std::nullopt;
}

Complaint levelsShownAreLevelsHeld(const Moment& moment)
{
    return forEachSlider([&](SlotNumber slot, const SliderParts& slider) -> Complaint {
        const std::string shown = slider.percentage.text.value_or("");
        const std::string held = std::to_string(std::lround(static_cast<float>(slider.volume * 100))) + "%";
        if (shown == held || (slot == ringerSlot && moment.ringerWasMuted && shown == "Silent"))
            return std::nullopt;
        return "shown " + shown + ", held " + held + ofSlot(slot);
    });
}

/// A fill is as wide as the slider was when its level was last drawn: at rest or enlarged.
Complaint fillsFollowLevels(const Moment&)
{
    return forEachSlider([](SlotNumber slot, const SliderParts& slider) -> Complaint {
        const double width = slider.fill.frame().width;
        for (const double scale : { 1.0, enlarged }) {
            if (std::abs(width - slider.volume * slider.view.bounds.width * scale) < 1e-6)
                return std::nullopt;
        }
        return "fill " + std::to_string(width) + " at level " + std::to_string(slider.volume) + ofSlot(slot);
    });
}

Complaint oneDismissalWaitsAtMost(const Moment& moment)
{
    const std::size_t dismissals = pendingPerforms(moment.device, "destroyHUDWindow");
    return dismissals > 1 ? Complaint(std::to_string(dismissals) + " dismissals are pending") : std::nullopt;
}

/// Only deferred work may hold a slider longer than the mixer does.
Complaint noSliderOutlivesItsMixer(const Moment& moment)
{
    const bool isHeld
        = moment.device.runLoop->runningAnimations() != 0 || pendingPerforms(moment.device, "resetAnimation:") != 0;
    const std::size_t alive = moment.device.classes->liveObjects("PNOVolumeView");
    if (!isHeld && alive != sliderCount())
        return std::to_string(alive) + " sliders are alive";
    return std::nullopt;
}

constexpr Invariant invariantTable[] = {
    { "there is one window at most, and it comes and goes with its overlay", oneWindowThatComesAndGoesWithItsOverlay },
    { "a touch is the cause of a dismissal only while that fades", aTouchKillsOnlyWhileItFades },
    { "the levels that are shown are those that are held", levelsShownAreLevelsHeld },
    { "fills are as wide as their levels", fillsFollowLevels },
    { "one dismissal waits at most", oneDismissalWaitsAtMost },
    { "only deferred work holds a slider longer than the mixer does", noSliderOutlivesItsMixer },
};

} // namespace

std::span<const Invariant> invariants()
{
    return invariantTable;
}

std::optional<std::string> leftOver(sim::Device& device)
{
    if (device.runLoop->pendingCount() != 0 || device.runLoop->runningAnimations() != 0)
        return "work is still pending";
    for (const char* const name :
        { "PNOWindow", "PNOVolumeView", "UILabel", "UIImageView", "UIPanGestureRecognizer", "NSUserDefaults" }) {
        if (device.classes->liveObjects(name) != 0)
            return std::string("left over: ") + name;
    }
    return std::nullopt;
}

} // namespace panotra::testing
