/// The remembered levels in the preference domain: one key, all twelve, and loading them.
///
/// Every operation opens a fresh handle and synchronizes it first, so that what the settings page wrote meanwhile
/// is seen. None synchronizes after writing: persisting is the preferences system's business.
#include "controller/PNOController.h"
#include "controller/PNOHelperController.h"
#include "platform/AVSystemController.h"
#include "platform/NSUserDefaults.h"

namespace panotra {
namespace {

NSUserDefaults openDomain()
{
    const NSUserDefaults defaults
        = NSUserDefaults::initWithSuiteName(PNOHelperController::sharedInstance().packageName());
    defaults.synchronize();
    return defaults;
}

/// Media sliders may stand at zero. Any other slider at exactly zero holds back the whole save; that is intended.
constexpr SlotNumber firstGuardedSlot = 3;
constexpr SlotNumber lastGuardedSlot = 10;

/// The categories whose level the platform is asked for, in this order.
constexpr std::array seedCategories { category::audioVideo, category::phoneCall, category::ringtone, category::alarm,
    category::voiceCommand };

/// The platform's levels, each 0.0 where it could not be read.
class Seeds {
public:
    Seeds()
    {
        const AVSystemController audio = AVSystemController::sharedAVSystemController();
        for (std::size_t i = 0; i < seedCategories.size(); ++i)
            audio.getVolume(&m_levels[i], NSString::constant(seedCategories[i]));
    }

    float level(std::string_view seedCategory) const
    {
        for (std::size_t i = 0; i < seedCategories.size(); ++i) {
            if (seedCategory == seedCategories[i])
                return m_levels[i];
        }
        return 0;
    }

private:
    std::array<float, seedCategories.size()> m_levels {};
};

} // namespace

void PNOController::saveVolume(float level, const NSString& key) const
{
    if (fields() != nullptr)
        openDomain().setObject(NSNumber::numberWithFloat(level), key);
}

float PNOController::getVolume(const NSString& key) const
{
    InstanceVariables* const self = fields();
    if (self == nullptr)
        return 0;
    self->_volume = openDomain().objectForKey(key).floatValue();
    return self->_volume;
}

void PNOController::saveVolumeLevelsToDisk() const
{
    InstanceVariables* const self = fields();
    if (self == nullptr)
        return;
    for (SlotNumber slot = firstGuardedSlot; slot <= lastGuardedSlot; ++slot) {
        if (self->_volumeView[slot].volume() == 0) // a missing slider answers zero too
            return;
    }
    const NSUserDefaults defaults = openDomain();
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        self->_volumeView[slot].saveVolume(defaults, NSString::constant(volumeSlot(slot).preferenceKey));
}

void PNOController::importVolumeLevelsToRam() const
{
    InstanceVariables* const self = fields();
    if (self == nullptr)
        return;
    const Seeds seeds;
    {
        const NSUserDefaults defaults = openDomain();
        for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot) {
            const VolumeSlot& row = volumeSlot(slot);
            const NSObject stored = defaults.objectForKey(NSString::constant(row.preferenceKey));
            self->_volumeView[slot].setVolume(stored ? stored.floatValue() : seeds.level(row.seedCategory));
        }
    }
    // Drawing a level also asks for a save, so the seeds are written back at once.
    for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot)
        self->_volumeView[slot].setVolumeLevel(self->_volumeView[slot].volume());
}

} // namespace panotra
