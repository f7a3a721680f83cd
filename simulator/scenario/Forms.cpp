/// The table of commands.
#include "simulator/scenario/Forms.h"

#include "facts/GestureStates.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/SystemShape.h"
#include "simulator/scenario/Player.h"

#include <algorithm>

namespace panotra::sim {

namespace {

using enum Phase;

Button buttonOf(const Arguments& a)
{
    return a.is(0, "up") ? Button::Up : Button::Down;
}

void setHeld(HomeScreen& home, Button button, bool held)
{
    (button == Button::Up ? home.volumeUpIsDown : home.volumeDownIsDown) = held;
}

/// The platform's number of a recogniser's state; `name` is one of the form of `pan`.
std::int64_t recognizerState(const std::string& name)
{
    return std::ranges::find(gestureStateNames, name) - gestureStateNames.begin();
}

void setScreen(Screen& screen, double width, double height, double scale, bool hasRealDisplayBounds)
{
    screen.width = width;
    screen.height = height;
    screen.scale = scale;
    screen.hasRealDisplayBounds = hasRealDisplayBounds;
}

/// The scale of a screen that is known by its reference bounds only.
constexpr double referenceScale = 2;
/// The type of a motion event that is a shake.
constexpr std::int64_t shakeMotion = 1;

void setPreference(Device& device, const Arguments& a, const Json& value)
{
    device.preferences->set(a.text(0), a.text(1), value);
}

// `p` is the player, `a` the arguments: fifty rows would drown in longer names.
constexpr std::array forms {
    // The process, before the library comes into it.
    Form("process BUNDLE", BeforeLoad, [](Player& p, const Arguments& a) { p.device().bundleIdentifier = a.text(0); }),
    Form("screen W H SCALE", BeforeLoad,
        [](Player& p, const Arguments& a) {
            setScreen(*p.device().screen, a.number(0), a.number(1), a.number(2), true);
        }),
    Form("screen reference W H", BeforeLoad,
        [](Player& p, const Arguments& a) {
            setScreen(*p.device().screen, a.number(0), a.number(1), referenceScale, false);
        }),
    Form("ios SYSTEM", BeforeLoad,
        [](Player& p, const Arguments& a) { takeShape(p.device(), static_cast<int>(a.integer(0))); }),
    Form(
        "lack CLASS", BeforeLoad, [](Player& p, const Arguments& a) { setClassPresent(p.device(), a.text(0), false); }),
    Form("have CLASS", BeforeLoad, [](Player& p, const Arguments& a) { setClassPresent(p.device(), a.text(0), true); }),

    // The host, changed without telling the library.
    Form("route NAME|nil", Always, [](Player& p, const Arguments& a) { p.device().audio->route = a.optionalText(0); }),
    Form("category NAME", Always, [](Player& p, const Arguments& a) { p.device().audio->activeCategory = a.text(0); }),
    Form("system CATEGORY LEVEL", Always,
        [](Player& p, const Arguments& a) { p.device().audio->store(a.text(0), a.level(1)); }),
    Form("echo on|off", Always, [](Player& p, const Arguments& a) { p.device().audio->echo = a.is(0, "on"); }),
    Form("mode N", Always, [](Player& p, const Arguments& a) { p.device().home->volumeMode = a.integer(0); }),
    Form("hold up|down", Always, [](Player& p, const Arguments& a) { setHeld(*p.device().home, buttonOf(a), true); }),
    Form("let up|down", Always, [](Player& p, const Arguments& a) { setHeld(*p.device().home, buttonOf(a), false); }),
    Form("orientation N", Always, [](Player& p, const Arguments& a) { p.device().screen->orientation = a.integer(0); }),
    Form("rotation-duration SECONDS", Always,
        [](Player& p, const Arguments& a) { p.device().home->rotationDuration = a.number(0); }),
    Form("statusbar hidden|shown", Always,
        [](Player& p, const Arguments& a) { p.device().screen->statusBarHidden = a.is(0, "hidden"); }),
    Form("statusbar center X Y", Always,
        [](Player& p, const Arguments& a) {
            p.device().screen->statusBarCenter = { a.number(0), a.number(1) };
        }),
    Form("assistant visible|hidden", Always,
        [](Player& p, const Arguments& a) { p.device().home->assistantVisible = a.is(0, "visible"); }),
    Form("darwin NAME STATE", Always,
        [](Player& p, const Arguments& a) { p.device().darwin->setState(a.text(0), a.state(1)); }),
    Form("pref DOMAIN KEY int INTEGER", Always,
        [](Player& p, const Arguments& a) { setPreference(p.device(), a, a.integer(2)); }),
    Form("pref DOMAIN KEY float NUMBER", Always,
        [](Player& p, const Arguments& a) { setPreference(p.device(), a, a.number(2)); }),
    Form("pref DOMAIN KEY bool yes|no", Always,
        [](Player& p, const Arguments& a) { setPreference(p.device(), a, a.is(2, "yes")); }),
    Form("pref DOMAIN KEY string STRING", Always,
        [](Player& p, const Arguments& a) { setPreference(p.device(), a, a.text(2)); }),
    Form("unpref DOMAIN KEY", Always,
        [](Player& p, const Arguments& a) { p.device().preferences->unset(a.text(0), a.text(1)); }),

    // Events.
    Form("load", Load, [](Player& p, const Arguments&) { p.load(); }),
    Form("launch", AfterLoad, [](Player& p, const Arguments&) { p.device().home->finishLaunching(); }),
    Form("announce CATEGORY|nil REASON|nil LEVEL|nil", AfterLoad,
        [](Player& p, const Arguments& a) {
            p.device().home->announce(a.optionalText(0), a.optionalText(1), a.optionalLevel(2));
        }),
    Form("active-volume named|unnamed", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().home->getActiveCategoryVolume(a.is(0, "named")); }),
    Form("set-volume CATEGORY LEVEL", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().home->setVolume(a.text(0), a.level(1)); }),
    Form("press up|down", AfterLoad, [](Player& p, const Arguments& a) { p.device().home->press(buttonOf(a)); }),
    Form("release up|down", AfterLoad, [](Player& p, const Arguments& a) { p.device().home->release(buttonOf(a)); }),
    Form("present-hud DELAY", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().home->presentHUD(a.number(0)); }),
    Form("present-volume-hud MODE LEVEL", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().home->presentVolumeHUD(a.integer(0), a.level(1)); }),
    Form("reorient-hud yes|no", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().home->reorientHUD(a.is(0, "yes")); }),
    Form("statusbar-frame UIStatusBar|_UIStatusBar X Y W H", AfterLoad,
        [](Player& p, const Arguments& a) {
            p.device().home->setStatusBarFrame(a.text(0), a.number(1), a.number(2), a.number(3), a.number(4));
        }),
    Form("ringer muted|unmuted", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().home->setRingerMuted(a.is(0, "muted")); }),
    Form("sound TYPE", AfterLoad, [](Player& p, const Arguments& a) { p.device().home->playSound(a.integer(0)); }),
    Form("sound untyped", AfterLoad, [](Player& p, const Arguments&) { p.device().home->playSound(std::nullopt); }),
    Form("motion TYPE", AfterLoad, [](Player& p, const Arguments& a) { p.device().home->motionBegan(a.integer(0)); }),
    Form("shake", AfterLoad, [](Player& p, const Arguments&) { p.device().home->motionBegan(shakeMotion); }),
    Form("notify NAME", AfterLoad, [](Player& p, const Arguments& a) { p.device().home->notify(a.text(0)); }),
    Form("activator LISTENER", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().home->sendActivatorEvent(a.text(0)); }),
    Form("activator-ask group|title|description|icon LISTENER", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().home->askActivator(a.text(0), a.text(1)); }),
    Form("pan SLOT began|changed|ended|cancelled|failed X", AfterLoad,
        [](Player& p, const Arguments& a) {
            p.device().home->pan(static_cast<int>(a.integer(0)), recognizerState(a.text(1)), a.number(2));
        }),
    Form("touch down X Y", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().touches->down(a.number(0), a.number(1)); }),
    Form("touch move X Y", AfterLoad,
        [](Player& p, const Arguments& a) { p.device().touches->move(a.number(0), a.number(1)); }),
    Form("touch up", AfterLoad, [](Player& p, const Arguments&) { p.device().touches->up(); }),
    Form("wait SECONDS", Always, [](Player& p, const Arguments& a) { p.device().runLoop->wait(a.number(0)); }),

    // Output.
    Form("state", Always, [](Player& p, const Arguments&) { p.reportState(); }),
    Form("tree", Always, [](Player& p, const Arguments&) { p.reportTree(); }),
    Form("shot PICTURE", Always, [](Player& p, const Arguments& a) { p.shoot(a.text(0)); }),
    Form(
        "expect PATH VALUE|nil", Always, [](Player& p, const Arguments& a) { p.expect(a.text(0), a.optionalText(1)); }),
};

} // namespace

std::vector<std::string_view> Term::alternatives() const
{
    std::vector<std::string_view> words;
    for (std::string_view rest = placeholder == nullptr ? text : std::string_view(); !rest.empty();) {
        words.push_back(rest.substr(0, rest.find('|')));
        rest.remove_prefix(std::min(rest.size(), words.back().size() + 1));
    }
    return words;
}

std::span<const Form> allForms()
{
    return forms;
}

} // namespace panotra::sim
