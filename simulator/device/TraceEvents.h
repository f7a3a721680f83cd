/// Every kind of event that a trace can hold: one table, from which the reference of the trace is written as well.
#pragma once

#include <array>
#include <string_view>

namespace panotra::sim {

struct TraceEvent {
    std::string_view name;
    std::string_view fields; ///< with blanks between; one with a question mark after it may be left out
    std::string_view when; ///< in words for people
    std::string_view example; ///< of the fields, as JSON
};

inline constexpr std::array traceEvents {
    TraceEvent { "hook", "class method", "the library has replaced a method",
        R"("class":"SBHUDController","method":"reorientHUDIfNeeded:")" },
    TraceEvent {
        "register", "name", "`notify_register_check` was called", R"("name":"com.apple.springboard.screenchanged")" },
    TraceEvent { "observe", "name", "an observer of a Darwin notification was added",
        R"("name":"net.qorvath.panotra.settingschanged")" },
    TraceEvent { "listener", "name", "a listener was registered with the gesture framework",
        R"("name":"net.qorvath.panotra.presentmixer")" },
    TraceEvent { "launched", "", "the host's own `applicationDidFinishLaunching:`", "" },
    TraceEvent { "announced", "category reason level",
        "the host's own `postEffectiveVolumeNotification:`; null for what the announcement lacks",
        R"("category":"Audio/Video","reason":"RouteChange","level":0.5)" },
    TraceEvent { "activeVolume", "named", "the host's own `getActiveCategoryVolume:andName:fallbackCategory:`",
        R"("named":true)" },
    TraceEvent { "setVolume", "category level", "the host's own `setVolumeTo:forCategory:`",
        R"("category":"Ringtone","level":0.25)" },
    TraceEvent { "indicator", "by mode? level? delay?",
        "the host shows its own indicator; `by` is the method, the rest what it was given",
        R"("by":"presentHUDView:autoDismissWithDelay:","delay":1.5)" },
    TraceEvent { "reoriented", "flag", "the host's own `reorientHUDIfNeeded:`", R"("flag":true)" },
    TraceEvent { "statusBarFrame", "class frame", "the status bar's own `setFrame:`",
        R"("class":"UIStatusBar","frame":[0.0,0.0,375.0,20.0])" },
    TraceEvent { "sound", "type", "the host's own `playSound:environments:completion:`; null for an untyped sound",
        R"("type":5)" },
    TraceEvent { "ringer", "muted", "the host's own `setRingerMuted:`", R"("muted":true)" },
    TraceEvent { "motion", "type", "the host's own `motionBegan:withEvent:`, which the library never lets happen",
        R"("type":1)" },
    TraceEvent { "post", "name", "the library posted a Darwin notification", R"("name":"net.qorvath.panotra.shake")" },
    TraceEvent { "synchronize", "domain", "the library took a fresh look at a preference domain",
        R"("domain":"net.qorvath.panotra")" },
    TraceEvent { "write", "domain key value", "the library stored a value",
        R"("domain":"net.qorvath.panotra","key":"volume7","value":0.5)" },
    TraceEvent { "schedule", "selector object delay", "a perform was deferred; null for a missing object",
        R"("selector":"destroyHUDWindow","object":null,"delay":2.0)" },
    TraceEvent { "cancel", "selector object", "performs of that kind were taken back, if there were any",
        R"("selector":"destroyHUDWindow","object":null)" },
    TraceEvent {
        "perform", "selector object", "a deferred perform begins", R"("selector":"destroyHUDWindow","object":null)" },
    TraceEvent { "dispatch", "delay", "a block was put on the main queue", R"("delay":0.1)" },
    TraceEvent { "dispatched", "", "such a block begins", "" },
    TraceEvent { "animate", "duration delay options", "an animation was started; its block runs next",
        R"("duration":0.15,"delay":0.0,"options":2)" },
    TraceEvent { "animationEnd", "finished", "an animation ended; its completion runs next", R"("finished":true)" },
    TraceEvent { "windowShown", "", "the mixer's window was made visible", "" },
    TraceEvent { "overlay", "class action value?", "another program's overlay was told to hide; `value` with setHidden",
        R"("class":"ABVolumeHUDManager","action":"hideImmediatelyIfPossible")" },
    TraceEvent {
        "assistant", "action", "the voice assistant was opened, hidden or dismissed", R"("action":"openSiri")" },
    TraceEvent { "handled", "listener", "the gesture's event was marked as handled",
        R"("listener":"net.qorvath.panotra.presentmixer")" },
    TraceEvent { "answer", "listener question value",
        "what `activator-ask` was answered: text, for the icon the bytes of its picture, or null",
        R"("listener":"net.qorvath.panotra.presentmixer","question":"group","value":"Panotra")" },
    TraceEvent { "hit", "x y view", "`touch down` was hit-tested; null for no view and for no window",
        R"("x":187.5,"y":333.5,"view":"_volumeView1")" },
    TraceEvent { "state", "globals controller sliders system prefs pending running", "`state` asked for it; see State",
        R"("globals":{"scale":0.875},"controller":null,"sliders":{"0":null},"system":{"Alarm":0.5},"prefs":{},"pending":[],"running":0)" },
    TraceEvent { "tree", "root", "`tree` asked for it; see Tree", R"("root":null)" },
    TraceEvent { "shot", "file", "a picture was written; the folder of pictures is left out", R"("file":"shown.png")" },
};

/// The name of an event. Does not compile if the event is not in the table.
class EventName {
public:
    consteval EventName(const char* name)
    {
        for (const TraceEvent& each : traceEvents) {
            if (each.name == name)
                m_event = &each;
        }
        if (m_event == nullptr)
            throw "an event that is not in the table";
    }

    constexpr const TraceEvent& event() const { return *m_event; }

private:
    const TraceEvent* m_event = nullptr;
};

} // namespace panotra::sim
