/// Own implementations of the audio service, the volume buttons, the indicator, sounds and the ringer.
#include "facts/AudioNames.h"
#include "simulator/device/AudioService.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/EventFields.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/PlatformMethods.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Saturated.h"
#include "simulator/device/SystemShape.h"
#include "simulator/device/Values.h"

#include <nlohmann/json.hpp>

namespace panotra::sim {

namespace {

Json jsonOfNumber(const HostObject* object)
{
    const auto* const number = dynamic_cast<const Number*>(object);
    return number == nullptr ? Json() : number->value;
}

// AVSystemController

void postEffectiveVolumeNotification(HostObject*, Selector, HostObject* announcement)
{
    process().trace("announced", [announcement](EventFields& fields) {
        const auto* const values = dynamic_cast<const Dictionary*>(announcement);
        const auto value = [values](const char* key) {
            return values == nullptr ? nullptr : values->objectForKey(currentKey(process(), key));
        };
        fields.add("category", textOf(value(announcementKey::category)), "reason",
            textOf(value(announcementKey::reason)), "level", jsonOfNumber(value(announcementKey::level)));
    });
}

bool getActiveCategoryVolume(HostObject*, Selector, float* level, HostObject** name, HostObject*)
{
    const SoundService& sound = *process().sound;
    const std::string category = sound.categoryInUse();
    if (level != nullptr)
        *level = sound.level(category);
    if (name != nullptr)
        *name = autoreleasedString(category);
    process().trace("activeVolume", [name](EventFields& fields) { fields.add("named", name != nullptr); });
    return true;
}

bool setVolume(HostObject*, Selector, float level, HostObject* categoryObject)
{
    process().trace("setVolume", [&](EventFields& fields) {
        fields.add("category", textOf(categoryObject), "level", static_cast<double>(level));
    });
    const std::string* const category = textOf(categoryObject);
    if (category == nullptr)
        return true;
    SoundService& sound = *process().sound;
    const bool isNew = !sound.hasLevel(*category) || sound.level(*category) != level;
    sound.store(*category, level);
    if (sound.announcesSetLevels() && isNew) {
        HomeScreen& home = *process().home;
        process().runLoop->defer([&home, category = *category, level] { home.announceChange(category, level); });
    }
    return true;
}

bool getVolume(HostObject*, Selector, float* level, HostObject* categoryObject)
{
    const std::string* const category = textOf(categoryObject);
    if (category == nullptr || level == nullptr)
        return false;
    *level = process().sound->level(*category);
    return true;
}

HostObject* attributeForKey(HostObject*, Selector, HostObject* key)
{
    const std::string* const name = textOf(key);
    const auto route = process().sound->activeRoute();
    if (name == nullptr || *name != "AVController_ActiveAudioRouteAttribute" || !route.has_value())
        return nullptr;
    return autoreleasedString(*route);
}

// VolumeControl and SBHUDController: the host's own indicator

/// The mode is told as it was asked for, also where the argument had no room for it.
void presentVolumeHUD(HostObject*, Selector self, std::int32_t mode, float level)
{
    process().trace("indicator", [&](EventFields& fields) {
        const std::int64_t requested = process().home->requestedMode;
        const std::int64_t told = mode == saturated<std::int32_t>(requested) ? requested : mode;
        fields.add("by", self->name, "mode", told, "level", static_cast<double>(level));
    });
    process().home->showIndicator(level);
}

void presentHUDView(HostObject*, Selector self, HostObject*, double delay)
{
    process().trace("indicator", [&](EventFields& fields) { fields.add("by", self->name, "delay", delay); });
    process().home->showIndicator(process().sound->level(process().sound->categoryInUse()), delay);
}

void reorientHUDIfNeeded(HostObject*, Selector, bool flag)
{
    process().trace("reoriented", [flag](EventFields& fields) { fields.add("flag", flag); });
}

// SBSoundController and SBMediaController

std::int64_t soundType(HostObject* self, Selector)
{
    return static_cast<Sound*>(self)->type;
}

bool playSound(HostObject*, Selector, HostObject* sound, std::int64_t, HostObject*)
{
    process().trace("sound", [sound](EventFields& fields) {
        const auto* const typed = dynamic_cast<const Sound*>(sound);
        fields.add("type", typed == nullptr ? Json() : Json(typed->type));
    });
    return true;
}

void setRingerMuted(HostObject*, Selector, bool muted)
{
    process().trace("ringer", [muted](EventFields& fields) { fields.add("muted", muted); });
}

} // namespace

void addServiceMethods(ClassTable& classes)
{
    const PlatformMethod methods[] = {
        { "AVSystemController", "postEffectiveVolumeNotification:", implementation(postEffectiveVolumeNotification) },
        { "AVSystemController",
            "getActiveCategoryVolume:andName:fallbackCategory:", implementation(getActiveCategoryVolume) },
        { "AVSystemController", "setVolumeTo:forCategory:", implementation(setVolume) },
        { "AVSystemController", "getVolume:forCategory:", implementation(getVolume) },
        { "AVSystemController", "attributeForKey:", implementation(attributeForKey) },
        { "VolumeControl", "_presentVolumeHUDWithMode:volume:", implementation(presentVolumeHUD) },
        { "SBHUDController", "presentHUDView:autoDismissWithDelay:", implementation(presentHUDView) },
        { "SBHUDController", "reorientHUDIfNeeded:", implementation(reorientHUDIfNeeded) },
        { "SBUISound", "soundType", implementation(soundType) },
        { "SBSoundController", "playSound:environments:completion:", implementation(playSound) },
        { "SBMediaController", "setRingerMuted:", implementation(setRingerMuted) },
    };
    addMethods(classes, methods);

    classes.platformClass("VolumeControl").fields = {
        { "_mode", 'q', 0,
            [] {
                return process().home->volumeMode;
            } },
        { "_volumeUpButtonIsDown", 'B', 0,
            [] {
                return std::int64_t { process().home->volumeUpIsDown };
            } },
        { "_volumeDownButtonIsDown", 'B', 0,
            [] {
                return std::int64_t { process().home->volumeDownIsDown };
            } },
    };
}

} // namespace panotra::sim
