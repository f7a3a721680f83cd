/// The table of commands.
#include "simulator/scenario/Forms.h"

#include "facts/GestureStates.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/SystemShape.h"
#include "simulator/scenario/Player.h"

#include <nlohmann/json.hpp>

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
    Form("process BUNDLE", BeforeLoad,
        "the bundle identifier of the process; the home screen's if there is no such line", "process com.example.notes",
        [](Player& p, const Arguments& a) { p.device().bundleIdentifier = a.text(0); }),
    Form("screen W H SCALE", BeforeLoad,
        "the screen in points and its pixels a point; the process learns its size in pixels", "screen 320 568 2",
        [](Player& p, const Arguments& a) {
            setScreen(*p.device().screen, a.number(0), a.number(1), a.number(2), true);
        }),
    Form("screen reference W H", BeforeLoad,
        "the screen in points, two pixels a point; the process learns its size in points", "screen reference 320 480",
        [](Player& p, const Arguments& a) {
            setScreen(*p.device().screen, a.number(0), a.number(1), referenceScale, false);
        }),
    Form("ios SYSTEM", BeforeLoad, "the process has the shape of that iOS; before the first lack or have, and once",
        "ios 14", [](Player& p, const Arguments& a) { takeShape(p.device(), static_cast<int>(a.integer(0))); }),
    Form("lack CLASS", BeforeLoad, "the process has no such class", "lack UIViewPropertyAnimator",
        [](Player& p, const Arguments& a) { setClassPresent(p.device(), a.text(0), false); }),
    Form("have CLASS", BeforeLoad, "the process has the class, which it lacks otherwise", "have ABVolumeHUDManager",
        [](Player& p, const Arguments& a) { setClassPresent(p.device(), a.text(0), true); }),

    // The host, changed without telling the library.
    Form("route NAME|nil", Always, "where the sound goes; nil for nowhere", "route Headphone",
        [](Player& p, const Arguments& a) { p.device().audio->route = a.optionalText(0); }),
    Form("category NAME", Always, "which kind of sound is active", "category Ringtone",
        [](Player& p, const Arguments& a) { p.device().audio->activeCategory = a.text(0); }),
    Form("system CATEGORY LEVEL", Always, "the level that the system has for a category", "system Ringtone 0.75",
        [](Player& p, const Arguments& a) { p.device().audio->store(a.text(0), a.level(1)); }),
    Form("echo on|off", Always, "whether the audio service announces the levels that programs set", "echo on",
        [](Player& p, const Arguments& a) { p.device().audio->echo = a.is(0, "on"); }),
    Form("mode N", Always, "the mode of the volume control", "mode 1",
        [](Player& p, const Arguments& a) { p.device().home->volumeMode = a.integer(0); }),
    Form("hold up|down", Always, "a volume button is down; the system does not notice", "hold up",
        [](Player& p, const Arguments& a) { setHeld(*p.device().home, buttonOf(a), true); }),
    Form("let up|down", Always, "a volume button is up again; the system does not notice", "let up",
        [](Player& p, const Arguments& a) { setHeld(*p.device().home, buttonOf(a), false); }),
    Form("orientation N", Always, "1 upright, 2 upside down, 3 and 4 on either side", "orientation 3",
        [](Player& p, const Arguments& a) { p.device().screen->orientation = a.integer(0); }),
    Form("rotation-duration SECONDS", Always, "how long the host takes to turn its windows", "rotation-duration 0.4",
        [](Player& p, const Arguments& a) { p.device().home->rotationDuration = a.number(0); }),
    Form("statusbar hidden|shown", Always, "whether there is a status bar", "statusbar hidden",
        [](Player& p, const Arguments& a) { p.device().screen->statusBarHidden = a.is(0, "hidden"); }),
    Form("statusbar center X Y", Always, "where the middle of the status bar is", "statusbar center 160 10",
        [](Player& p, const Arguments& a) {
            p.device().screen->statusBarCenter = { a.number(0), a.number(1) };
        }),
    Form("assistant visible|hidden", Always, "whether the voice assistant is to be seen", "assistant visible",
        [](Player& p, const Arguments& a) { p.device().home->assistantVisible = a.is(0, "visible"); }),
    Form("darwin NAME STATE", Always, "the state of a Darwin notification", "darwin net.qorvath.panotra.shake 1",
        [](Player& p, const Arguments& a) { p.device().darwin->setState(a.text(0), a.state(1)); }),
    Form("pref DOMAIN KEY int INTEGER", Always, "another process stores a whole number",
        "pref net.qorvath.panotra activeStyle int 1",
        [](Player& p, const Arguments& a) { setPreference(p.device(), a, a.integer(2)); }),
    Form("pref DOMAIN KEY float NUMBER", Always, "another process stores a number, as a double",
        "pref net.qorvath.panotra scale float 0.75",
        [](Player& p, const Arguments& a) { setPreference(p.device(), a, a.number(2)); }),
    Form("pref DOMAIN KEY bool yes|no", Always, "another process stores a yes or no",
        "pref net.qorvath.panotra replaceHUD bool yes",
        [](Player& p, const Arguments& a) { setPreference(p.device(), a, a.is(2, "yes")); }),
    Form("pref DOMAIN KEY string STRING", Always, "another process stores a text",
        "pref net.qorvath.panotra scale string \"0.75 or so\"",
        [](Player& p, const Arguments& a) { setPreference(p.device(), a, a.text(2)); }),
    Form("unpref DOMAIN KEY", Always, "another process removes a key", "unpref net.qorvath.panotra scale",
        [](Player& p, const Arguments& a) { p.device().preferences->unset(a.text(0), a.text(1)); }),

    // Events.
    Form("load", Load, "the loader loads the library, whose constructor runs; once in a scenario", "load",
        [](Player& p, const Arguments&) { p.load(); }),
    Form("launch", AfterLoad, "the host finishes launching", "launch",
        [](Player& p, const Arguments&) { p.device().home->finishLaunching(); }),
    Form("announce CATEGORY|nil REASON|nil LEVEL|nil", AfterLoad,
        "the audio service announces a change; nil leaves that part out", "announce Audio/Video RouteChange 0.5",
        [](Player& p, const Arguments& a) {
            p.device().home->announce(a.optionalText(0), a.optionalText(1), a.optionalLevel(2));
        }),
    Form("active-volume named|unnamed", AfterLoad,
        "the host asks for the active category's level, with or without room for its name", "active-volume named",
        [](Player& p, const Arguments& a) { p.device().home->getActiveCategoryVolume(a.is(0, "named")); }),
    Form("set-volume CATEGORY LEVEL", AfterLoad, "a program sets the level of a category", "set-volume Ringtone 0.25",
        [](Player& p, const Arguments& a) { p.device().home->setVolume(a.text(0), a.level(1)); }),
    Form("press up|down", AfterLoad,
        "a volume button goes down: the level moves by 1/16, is announced, and is to be shown", "press up",
        [](Player& p, const Arguments& a) { p.device().home->press(buttonOf(a)); }),
    Form("release up|down", AfterLoad, "a volume button comes up", "release up",
        [](Player& p, const Arguments& a) { p.device().home->release(buttonOf(a)); }),
    Form("present-hud DELAY", AfterLoad, "the host shows its indicator for so many seconds", "present-hud 1.5",
        [](Player& p, const Arguments& a) { p.device().home->presentHUD(a.number(0)); }),
    Form("present-volume-hud MODE LEVEL", AfterLoad, "the host shows its volume indicator", "present-volume-hud 0 0.5",
        [](Player& p, const Arguments& a) { p.device().home->presentVolumeHUD(a.integer(0), a.level(1)); }),
    Form("reorient-hud yes|no", AfterLoad, "the host turns its indicator if need be", "reorient-hud yes",
        [](Player& p, const Arguments& a) { p.device().home->reorientHUD(a.is(0, "yes")); }),
    Form("statusbar-frame UIStatusBar|_UIStatusBar X Y W H", AfterLoad, "the host gives the status bar a frame",
        "statusbar-frame UIStatusBar 0 0 375 20",
        [](Player& p, const Arguments& a) {
            p.device().home->setStatusBarFrame(a.text(0), a.number(1), a.number(2), a.number(3), a.number(4));
        }),
    Form("ringer muted|unmuted", AfterLoad, "the ringer switch is moved", "ringer muted",
        [](Player& p, const Arguments& a) { p.device().home->setRingerMuted(a.is(0, "muted")); }),
    Form("sound TYPE", AfterLoad, "the host plays a sound of that type", "sound 1",
        [](Player& p, const Arguments& a) { p.device().home->playSound(a.integer(0)); }),
    Form("sound untyped", AfterLoad, "the host plays a sound that knows no type", "sound untyped",
        [](Player& p, const Arguments&) { p.device().home->playSound(std::nullopt); }),
    Form("motion TYPE", AfterLoad, "a motion event of that type begins", "motion 0",
        [](Player& p, const Arguments& a) { p.device().home->motionBegan(a.integer(0)); }),
    Form("shake", AfterLoad, "the device is shaken: a motion event of type 1", "shake",
        [](Player& p, const Arguments&) { p.device().home->motionBegan(shakeMotion); }),
    Form("notify NAME", AfterLoad, "a Darwin notification reaches its observers",
        "notify net.qorvath.panotra.settingschanged",
        [](Player& p, const Arguments& a) { p.device().home->notify(a.text(0)); }),
    Form("activator LISTENER", AfterLoad, "a gesture for the listener is made",
        "activator net.qorvath.panotra.presentmixer",
        [](Player& p, const Arguments& a) { p.device().home->sendActivatorEvent(a.text(0)); }),
    Form("activator-ask group|title|description|icon LISTENER", AfterLoad,
        "the gesture framework asks the listener about itself", "activator-ask title net.qorvath.panotra.presentmixer",
        [](Player& p, const Arguments& a) { p.device().home->askActivator(a.text(0), a.text(1)); }),
    Form("pan SLOT began|changed|ended|cancelled|failed X", AfterLoad,
        "a finger drags a slider; X in the slider's own coordinates", "pan 0 began 60",
        [](Player& p, const Arguments& a) {
            p.device().home->pan(static_cast<int>(a.integer(0)), recognizerState(a.text(1)), a.number(2));
        }),
    Form("touch down X Y", AfterLoad, "a finger touches the screen", "touch down 187.5 300",
        [](Player& p, const Arguments& a) { p.device().touches->down(a.number(0), a.number(1)); }),
    Form("touch move X Y", AfterLoad, "it moves; more than 10 points away a drag of the slider below it begins",
        "touch move 187.5 330",
        [](Player& p, const Arguments& a) { p.device().touches->move(a.number(0), a.number(1)); }),
    Form("touch up", AfterLoad, "it is lifted where it is", "touch up",
        [](Player& p, const Arguments&) { p.device().touches->up(); }),
    Form("wait SECONDS", Always, "time passes, and what is due by then happens", "wait 0.5",
        [](Player& p, const Arguments& a) { p.device().runLoop->wait(a.number(0)); }),

    // Output.
    Form("state", Always, "the process goes into the trace, see State", "state",
        [](Player& p, const Arguments&) { p.reportState(); }),
    Form("tree", Always, "the mixer's views go into the trace, see Tree", "tree",
        [](Player& p, const Arguments&) { p.reportTree(); }),
    Form("shot PICTURE", Always, "what the screen shows now is written as PICTURE.png", "shot evening/banner",
        [](Player& p, const Arguments& a) { p.shoot(a.text(0)); }),
    Form("expect PATH VALUE|nil", Always,
        "the state must have the value at the path, see State; else the play ends with status 1",
        "expect globals.replaceHUD yes", [](Player& p, const Arguments& a) { p.expect(a.text(0), a.optionalText(1)); }),
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
