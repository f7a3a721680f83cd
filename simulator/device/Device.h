/// The simulated device: one home-screen (or other) process made of memory, on a virtual clock.
///
/// It is the host: it knows nothing of the library that is loaded into it, calls it only through method tables,
/// observers and deferred work, and reports what its own implementations do as trace events. One device lives at
/// a time; it is the process that the simulated backend of the seam talks to.
#pragma once

#include "facts/PublicNames.h"
#include "simulator/device/Object.h"
#include "simulator/device/TraceEvents.h"

#include <nlohmann/json_fwd.hpp>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::sim {

/// A trace event without its time stamp, or any other JSON value; fields keep their order. Who makes one or looks into
/// one includes the library of JSON whole, which takes longer to compile than all else here.
using Json = nlohmann::ordered_json;

class AudioService;
class ClassTable;
class DarwinNotifications;
class EventFields;
class HomeScreen;
class PreferenceDomains;
class RunLoop;
class Screen;
class SoundService;
class Touches;

class Device {
public:
    /// `preferencesFolder`: where domains live as property lists; none keeps them in memory.
    explicit Device(std::optional<std::string> preferencesFolder = std::nullopt);
    /// The process ends: its memory goes at once, no object runs its dealloc.
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// The device that lives now, or null.
    static Device* current();
    /// Whether the caller is the thread that made the device, which is the only one that may use it. From any thread.
    bool isMainThread() const;

    /// Who gets the trace: called with {"t": …, "event": …, fields…}.
    std::function<void(const Json&)> traceSink;
    /// Who gets it as text: the same, a line of JSON an event. Without either, events cost nothing.
    std::function<void(std::string_view)> traceLines;
    /// Reports an event; `addFields(fields)` adds what it has besides its name, and is called once for each who
    /// listens.
    template <typename AddFields> void trace(EventName event, const AddFields& addFields)
    {
        if (traceSink || traceLines)
            report(
                event, [](const void* add, EventFields& to) { (*static_cast<const AddFields*>(add))(to); }, &addFields);
    }
    void trace(EventName event);

    /// The bundle identifier of the process; the home screen's until set.
    std::string bundleIdentifier = homeScreenBundle;

    /// The system whose shape the process has taken, 9 to 16; none: what 10 to 12 have, all of it (SystemShape.h).
    std::optional<int> system;

    /// Where the bundle's pictures are, `NAME@2x.png` or `NAME.png`; empty: every picture is a single pixel.
    std::string resourceFolder;

    std::unique_ptr<RunLoop> runLoop; ///< clock, deferred work, animations
    std::unique_ptr<ClassTable> classes; ///< classes by name, registration, live objects
    std::unique_ptr<PreferenceDomains> preferences; ///< domains in memory or as files
    std::unique_ptr<DarwinNotifications> darwin; ///< names, tokens, states, observers
    std::unique_ptr<AudioService> audio; ///< levels by category, route, active category, echo: in memory
    SoundService* sound; ///< who makes the sound: `audio`, unless whoever drives the device says otherwise
    std::unique_ptr<Screen> screen; ///< size, scale, orientation, status bar
    std::unique_ptr<HomeScreen> home; ///< the process's own classes, and the events that drive them
    std::unique_ptr<Touches> touches; ///< fingers, hit tests and recognisers

    /// The name of a view or other object for the trace: the field that holds it. Null for null, and for an
    /// object that no field has ever held.
    const std::string* nameOf(HostObject* object) const;

private:
    void report(EventName event, void (*addFields)(const void* with, EventFields& to), const void* with);
};

} // namespace panotra::sim
