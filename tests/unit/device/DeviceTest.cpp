/// A device whose trace is kept, with objects for tests to send messages to.
#include "tests/unit/device/DeviceTest.h"

#include <cstring>
#include <sstream>

namespace panotra::sim {

namespace {

void record(const HostSelector* selector, HostObject* object, bool takesObject);

} // namespace

/// The log is the fixture's; methods are plain functions and have no fixture.
struct Recorder {
    static std::vector<std::string>* log;

    static void plain(HostObject*, const HostSelector* selector) { record(selector, nullptr, false); }
    static void withObject(HostObject*, const HostSelector* selector, HostObject* object)
    {
        record(selector, object, true);
    }
};

std::vector<std::string>* Recorder::log = nullptr;

namespace {

void record(const HostSelector* selector, HostObject* object, bool takesObject)
{
    std::ostringstream line;
    line << Device::current()->runLoop->now() << ' ' << selector->name;
    if (takesObject)
        line << ' ' << (object == nullptr ? "null" : object->name);
    Recorder::log->push_back(line.str());
}

} // namespace

DeviceTest::DeviceTest()
{
    calls.clear();
    Recorder::log = &calls;
    device.traceSink = [this](const Json& event) {
        events.push_back(event);
    };
}

View& DeviceTest::makeView(Rect frame)
{
    View& view = make<View>("UIView");
    view.setFrame(frame);
    return view;
}

BackdropView& DeviceTest::makeBackdrop(bool autosizes)
{
    BackdropView& backdrop = make<BackdropView>("_UIBackdropView");
    backdrop.autosizes = autosizes;
    return backdrop;
}

HostObject& DeviceTest::makeRecorder()
{
    HostClass* isa = device.classes->find("Recorder");
    if (isa == nullptr) {
        isa = &device.classes->add("Recorder", "NSObject");
        isa->methods[selector("first")] = implementation(Recorder::plain);
        isa->methods[selector("second")] = implementation(Recorder::plain);
        isa->methods[selector("third:")] = implementation(Recorder::withObject);
    }
    return *device.classes->instantiate(*isa);
}

HostObject& DeviceTest::makeHolder(const std::vector<std::pair<std::string, HostObject*>>& fields)
{
    HostClass& isa = device.classes->add("Holder", "NSObject");
    isa.isRegistered = true;
    isa.instanceSize = fields.size() * sizeof(HostObject*);
    isa.construct = [](void*) {
    };
    isa.destroy = [](HostObject*, void*) {
    };
    isa.fields.clear();
    for (std::size_t i = 0; i < fields.size(); ++i)
        isa.fields.push_back({ fields[i].first, '@', i * sizeof(HostObject*) });
    HostObject& holder = *device.classes->instantiate(isa);
    for (std::size_t i = 0; i < fields.size(); ++i)
        std::memcpy(holder.instanceVariables.get() + i * sizeof(HostObject*), &fields[i].second, sizeof(HostObject*));
    return holder;
}

std::vector<Json> DeviceTest::eventsOf(const std::string& name) const
{
    std::vector<Json> found;
    for (const Json& event : events) {
        if (event["event"] == name)
            found.push_back(event);
    }
    return found;
}

std::vector<std::string> DeviceTest::eventNames() const
{
    std::vector<std::string> names;
    for (const Json& event : events)
        names.push_back(event["event"]);
    return names;
}

} // namespace panotra::sim
