/// The rules, a function each.
#include "tests/interleavings/Rules.h"

#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"
#include "tests/support/KnownFacts.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace panotra::testing {
namespace {

using Complaint = std::optional<std::string>;

constexpr double longestDelay = 2.0; ///< seconds: the dismissal's
constexpr double enlargement = 1.05;
/// The slider that is dragged.
constexpr const char* draggedCategory = "Audio/Video";
constexpr const char* draggedRoute = "Speaker";

sim::View* viewInField(const sim::Device& device, const std::string& field)
{
    return dynamic_cast<sim::View*>(device.classes->heldInField(field));
}

std::string fieldOf(std::size_t slot)
{
    return "_volumeView" + std::to_string(slot);
}

bool isLevel(double level)
{
    return level >= 0 && level <= 1;
}

float storedLevel(const sim::Device& device, std::size_t slot)
{
    return device.preferences->all()["net.qorvath.panotra"]["volume" + std::to_string(slot)].get<float>();
}

Complaint levelsAreLevels(const Course& course)
{
    const sim::Device& device = course.moment.device;
    for (const auto& [category, level] : device.audio->levels) {
        if (!isLevel(level))
            return "the system's level of " + category + " is " + std::to_string(level);
    }
    for (std::size_t slot = 0; slot < knownSlotCount; ++slot) {
        auto* const slider = viewInField(device, fieldOf(slot));
        if (slider != nullptr && !isLevel(device.classes->scalarForKey(slider, "volume").get<double>()))
            return "a level of slider " + std::to_string(slot) + " beyond 0 and 1";
        if (!isLevel(storedLevel(device, slot)))
            return "a level that is stored for slot " + std::to_string(slot) + " beyond 0 and 1";
    }
    return std::nullopt;
}

Complaint whatIsShownIsStored(const Course& course)
{
    const sim::Device& device = course.moment.device;
    for (std::size_t slot = 0; slot < knownSlotCount; ++slot) {
        auto* const slider = viewInField(device, fieldOf(slot));
        if (slider == nullptr)
            continue;
        const auto shown = static_cast<float>(device.classes->scalarForKey(slider, "volume").get<double>());
        if (shown != storedLevel(device, slot))
            return "slot " + std::to_string(slot) + " shows " + std::to_string(shown) + ", stored is "
                + std::to_string(storedLevel(device, slot));
    }
    return std::nullopt;
}

Complaint aDragIsOnWhileAFingerDrags(const Course& course)
{
    const bool isDragging = course.moment.device.touches->isDraggingSomething() || course.isDragLost;
    if (processValues.isPanning != isDragging)
        return isDragging ? "a finger drags and no drag is on" : "a drag is on and no finger drags";
    if (processValues.autoResetTransform == processValues.isPanning)
        return "sliders shrink back by themselves if and only if they are dragged";
    return std::nullopt;
}

Complaint everyTimerHasItsOwner(const Course& course)
{
    const sim::RunLoop& loop = *course.moment.device.runLoop;
    for (const auto& waiting : loop.waiting()) {
        const double left = waiting.due - loop.now();
        if (left < 0 || left > longestDelay + 1e-9)
            return "something is due in " + std::to_string(left) + " seconds";
        if (waiting.selector == nullptr)
            continue;
        const std::string& name = waiting.selector->name;
        const bool isOfController
            = (name == "destroyHUDWindow" || name == "releaseObjects") && waiting.object == nullptr;
        const bool isOfSlider
            = name == "resetAnimation:" && (waiting.object == nullptr || waiting.object->isa->name == "PNOVolumeView");
        if (!isOfController && !isOfSlider)
            return "nobody knows whose " + name + " is";
    }
    return std::nullopt;
}

Complaint slidersAreAtRestOrEnlarged(const Course& course)
{
    for (std::size_t slot = 0; slot < knownSlotCount; ++slot) {
        const auto* const slider = viewInField(course.moment.device, fieldOf(slot));
        if (slider == nullptr)
            continue;
        const sim::Transform& transform = slider->transform;
        if ((transform.a != 1 && transform.a != enlargement) || transform.d != transform.a || transform.b != 0)
            return "slider " + std::to_string(slot) + " is enlarged " + std::to_string(transform.a) + " times";
    }
    return std::nullopt;
}

Complaint nothingIsPending(const Course& course)
{
    const sim::RunLoop& loop = *course.moment.device.runLoop;
    return loop.pendingCount() != 0 || loop.runningAnimations() != 0 ? Complaint("work is pending") : std::nullopt;
}

Complaint anOverlayThatStaysIsSeen(const Course& course)
{
    const sim::Device& device = course.moment.device;
    const auto* const container = viewInField(device, "_containerView");
    if (viewInField(device, "_window") != nullptr && (container == nullptr || container->alpha != 1))
        return "a window is left without anything to be seen in it";
    return std::nullopt;
}

Complaint nothingIsShownOnDemandWithoutAWindow(const Course& course)
{
    return processValues.presentedViaActivator && viewInField(course.moment.device, "_window") == nullptr
        ? Complaint("presentedViaActivator is left over")
        : std::nullopt;
}

Complaint theBorrowedRingerIsGivenBack(const Course& course)
{
    const sim::Device& device = course.moment.device;
    const auto ringer = static_cast<double>(device.audio->level("Ringtone"));
    const double own = rememberedLevel(device, "Ringtone", "");
    if (ringer != own)
        return "the ringer is at " + std::to_string(ringer) + " instead of " + std::to_string(own);
    return std::nullopt;
}

constexpr Rule rulesBetweenEvents[] = {
    { "levels lie within 0 and 1", levelsAreLevels },
    { "what a slider shows is what is stored", whatIsShownIsStored },
    { "a drag is on while a finger drags, and then only", aDragIsOnWhileAFingerDrags },
    { "every timer has its owner, and is due within the longest delay", everyTimerHasItsOwner },
    { "a slider is at rest or enlarged, and nothing between", slidersAreAtRestOrEnlarged },
};

constexpr Rule rulesOfRest[] = {
    { "at rest nothing is pending", nothingIsPending },
    { "an overlay that stays can be seen", anOverlayThatStaysIsSeen },
    { "nothing counts as shown on demand that is not shown", nothingIsShownOnDemandWithoutAWindow },
    { "the ringer that was borrowed for a sound is given back", theBorrowedRingerIsGivenBack },
};

bool overlayStaysUnasked(const Course& course)
{
    return viewInField(course.moment.device, "_window") != nullptr && !processValues.presentedViaActivator;
}

/// The field is set and no tree has the view.
bool blurIsStale(const Course& course)
{
    const auto* const blur = viewInField(course.moment.device, "_blurBackdropView");
    return blur != nullptr && blur->superview == nullptr;
}

bool dragIsLost(const Course& course)
{
    return course.isDragLost;
}

bool sliderStaysEnlarged(const Course& course)
{
    for (std::size_t slot = 0; slot < knownSlotCount; ++slot) {
        const auto* const slider = viewInField(course.moment.device, fieldOf(slot));
        if (slider != nullptr && slider->transform.a != 1)
            return true;
    }
    return false;
}

constexpr Allowance allowanceTable[] = {
    { "an overlay outlives its dismissal because the fade-in overtook it", "overtaken-dismissal", overlayStaysUnasked },
    { "the blur behind the panel outlives the tear-down", "stale-blur", blurIsStale },
    { "a drag whose slider was torn down under the finger goes on until the next one ends", "lost-drag", dragIsLost },
    { "a slider stays enlarged that was to shrink while a button was held", "held-button", sliderStaysEnlarged },
};

} // namespace

std::span<const Rule> rules()
{
    return rulesBetweenEvents;
}

std::span<const Rule> rulesAtRest()
{
    return rulesOfRest;
}

std::span<const Allowance> allowances()
{
    return allowanceTable;
}

double rememberedLevel(const sim::Device& device, const std::string& category, const std::string& route)
{
    const auto* const pair = std::ranges::find_if(knownPairs, [&](const KnownPair& each) {
        return each.category == category && (each.route == nullptr || each.route == route);
    });
    if (pair == std::end(knownPairs))
        return std::nan("");
    if (auto* const slider = viewInField(device, fieldOf(pair->slot)))
        return static_cast<float>(device.classes->scalarForKey(slider, "volume").get<double>());
    return storedLevel(device, pair->slot);
}

LevelsBefore::LevelsBefore(const Course& course)
    : isSwallowed(processValues.isHackedRingtoneVolume)
    , isPanning(processValues.isPanning)
    , remembered(rememberedLevel(course.moment.device, course.moment.device.audio->activeCategory,
          course.moment.device.audio->route.value_or("")))
{
}

std::optional<std::string> LevelsBefore::violationAfter(const std::string& happening, const Course& course) const
{
    const sim::Device& device = course.moment.device;
    const sim::AudioService& audio = *device.audio;
    const double now = rememberedLevel(device, audio.activeCategory, audio.route.value_or(""));
    const auto system = static_cast<double>(audio.level(audio.activeCategory));
    const auto levels = [&] {
        return ": remembered is " + std::to_string(now) + ", the system has " + std::to_string(system);
    };
    if (happening == "press") {
        const double expected = isSwallowed || isPanning ? remembered : system;
        if (now != expected)
            return "a press was not remembered as it should be" + levels();
    }
    if ((happening == "change of route" || happening == "change of category") && !isSwallowed && now != system)
        return "a pair that became active did not get its own level" + levels();
    if (happening == "notification sound"
        && static_cast<double>(audio.level("Ringtone")) != rememberedLevel(device, "Notifications", ""))
        return "a sound is not played at its own level";
    if (happening == "drag moves" && device.touches->isDraggingSomething() && audio.route == draggedRoute) {
        const double dragged = rememberedLevel(device, draggedCategory, draggedRoute);
        if (dragged != static_cast<double>(audio.level(draggedCategory)))
            return "a drag did not reach the system";
    }
    return std::nullopt;
}

} // namespace panotra::testing
