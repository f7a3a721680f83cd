/// A table of things that may happen, each as likely as its weight says.
#include "tests/property/RandomScenario.h"

#include "tests/support/KnownFacts.h"

#include <array>
#include <iterator>
#include <random>
#include <span>

namespace panotra::testing {
namespace {

using Words = std::span<const char* const>;

/// The library's distributions differ between its makers; the generator itself does not.
class Dice {
public:
    explicit Dice(std::uint64_t seed)
        : m_generator(seed)
    {
    }

    /// 0 to `count` - 1.
    std::uint64_t below(std::uint64_t count) { return m_generator() % count; }
    bool oneIn(std::uint64_t count) { return below(count) == 0; }
    /// A multiple of `step` from `lowest` on.
    double number(double lowest, double step, std::uint64_t count)
    {
        return lowest + step * static_cast<double>(below(count));
    }
    std::string oneOf(Words words) { return words[below(words.size())]; }

private:
    std::mt19937_64 m_generator;
};

constexpr std::array categories { "Audio/Video", "PhoneCall", "Ringtone", "Alarm", "Notifications", "VoiceCommand",
    "Unheard" };
constexpr std::array routes { "Receiver", "Speaker", "Headphone", "Headset", "HeadphonesBT", "HeadsetBT", "AirTunes",
    "nil" };
constexpr std::array reasons { "ExplicitVolumeChange", "ExplicitVolumeChange", "ExplicitVolumeChange", "RouteChange",
    "CategoryChange", "Anything" };
constexpr std::array directions { "up", "down" };
constexpr std::array answers { "yes", "no" };
constexpr std::array switches { "on", "off" };
constexpr std::array panStates { "began", "changed", "changed", "ended", "cancelled", "failed" };
constexpr std::array listeners { "presentmixer", "dismissmixer", "presentdismissmixer", "presentdismissmixer",
    "unknown" };
constexpr std::array ringerStates { "muted", "unmuted" };
constexpr std::array statusBars { "UIStatusBar", "_UIStatusBar" };
constexpr std::array booleanSettings { "replaceHUD", "dismissOnTouch", "isAppCallNotification", "handleShake" };
constexpr std::array screens { "320 480 2", "320 568 2", "375 667 2", "414 736 3", "768 1024 1" };
constexpr std::array lackable { "AVSystemController", "VolumeControl", "SpringBoard", "AXSpringBoardServer",
    "SBAssistantController", "LAActivator", "UIViewPropertyAnimator", "SBHUDController", "SBMediaController",
    "UIApplication", "UIStatusBar", "_UIStatusBar" };
/// Whatever a process may be said to lack.
constexpr std::array anyClasses { "NSObject", "NSBundle", "NSData", "NSDictionary", "NSNumber", "NSSet", "NSString",
    "NSUserDefaults", "CALayer", "UIColor", "UIEvent", "UIFont", "UIGestureRecognizer", "UIImage",
    "UIPanGestureRecognizer", "UIScreen", "UIViewPropertyAnimator", "_UIBackdropViewSettings", "UIResponder",
    "UIApplication", "UIView", "UIImageView", "UILabel", "UIStatusBar", "UIWindow", "_UIBackdropView", "_UIStatusBar",
    "AVSystemController", "AXSpringBoardServer", "SBAssistantController", "SBHUDController", "SBMediaController",
    "SBUISound", "SBSoundController", "SpringBoard", "VolumeControl", "LAActivator", "LAEvent", "ABVolumeHUDManager",
    "ABVolumeHUDVisibilityManager", "MeliorWindow", "UIScene", "UIWindowScene", "SBWindowScene",
    "SBAVSystemControllerCache", "SBMainWorkspace", "_SBHUDModel", "SBBannerManager", "FBSystemApp",
    "UISystemShellApplication", "UIStatusBar_Base", "UIStatusBar_Modern", "_UIScrollsToTopInitiatorView",
    "AVController", "SBVoiceCommandButton", "SBStatusBarManager", "SBVolumeControl", "SBRingerControl", "Nonesuch" };
/// What one system or another has, and what none has.
constexpr std::array classesOfSome { "SBVolumeControl", "SBRingerControl", "VolumeControl", "SBWindowScene",
    "UIWindowScene", "SBAVSystemControllerCache", "AVController", "SBMainWorkspace", "UIStatusBar_Modern",
    "_UIStatusBar", "UIViewPropertyAnimator", "MeliorWindow", "ABVolumeHUDManager", "SpringBoard", "Nonesuch" };
/// Those without which a system shows something else, so that they are lacking more often than others.
constexpr std::array movingClasses { "SpringBoard", "UIApplication", "VolumeControl", "SBHUDController",
    "SBMediaController", "AVSystemController" };
constexpr std::array otherMixersClasses { "MeliorWindow", "ABVolumeHUDManager" };
constexpr std::array visibilities { "hidden", "shown" };
constexpr std::array namings { "named", "unnamed" };
constexpr std::array rotations { "0", "0.15", "0.3", "0.5" }; // none, twofold neither, as long as a fade
/// The ends of fades and growths, and what lies between them.
constexpr std::array waits { "0", "0.05", "0.1", "0.15", "0.1501", "0.2", "0.25", "0.3", "0.3499", "0.35", "0.4",
    "0.4001", "0.7", "1", "1.5", "2", "2.5", "10" };

constexpr const char* ownDomain = "net.qorvath.panotra";

/// Mostly what a level can be, now and then what it should not be.
std::string level(Dice& dice)
{
    return std::to_string(dice.oneIn(20) ? dice.number(-0.5, 0.25, 9) : dice.number(0, 0.0625, 17));
}

std::string boolean(Dice& dice, const std::string& key)
{
    return std::string("pref ") + ownDomain + " " + key + " bool " + dice.oneOf(answers) + "\n";
}

std::string integer(Dice& dice, const char* key, std::uint64_t count)
{
    return std::string("pref ") + ownDomain + " " + key + " int " + std::to_string(dice.below(count)) + "\n";
}

std::string setting(Dice& dice)
{
    switch (dice.below(5)) {
    case 0:
        return integer(dice, "activeStyle", 3);
    case 1:
        return integer(dice, "mixerSkin", 5);
    case 2:
        return std::string("pref ") + ownDomain + " scale float " + std::to_string(dice.number(0.25, 0.125, 7)) + "\n";
    case 3:
        return std::string("pref ") + ownDomain + " volume" + std::to_string(dice.below(std::size(knownSliders)))
            + " float " + level(dice) + "\n";
    default:
        return boolean(dice, dice.oneOf(booleanSettings));
    }
}

std::string place(Dice& dice)
{
    return std::to_string(dice.number(-5, 0.5, 800)) + " " + std::to_string(dice.number(-5, 0.5, 1400));
}

struct Happening {
    std::uint64_t weight;
    std::string (*write)(Dice& dice);
};

constexpr Happening happenings[] = {
    { 30,
        [](Dice& dice) {
            return "wait " + dice.oneOf(waits) + "\n";
        } },
    { 10,
        [](Dice& dice) {
            return "press " + dice.oneOf(directions) + "\n";
        } },
    { 10,
        [](Dice& dice) {
            return "release " + dice.oneOf(directions) + "\n";
        } },
    { 10,
        [](Dice& dice) {
            return "announce " + dice.oneOf(categories) + " " + dice.oneOf(reasons) + " " + level(dice) + "\n";
        } },
    { 20,
        [](Dice& dice) {
            return "pan " + std::to_string(dice.below(std::size(knownSliders))) + " " + dice.oneOf(panStates) + " "
                + std::to_string(dice.number(-20, 2.5, 100)) + "\n";
        } },
    { 10,
        [](Dice& dice) {
            return "touch down " + place(dice) + "\n";
        } },
    { 10,
        [](Dice& dice) {
            return "touch move " + place(dice) + "\n";
        } },
    { 6,
        [](Dice&) {
            return std::string("touch up\n");
        } },
    { 12,
        [](Dice& dice) {
            return "activator net.qorvath.panotra." + dice.oneOf(listeners) + "\n";
        } },
    { 4,
        [](Dice&) {
            return std::string("shake\n");
        } },
    { 4,
        [](Dice&) {
            return std::string("notify net.qorvath.panotra.uikitshaken\n");
        } },
    { 4,
        [](Dice& dice) {
            return "darwin com.apple.springboard.screenchanged " + std::to_string(dice.below(10))
                + "\nnotify com.apple.springboard.screenchanged\n";
        } },
    { 6,
        [](Dice& dice) {
            return "ringer " + dice.oneOf(ringerStates) + "\n";
        } },
    { 4,
        [](Dice& dice) {
            return "sound " + std::to_string(dice.below(7)) + "\n";
        } },
    { 8,
        [](Dice& dice) {
            return "orientation " + std::to_string(dice.below(6)) + "\nreorient-hud " + dice.oneOf(answers) + "\n";
        } },
    { 3,
        [](Dice& dice) {
            return "statusbar-frame " + dice.oneOf(statusBars) + " 0 0 375 20\n";
        } },
    { 8,
        [](Dice& dice) {
            return setting(dice) + "notify net.qorvath.panotra.settingschanged\n";
        } },
    { 4,
        [](Dice& dice) {
            return "route " + dice.oneOf(routes) + "\n";
        } },
    { 2,
        [](Dice& dice) {
            return "category " + dice.oneOf(categories) + "\n";
        } },
    { 3,
        [](Dice& dice) {
            return "set-volume " + dice.oneOf(categories) + " " + level(dice) + "\n";
        } },
    { 2,
        [](Dice& dice) {
            return "echo " + dice.oneOf(switches) + "\n";
        } },
    { 2,
        [](Dice&) {
            return std::string("present-hud 1.5\n");
        } },
    { 2,
        [](Dice& dice) {
            return "hold " + dice.oneOf(directions) + "\n";
        } },
    { 2,
        [](Dice& dice) {
            return "let " + dice.oneOf(directions) + "\n";
        } },
    // What comes to the mixer by another way on another system.
    { 3,
        [](Dice& dice) {
            return "mode " + std::to_string(dice.below(3)) + "\n";
        } },
    { 4,
        [](Dice& dice) {
            return "rotation-duration " + dice.oneOf(rotations) + "\n";
        } },
    { 3,
        [](Dice& dice) {
            return "statusbar " + dice.oneOf(visibilities) + "\n";
        } },
    { 3,
        [](Dice& dice) {
            return "statusbar center " + place(dice) + "\n";
        } },
    { 3,
        [](Dice& dice) {
            return "present-volume-hud " + std::to_string(dice.below(3)) + " " + level(dice) + "\n";
        } },
    { 2,
        [](Dice& dice) {
            return "active-volume " + dice.oneOf(namings) + "\n";
        } },
};

const Happening& something(Dice& dice)
{
    std::uint64_t total = 0;
    for (const Happening& each : happenings)
        total += each.weight;
    std::uint64_t drawn = dice.below(total);
    const Happening* happening = happenings;
    while (drawn >= happening->weight)
        drawn -= (happening++)->weight;
    return *happening;
}

} // namespace

namespace {

std::string whatHappens(Dice& dice)
{
    std::string text;
    text += integer(dice, "activeStyle", 3);
    text += integer(dice, "mixerSkin", 5);
    for (const char* const key : booleanSettings)
        text += boolean(dice, key);
    text += "load\n";
    if (!dice.oneIn(20))
        text += "launch\n";
    for (std::uint64_t left = 10 + dice.below(30); left > 0; --left)
        text += something(dice).write(dice);
    return text;
}

std::string beginning(Dice& dice, std::uint64_t seed)
{
    return "# seed " + std::to_string(seed) + "\nscreen " + dice.oneOf(screens) + "\n";
}

} // namespace

std::string randomScenario(std::uint64_t seed)
{
    Dice dice(seed);
    std::string text = beginning(dice, seed);
    if (dice.oneIn(10))
        text += "lack " + dice.oneOf(lackable) + "\n";
    if (dice.oneIn(10))
        text += "have " + dice.oneOf(otherMixersClasses) + "\n";
    return text + whatHappens(dice);
}

std::string randomOddProcess(std::uint64_t seed)
{
    Dice dice(seed);
    std::string text = beginning(dice, seed);
    for (std::uint64_t left = 1 + dice.below(4); left > 0; --left) {
        if (dice.oneIn(4))
            text += "have " + dice.oneOf(classesOfSome) + "\n";
        else
            text += "lack " + (dice.oneIn(2) ? dice.oneOf(movingClasses) : dice.oneOf(anyClasses)) + "\n";
    }
    return text + whatHappens(dice);
}

} // namespace panotra::testing
