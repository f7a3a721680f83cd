/// The device's life, and its trace.
#include "simulator/device/Device.h"

#include "simulator/device/EventForms.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"

#include <cassert>
#include <string>
#include <thread>
#include <utility>

namespace panotra::sim {

namespace {

Device* currentDevice = nullptr;
std::thread::id mainThread; ///< the current device's

} // namespace

Device::Device(std::optional<std::string> preferencesFolder)
    : runLoop(std::make_unique<RunLoop>(*this))
    , classes(std::make_unique<ClassTable>(*this))
    , preferences(std::make_unique<PreferenceDomains>(*this, std::move(preferencesFolder)))
    , darwin(std::make_unique<DarwinNotifications>(*this))
    , audio(std::make_unique<AudioService>())
    , sound(audio.get())
    , screen(std::make_unique<Screen>())
    , home(std::make_unique<HomeScreen>(*this))
    , touches(std::make_unique<Touches>(*this))
{
    assert(currentDevice == nullptr);
    currentDevice = this;
    mainThread = std::this_thread::get_id();
}

Device::~Device()
{
    // From here on counting is nothing: what deferred work and objects hold goes without a dealloc.
    currentDevice = nullptr;
    touches.reset();
    runLoop.reset();
    home.reset();
    // Before the objects: a handle that lives now must find no domain to save to.
    preferences.reset();
    classes.reset();
}

Device* Device::current()
{
    return currentDevice;
}

bool Device::isMainThread() const
{
    return std::this_thread::get_id() == mainThread;
}

void Device::trace(EventName event)
{
    trace(event, [](const EventFields&) {});
}

const std::string* Device::nameOf(HostObject* object) const
{
    if (object == nullptr)
        return nullptr;
    if (object->name.empty())
        classes->nameHeldObjects();
    return object->name.empty() ? nullptr : &object->name;
}

void Device::report(EventName name, void (*addFields)(const void* with, EventFields& to), const void* with)
{
    if (traceSink) {
        EventObject object(name.event(), runLoop->now());
        addFields(with, object);
        traceSink(object.take());
    }
    if (traceLines) {
        EventLine line(name.event(), runLoop->now());
        addFields(with, line);
        traceLines(line.finish());
    }
}

} // namespace panotra::sim
