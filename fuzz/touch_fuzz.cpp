/// Feeds fingers to the mixer: any touches, at any time, on any screen and system, while the phone is turned and the
/// mixer comes and goes. What must hold at every moment of every play is what is asked for.
#include "tests/property/Invariants.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

namespace {

using panotra::testing::firstViolation;

/// Takes numbers from the front of the input; zeros once it is used up.
class Input {
public:
    explicit Input(std::span<const std::uint8_t> bytes)
        : m_rest(bytes)
    {
    }

    bool isUsedUp() const { return m_rest.empty(); }
    unsigned below(unsigned count) { return byte() % count; }
    /// From below 0 to above `most`: a finger may be beyond the screen.
    std::string place(unsigned most) { return std::to_string(byte() * (most + 40) / 255.0 - 20); }

private:
    unsigned byte()
    {
        if (m_rest.empty())
            return 0;
        const unsigned first = m_rest.front();
        m_rest = m_rest.subspan(1);
        return first;
    }

    std::span<const std::uint8_t> m_rest;
};

constexpr const char* domain = "net.qorvath.panotra";
constexpr std::array waits { "0", "0.05", "0.1", "0.15", "0.2", "0.3", "0.399", "0.4", "0.401", "0.8", "1.5", "2.5" };
constexpr std::array switches { "no", "yes" };

std::string boolean(const char* key, unsigned value)
{
    return std::string("pref ") + domain + " " + key + " bool " + switches[value] + "\n";
}

std::string integer(const char* key, unsigned value)
{
    return std::string("pref ") + domain + " " + key + " int " + std::to_string(value) + "\n";
}

/// The scenario that the bytes stand for.
std::string scenarioOf(std::span<const std::uint8_t> bytes)
{
    Input input(bytes);
    std::string text;
    if (const unsigned system = input.below(9); system != 0)
        text += "ios " + std::to_string(system + 8) + "\n"; // 9 to 16
    const unsigned width = 160 + 5 * input.below(256);
    const unsigned height = 160 + 6 * input.below(256);
    if (const unsigned scale = input.below(4); scale != 0)
        text += "screen " + std::to_string(width) + " " + std::to_string(height) + " " + std::to_string(scale) + "\n";
    else
        text += "screen reference " + std::to_string(width) + " " + std::to_string(height) + "\n";
    text += "orientation " + std::to_string(input.below(6)) + "\n";
    text += integer("activeStyle", input.below(3)) + integer("mixerSkin", input.below(5));
    for (const char* const key : { "replaceHUD", "dismissOnTouch" })
        text += boolean(key, input.below(2));
    text += std::string("pref ") + domain + " scale float " + std::to_string(0.1 * (1 + input.below(20))) + "\n";
    text += "load\nlaunch\nactivator net.qorvath.panotra.presentmixer\nwait 0.5\n";

    const unsigned farthest = width > height ? width : height; // however the phone is held
    const auto place = [&] {
        const std::string x = input.place(farthest);
        return x + " " + input.place(farthest) + "\n";
    };
    for (int steps = 0; !input.isUsedUp() && steps < 100; ++steps) {
        switch (input.below(16)) {
        case 0:
        case 1:
        case 2:
            text += "touch down " + place();
            break;
        case 3:
        case 4:
        case 5:
        case 6:
        case 7:
            text += "touch move " + place();
            break;
        case 8:
        case 9:
            text += "touch up\n";
            break;
        case 10:
            text += "orientation " + std::to_string(input.below(6)) + "\nreorient-hud yes\n";
            break;
        case 11:
            text += "activator net.qorvath.panotra.presentdismissmixer\n";
            break;
        case 12:
            text += std::string("press ") + (input.below(2) == 0 ? "up" : "down") + "\n";
            break;
        case 13:
            text += std::string("statusbar ") + (input.below(2) == 0 ? "hidden" : "shown") + "\n";
            break;
        default:
            text += std::string("wait ") + waits[input.below(waits.size())] + "\n";
        }
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string scenario = scenarioOf({ data, size });
    if (const auto violation = firstViolation(scenario)) {
        std::fprintf(stderr, "%s\n%s", violation->c_str(), scenario.c_str());
        std::abort();
    }
    return 0;
}
