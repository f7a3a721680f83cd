/// The device's life, and its trace.
#include "simulator/device/Device.h"

#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"

#include <nlohmann/json.hpp>

#include <cassert>
#include <sstream>
#include <string>
#include <thread>
#include <utility>

namespace panotra::sim {

namespace {

Device* currentDevice = nullptr;
std::thread::id mainThread; ///< the current device's

/// Whether the fields are those that the table of events tells of.
[[maybe_unused]] bool areFieldsOf(const TraceEvent& event, const Json& fields)
{
    std::size_t known = 0;
    std::istringstream words { std::string(event.fields) };
    for (std::string word; words >> word;) {
        const bool mayBeAbsent = word.ends_with('?');
        if (mayBeAbsent)
            word.pop_back();
        const bool isThere = fields.contains(word);
        if (!isThere && !mayBeAbsent)
            return false;
        known += isThere ? 1 : 0;
    }
    return known == fields.size();
}

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
    if (traceSink)
        report(event, Json::object());
}

Json Device::nameOf(HostObject* object)
{
    if (object == nullptr)
        return nullptr;
    if (object->name.empty())
        classes->nameHeldObjects();
    return object->name.empty() ? Json() : Json(object->name);
}

void Device::report(EventName name, Json fields)
{
    const TraceEvent& event = name.event();
    assert(areFieldsOf(event, fields));
    auto& members = fields.get_ref<Json::object_t&>();
    Json::object_t line;
    line.reserve(2 + members.size());
    line.emplace_back("t", runLoop->now());
    line.emplace_back("event", event.name);
    for (auto& [field, value] : members)
        line.emplace_back(field, std::move(value));
    traceSink(std::move(line));
}

} // namespace panotra::sim
