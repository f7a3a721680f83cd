/// A sound server that is a few numbers.
#pragma once

#include "simulator/sound/ServerReading.h"
#include "simulator/sound/SoundServer.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace panotra::testing {

/// Does what it is told, at once unless it is slow, and keeps what it was told.
class NumbersServer final : public sound::SoundServer {
public:
    NumbersServer()
    {
        state.server = "numbers 1";
        add("box", "speaker", "");
        add("ear", "handset", "");
        add("phones", "headphone", "");
        add("set", "headset", "");
        add("air", "headphone", "bluetooth");
        add("air-set", "headset", "bluetooth");
        add("screen", "tv", "");
        state.defaultOutput = "box";
    }

    std::vector<sound::Report> take() override
    {
        state.asked = ++serial;
        reports.emplace_back(state);
        return std::exchange(reports, {});
    }
    sound::Serial nextSerial() override { return ++serial; }
    void set(const sound::VolumeSet& set) override
    {
        told.push_back(sound::levelOf(set.volumes));
        waiting.push_back(set);
        if (!isSlow)
            finish();
    }
    void ask() override { }

    /// Does what waits, and answers it.
    void finish()
    {
        for (const sound::VolumeSet& set : std::exchange(waiting, {}))
            carryOut(set);
    }

    sound::Output& heard()
    {
        return *std::ranges::find(
            state.outputs, state.defaultOutput, [](const sound::Output& each) { return each.traits.name; });
    }

    sound::Snapshot state;
    std::vector<sound::Report> reports;
    std::vector<float> told;
    std::vector<sound::VolumeSet> waiting;
    bool isSlow = false; ///< nothing is done before it is told to finish
    sound::Serial serial = 0;

private:
    void carryOut(const sound::VolumeSet& set)
    {
        for (sound::Output& output : state.outputs) {
            if (output.index == set.output)
                output.volumes = set.volumes;
        }
        state.changed = ++serial;
        reports.emplace_back(sound::Answer { set.serial, ++serial, true });
    }
    void add(const char* name, const char* formFactor, const char* bus)
    {
        const auto index = static_cast<std::uint32_t>(state.outputs.size() + 1);
        state.outputs.push_back({ index, { .name = name, .formFactor = formFactor, .bus = bus }, "",
            { sound::fullVolume / 2, sound::fullVolume / 2 } });
    }
};

} // namespace panotra::testing
