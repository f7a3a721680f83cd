/// Classes, methods and variables put in and taken out by the rows of the table of systems.
#include "simulator/device/SystemShape.h"

#include "simulator/device/ClassTable.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/PlatformMethods.h"
#include "simulator/systems/Systems.h"

#include <algorithm>
#include <cassert>
#include <string>
#include <string_view>

namespace panotra::sim {

namespace {

using systems::allRows;
using systems::Caller;
using systems::Kind;
using systems::Row;

/// Whether any row of the same thing is on the system: a method whose type changed has more than one.
bool isOn(const Row& row, int system)
{
    return std::ranges::any_of(allRows(), [&](const Row& other) {
        return other.kind == row.kind && std::string_view(other.owner) == row.owner
            && (row.kind == Kind::Class || std::string_view(other.name) == row.name) && other.isOn(system);
    });
}

void shapeClasses(ClassTable& classes, int system)
{
    for (const Row& row : allRows()) {
        if (row.kind != Kind::Class)
            continue;
        if (row.isOn(system))
            classes.add(row.owner, row.name);
        else if (!isOn(row, system))
            classes.setPresent(row.owner, false);
    }
}

/// Of methods that are there and that nobody calls.
std::int64_t answerNothing(HostObject*, const HostSelector*)
{
    return 0;
}

/// The same where a floating-point number is asked for, which is answered in another place.
double answerZero(HostObject*, const HostSelector*)
{
    return 0;
}

/// Whether the method came to its class from another one, of which the class did not take the place as a whole.
bool cameFromElsewhere(const Row& row)
{
    const std::string_view origin = row.insteadOf != nullptr ? row.insteadOf : "";
    const std::string_view originsClass = origin.substr(0, origin.find(' '));
    if (row.kind != Kind::Method || row.caller == Caller::Nobody || originsClass.empty() || originsClass == row.owner)
        return false;
    return std::ranges::none_of(allRows(), [&](const Row& each) {
        return each.kind == Kind::Class && std::string_view(each.owner) == row.owner && each.insteadOf != nullptr
            && originsClass == each.insteadOf;
    });
}

bool worksForOthers(const Device& device, std::string_view className)
{
    return device.system && std::ranges::any_of(allRows(), [&](const Row& row) {
        return row.owner == className && row.isOn(*device.system) && cameFromElsewhere(row);
    });
}

/// Where all methods of a class are kept while it is left with those that it has for others: a name that no scenario
/// can write.
std::string nameOfWhole(const std::string& className)
{
    return className + "\n";
}

void leaveToOthers(const Device& device, HostClass& hostClass)
{
    if (isLeftToOthers(device, hostClass.name.c_str()))
        return;
    HostClass& whole = device.classes->add(nameOfWhole(hostClass.name), "NSObject");
    whole.methods = hostClass.methods;
    for (const Row& row : allRows()) {
        if (row.kind != Kind::Method || row.owner != hostClass.name)
            continue;
        const HostSelector* const name = selector(row.name);
        const Remainder remainder = remainderOf(device, row);
        if (remainder == Remainder::Nothing)
            hostClass.methods.erase(name);
        else if (remainder == Remainder::Zero)
            hostClass.methods[name] = row.type[0] == 'd' ? implementation(answerZero) : implementation(answerNothing);
    }
}

void shapeMethod(ClassTable& classes, const Row& row, int system)
{
    HostClass& owner = classes.platformClass(row.owner);
    auto& methods = row.kind == Kind::Method ? owner.methods : owner.classMethods;
    const HostSelector* const name = selector(row.name);
    if (!isOn(row, system) || row.place == systems::Place::Inherited)
        methods.erase(name);
    else if (!row.isOn(system))
        return; // another row of the same method is
    else if (row.caller == Caller::Nobody)
        methods[name] = implementation(answerNothing);
    else if (const auto later = laterImplementation(row.owner, row.name))
        methods[name] = later;
}

/// What the device keeps for an instance variable of the buttons' object.
std::int64_t (*readerOf(std::string_view variable))()
{
    if (variable == "_mode")
        return [] {
            return process().home->volumeMode;
        };
    if (variable == "_volumeUpButtonIsDown")
        return [] {
            return std::int64_t { process().home->volumeUpIsDown };
        };
    assert(variable == "_volumeDownButtonIsDown");
    return [] {
        return std::int64_t { process().home->volumeDownIsDown };
    };
}

void shapeVariable(ClassTable& classes, const Row& row, int system)
{
    auto& fields = classes.platformClass(row.owner).fields;
    std::erase_if(fields, [&row](const HostField& field) { return field.name == row.name; });
    if (row.isOn(system))
        fields.push_back({ row.name, row.type[0], 0, readerOf(row.name), nullptr });
}

} // namespace

void takeShape(Device& device, int system)
{
    assert(!device.system);
    device.system = system;
    ClassTable& classes = *device.classes;
    shapeClasses(classes, system);
    for (const Row& row : allRows()) {
        if (row.kind == Kind::Method || row.kind == Kind::ClassMethod)
            shapeMethod(classes, row, system);
        else if (row.kind == Kind::Variable)
            shapeVariable(classes, row, system);
    }
}

void setClassPresent(Device& device, const std::string& name, bool present)
{
    if (worksForOthers(device, name)) {
        HostClass& hostClass = device.classes->platformClass(name);
        if (!present)
            leaveToOthers(device, hostClass);
        else if (const HostClass* const whole = device.classes->find(nameOfWhole(name)))
            hostClass.methods = whole->methods;
        device.classes->setPresent(nameOfWhole(name), !present);
        return;
    }
    device.classes->setPresent(name, present);
    if (!device.system)
        return;
    for (const Row& row : allRows()) {
        if (row.kind == Kind::Class && row.isOn(*device.system) && row.insteadOf != nullptr && name == row.insteadOf)
            device.classes->setPresent(row.owner, present);
    }
}

Remainder remainderOf(const Device& device, const Row& method)
{
    const bool isForOthers = device.system && std::ranges::any_of(allRows(), [&](const Row& each) {
        return std::string_view(each.owner) == method.owner && std::string_view(each.name) == method.name
            && each.isOn(*device.system) && cameFromElsewhere(each);
    });
    if (isForOthers)
        return Remainder::Whole;
    const HostClass* const superclass = device.classes->platformClass(method.owner).superclass;
    const bool isInherited = superclass != nullptr && superclass->find(selector(method.name)) != nullptr;
    return isInherited || method.type[0] == 'v' ? Remainder::Nothing : Remainder::Zero;
}

bool isLeftToOthers(const Device& device, const char* className)
{
    return device.classes->find(nameOfWhole(className)) != nullptr;
}

bool isOfTheSystem(const Device& device, const char* className)
{
    return device.system && std::ranges::any_of(allRows(), [&](const Row& row) {
        return row.kind == Kind::Class && row.isOn(*device.system) && std::string_view(row.owner) == className;
    });
}

bool isCalledOnAudioQueue(const Device& device, const char* className, const char* method)
{
    return device.system && std::ranges::any_of(allRows(), [&](const Row& row) {
        return row.isOn(*device.system) && row.caller == Caller::AudioQueue && std::string_view(row.owner) == className
            && std::string_view(row.name) == method;
    });
}

const char* currentKey(const Device& device, const char* key)
{
    if (!device.system)
        return key;
    const auto row = std::ranges::find_if(allRows(), [&](const Row& each) {
        return each.kind == Kind::Key && each.isOn(*device.system)
            && std::string_view(key) == (each.insteadOf != nullptr ? each.insteadOf : each.name);
    });
    assert(row != allRows().end());
    return row->name;
}

} // namespace panotra::sim
