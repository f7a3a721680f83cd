/// Classes made at run time of the table's rows and of the implementations of the classes that were compiled.
///
/// What a class of the table does is compiled as a class of that name, for what every process has, and as one whose
/// name begins with "Later", for what came with a later system. The process of a system gets a class of its own with
/// just the methods that belong there.
#include "tests/hosts/classes/SystemClasses.h"

#include "simulator/device/SystemShape.h"
#include "simulator/systems/Systems.h"
#include "tests/hosts/Peers.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

namespace panotra::hosts {

namespace {

using systems::allRows;
using systems::Caller;
using systems::Kind;
using systems::Place;
using systems::Row;

std::map<std::string, Class, std::less<>>& made()
{
    static std::map<std::string, Class, std::less<>> all;
    return all;
}

std::map<Class, std::string>& names()
{
    static std::map<Class, std::string> all;
    return all;
}

bool isMethod(const Row& row)
{
    return row.kind == Kind::Method || row.kind == Kind::ClassMethod;
}

/// The row of a method on a system, also where the class inherits it; null where the system has no such method.
const Row* rowOn(int system, Kind kind, const char* owner, std::string_view method)
{
    const auto row = std::ranges::find_if(allRows(), [&](const Row& each) {
        return each.kind == kind && each.isOn(system) && std::string_view(each.owner) == owner && method == each.name;
    });
    return row == allRows().end() ? nullptr : &*row;
}

/// Whether the table speaks of the method at all.
bool isInTable(Kind kind, const char* owner, std::string_view method)
{
    return std::ranges::any_of(allRows(), [&](const Row& each) {
        return each.kind == kind && std::string_view(each.owner) == owner && method == each.name;
    });
}

/// Whether the method's class is lacking and does without it.
bool isGone(const Row& row)
{
    return row.kind == Kind::Method && sim::isLeftToOthers(device(), row.owner)
        && sim::remainderOf(device(), row) != sim::Remainder::Whole;
}

/// Gives `target` the methods of `source` that belong there: those that the system has, and those of which the table
/// says nothing, which others are made of.
void addMethods(Class target, Class source, Kind kind, const char* owner, int system)
{
    unsigned count = 0;
    Method* const methods = source == Nil ? nullptr : class_copyMethodList(source, &count);
    for (unsigned i = 0; i < count; ++i) {
        const SEL selector = method_getName(methods[i]);
        const char* const name = sel_getName(selector);
        const Row* const row = rowOn(system, kind, owner, name);
        const bool isOfTheSystem = row != nullptr && row->place == Place::Own && !isGone(*row);
        if (isOfTheSystem || !isInTable(kind, owner, name))
            class_addMethod(target, selector, method_getImplementation(methods[i]),
                isOfTheSystem ? row->type : method_getTypeEncoding(methods[i]));
    }
    std::free(methods);
}

/// Of methods that are there and that nobody calls.
id answerNothing(id, SEL)
{
    return nil;
}

double answerZero(id, SEL)
{
    return 0;
}

/// Of a class that is lacking and works for others: what it is asked for itself.
void addZeroAnswers(Class target, const char* owner)
{
    for (const Row& row : allRows()) {
        if (row.kind == Kind::Method && std::string_view(row.owner) == owner && isGone(row)
            && sim::remainderOf(device(), row) == sim::Remainder::Zero)
            class_addMethod(target, sel_registerName(row.name),
                row.type[0] == 'd' ? reinterpret_cast<IMP>(answerZero) : reinterpret_cast<IMP>(answerNothing),
                row.type);
    }
}

/// Every method that the process of the system gives the class of that name.
void addMethods(Class target, const char* owner, int system)
{
    for (const std::string& source : { "Later" + std::string(owner), std::string(owner) }) {
        const Class compiled = objc_lookUpClass(source.c_str());
        addMethods(target, compiled, Kind::Method, owner, system);
        addMethods(object_getClass(target), compiled == Nil ? Nil : object_getClass(compiled), Kind::ClassMethod, owner,
            system);
    }
    addZeroAnswers(target, owner);
    for (const Row& row : allRows()) {
        if (isMethod(row) && row.isOn(system) && row.caller == Caller::Nobody && std::string_view(row.owner) == owner
            && !isGone(row))
            class_addMethod(row.kind == Kind::Method ? target : object_getClass(target), sel_registerName(row.name),
                reinterpret_cast<IMP>(answerNothing), row.type);
    }
}

void addVariables(Class target, const char* owner, int system)
{
    for (const Row& row : allRows()) {
        if (row.kind != Kind::Variable || !row.isOn(system) || std::string_view(row.owner) != owner)
            continue;
        NSUInteger size = 0;
        NSUInteger alignment = 0;
        NSGetSizeAndAlignment(row.type, &size, &alignment);
        class_addIvar(target, row.name, size, static_cast<unsigned char>(std::countr_zero(alignment)), row.type);
    }
}

void makeClass(const char* name, Class superclass, int system)
{
    const Class added = objc_allocateClassPair(superclass, (std::string("Shaped") + name).c_str(), 0);
    addVariables(added, name, system);
    addMethods(added, name, system);
    objc_registerClassPair(added);
    made()[name] = added;
    names()[added] = name;
}

/// A class that the table does not describe may still have to lose a method.
bool mustLose(const Row& row, int system)
{
    const Class compiled = objc_lookUpClass(row.owner);
    return isMethod(row) && compiled != Nil && rowOn(system, row.kind, row.owner, row.name) == nullptr
        && class_respondsToSelector(
            row.kind == Kind::Method ? compiled : object_getClass(compiled), sel_registerName(row.name));
}

/// What the table promises, and no class compiled here does, would be missed by every test.
void complainOfWhatIsMissing(int system)
{
    for (const Row& row : allRows()) {
        if (!isMethod(row) || !row.isOn(system) || isGone(row))
            continue;
        const Class owner = classNamed(row.owner);
        const Class holder = row.kind == Kind::Method || owner == Nil ? owner : object_getClass(owner);
        if (holder != Nil && class_respondsToSelector(holder, sel_registerName(row.name)))
            continue;
        std::fprintf(stderr, "no class of this host has %s %s\n", row.owner, row.name);
        std::abort();
    }
}

} // namespace

void makeSystemClasses()
{
    if (!device().system)
        return;
    const int system = *device().system;
    for (const Row& row : allRows()) {
        if (row.kind != Kind::Class || !row.isOn(system))
            continue;
        const Class superclass = std::string_view(row.name) == "NSObject" ? [DeviceObject class] : classNamed(row.name);
        makeClass(row.owner, superclass, system);
    }
    for (const Row& row : allRows()) {
        if (made().contains(row.owner) || !isMethod(row))
            continue;
        if (mustLose(row, system))
            makeClass(row.owner, class_getSuperclass(objc_lookUpClass(row.owner)), system);
        else if (const Class compiled = objc_lookUpClass(row.owner))
            addMethods(compiled, row.owner, system);
    }
    complainOfWhatIsMissing(system);
}

Class classNamed(const char* name)
{
    const auto shaped = made().find(std::string_view(name));
    return shaped != made().end() ? shaped->second : objc_lookUpClass(name);
}

const char* nameOfClass(Class hostClass)
{
    const auto shaped = names().find(hostClass);
    return shaped != names().end() ? shaped->second.c_str() : class_getName(hostClass);
}

} // namespace panotra::hosts
