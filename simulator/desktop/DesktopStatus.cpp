/// Facts in words.
#include "simulator/desktop/DesktopStatus.h"

#include "simulator/text/Printable.h"

#include <array>
#include <cstdio>

namespace panotra::sim {

namespace {

std::string told(float level)
{
    const double exact = level;
    std::array<char, 64> text {};
    std::snprintf(text.data(), text.size(), "%.0f%% (%.0f of %u)", exact * 100, exact * sound::fullVolume,
        static_cast<unsigned>(sound::fullVolume));
    return text.data();
}

std::string pairOf(const VolumeSlot& slot)
{
    std::string pair = slot.category;
    if (slot.isForAnyRoute())
        return pair;
    pair += std::string(", ") + slot.routes[0];
    if (slot.routes[1] != nullptr)
        pair += std::string(" or ") + slot.routes[1];
    return pair;
}

} // namespace

std::string statusOf(DesktopMixer& mixer)
{
    const sound::ServerReading& reading = mixer.reading();
    const sound::Output* const output = reading.output();
    std::string text = "Server: " + (reading.isConnected() ? printable(reading.server()) : "none") + '\n';
    text += "Output: " + (output != nullptr ? printable(output->traits.name) : "none") + '\n';
    text += "Route: " + printable(reading.route().name)
        + (reading.route().hasSlot ? "\n" : " (nothing is remembered for it)\n");
    text += "Category: " + reading.category() + '\n';
    text += "Level: " + (output != nullptr ? told(reading.level()) : "none") + '\n';
    text += "Limit: " + (mixer.limit() < 1 ? told(mixer.limit()) : "none") + '\n';
    std::string remembered;
    for (SlotNumber number = 0; number < volumeSlotCount; ++number) {
        if (const auto level = mixer.levels().remembered(number))
            remembered += "  " + pairOf(volumeSlot(number)) + ": " + told(*level) + '\n';
    }
    return text + "Remembered:\n" + (remembered.empty() ? "  nothing yet\n" : remembered);
}

} // namespace panotra::sim
