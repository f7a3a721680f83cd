/// A table of events, each with the lines that bring it about.
#include "tests/interleavings/Happenings.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

namespace panotra::testing {

const char* const beginning = R"(lack UIViewPropertyAnimator
echo on
pref net.qorvath.panotra replaceHUD bool yes
pref net.qorvath.panotra dismissOnTouch bool yes
pref net.qorvath.panotra handleShake bool yes
pref net.qorvath.panotra volume0 float 0.5
pref net.qorvath.panotra volume1 float 0.375
pref net.qorvath.panotra volume2 float 0.25
pref net.qorvath.panotra volume3 float 0.25
pref net.qorvath.panotra volume4 float 0.625
pref net.qorvath.panotra volume5 float 0.75
pref net.qorvath.panotra volume6 float 0.25
pref net.qorvath.panotra volume7 float 0.5
pref net.qorvath.panotra volume8 float 0.25
pref net.qorvath.panotra volume9 float 0.25
pref net.qorvath.panotra volume10 float 0.25
pref net.qorvath.panotra volume11 float 0.25
load
launch
)";

namespace {

std::string numberText(double number)
{
    std::string text = std::to_string(number);
    while (text.ends_with('0'))
        text.pop_back();
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

std::string announcement(const std::string& category, const char* reason, float level)
{
    return "announce " + category + " " + reason + " " + numberText(level) + "\n";
}

std::string turnRoute(const Situation& situation)
{
    const sim::AudioService& audio = *situation.device.audio;
    const std::string next = audio.route == "Speaker" ? "Headphone" : "Speaker";
    return "route " + next + "\n"
        + announcement(audio.activeCategory, "RouteChange", audio.level(audio.activeCategory));
}

std::string turnCategory(const Situation& situation)
{
    const sim::AudioService& audio = *situation.device.audio;
    const std::string next = audio.activeCategory == "PhoneCall" ? "Audio/Video" : "PhoneCall";
    return "category " + next + "\n" + announcement(next, "CategoryChange", audio.level(next));
}

std::string press(const Situation& situation)
{
    const sim::AudioService& audio = *situation.device.audio;
    return audio.level(audio.activeCategory) <= 0.5f ? "press up\n" : "press down\n";
}

std::string letGo(const Situation& situation)
{
    const sim::HomeScreen& home = *situation.device.home;
    return std::string(home.volumeUpIsDown ? "release up\n" : "") + (home.volumeDownIsDown ? "release down\n" : "");
}

std::string turnRingerSwitch(const Situation& situation)
{
    return situation.isRingerMuted ? "ringer unmuted\n" : "ringer muted\n";
}

/// Where on the screen a place of the view is.
sim::Point onScreen(const sim::View& view, sim::Point place)
{
    const sim::Point turned
        = apply(view.transform, { place.x - view.bounds.width / 2, place.y - view.bounds.height / 2 });
    const sim::Point above { view.center.x + turned.x, view.center.y + turned.y };
    return view.superview == nullptr ? above : onScreen(*view.superview, above);
}

std::string touch(const char* what, sim::Point point)
{
    return std::string("touch ") + what + " " + numberText(point.x) + " " + numberText(point.y) + "\n";
}

std::string lift(const Situation& situation)
{
    return situation.device.touches->finger() ? "touch up\n" : "";
}

/// On the slider of what plays through the speaker, or where it would be.
std::string beginDrag(const Situation& situation)
{
    const auto* const slider = dynamic_cast<const sim::View*>(situation.device.classes->heldInField("_volumeView0"));
    const sim::Point size
        = slider != nullptr ? sim::Point { slider->bounds.width, slider->bounds.height } : sim::Point();
    const auto at = [&](double part) {
        return slider != nullptr ? onScreen(*slider, { size.x * part, size.y / 2 })
                                 : sim::Point { 187 + 50 * part, 200 };
    };
    return lift(situation) + touch("down", at(0.1)) + touch("move", at(0.5));
}

/// To and fro.
std::string moveDrag(const Situation& situation)
{
    const auto& finger = situation.device.touches->finger();
    if (!finger || !finger->isDragging)
        return "";
    constexpr double way = 20; // points
    return touch("move", { finger->now.x + (finger->now.x > finger->down.x + way ? -way : way), finger->now.y });
}

std::string touchOutside(const Situation& situation)
{
    return lift(situation) + "touch down 4 640\ntouch up\n";
}

std::string reloadSettings(const Situation& situation)
{
    const auto settings = situation.device.preferences->all()["net.qorvath.panotra"];
    const bool isBanner = settings.contains("activeStyle") && settings["activeStyle"] == 1;
    return std::string("pref net.qorvath.panotra activeStyle int ") + (isBanner ? "0" : "1")
        + "\nnotify net.qorvath.panotra.settingschanged\n";
}

constexpr Happening happeningTable[] = {
    { "change of route", turnRoute },
    { "change of category", turnCategory },
    { "press", press },
    { "release", letGo },
    { "ringer switch", turnRingerSwitch },
    { "notification sound",
        [](const Situation&) {
            return std::string("sound 1\n");
        } },
    { "drag begins", beginDrag },
    { "drag moves", moveDrag },
    { "drag ends", lift },
    { "touch outside", touchOutside },
    { "shake",
        [](const Situation&) {
            return std::string("shake\n");
        } },
    { "gesture",
        [](const Situation&) {
            return std::string("activator net.qorvath.panotra.presentdismissmixer\n");
        } },
    { "settings", reloadSettings },
    { "screen off",
        [](const Situation&) {
            return std::string(
                "darwin com.apple.springboard.screenchanged 9\nnotify com.apple.springboard.screenchanged\n");
        } },
};

/// Seconds: the growth's delay, the focus and the ringer's restore, half the fade-in and the recording, growth and
/// shrink-back, a rotation, the fade-out, the fade-out with the tear-down after a touch, what a drag leaves, the
/// dismissal.
constexpr std::array delays { 0.05, 0.1, 0.15, 0.2, 0.3, 0.4, 0.8, 1.5, 2.0 };
constexpr double instant = 0.001;

constexpr auto allPauses = [] {
    std::array<double, 3 * delays.size()> list {};
    for (std::size_t i = 0; i < delays.size(); ++i) {
        list[3 * i] = delays[i] - instant;
        list[3 * i + 1] = delays[i];
        list[3 * i + 2] = delays[i] + instant;
    }
    return list;
}();

} // namespace

std::span<const Happening> happenings()
{
    return happeningTable;
}

std::span<const double> pauses()
{
    return allPauses;
}

std::string lineOfPause(double seconds)
{
    return "wait " + numberText(seconds) + "\n";
}

} // namespace panotra::testing
