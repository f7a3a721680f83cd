/// The words of a story: names as people know them, levels, and what single events say.
#pragma once

#include "facts/VolumeSlots.h"
#include "simulator/device/Device.h"
#include "simulator/scenario/Paragraph.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

/// "56 %".
Phrase levelPhrase(double level);
/// "56 % → 63 %", with as many digits as tell the two apart. Without a level before it, or with the same, the level
/// alone.
Phrase changePhrase(std::optional<double> before, double after);

/// As the slider is called; "Speaker (call)" where a medium's is called so as well.
std::string nameOfSlot(const VolumeSlot& slot);
/// The slider in the field `_volumeView7`; any other name is made safe to show.
std::string nameOfView(std::string_view field);

/// What an event says that stands for itself. `state` and `tree` have reports of their own.
std::vector<Phrase> sentenceOf(const Json& event);

} // namespace panotra::sim
