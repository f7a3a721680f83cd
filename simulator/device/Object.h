/// Objects, classes and selectors of the simulated process.
///
/// These are the very types that the seam names only: a handle of the logic points at a HostObject. The class
/// table is real: methods are function pointers found through the class and its superclasses, and replacing one
/// is how a hook is installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace panotra {

/// A method name, interned: equal names are the same object for the life of the program.
struct HostSelector {
    std::string name;
};

/// A field that is readable by key. `encoding` is "@", "B", "f", "d", "q" or "S", of what the host keeps also "i" or
/// "Q".
struct HostField {
    std::string name;
    char encoding = '@';
    /// Where the field lies in the block of instance variables.
    std::size_t offset = 0;
    /// Reads a scalar that the host keeps elsewhere; null where the block holds the field.
    std::int64_t (*read)() = nullptr;
    /// The object behind what an object field holds; null where the field holds the object itself.
    struct HostObject* (*resolve)(void* held) = nullptr;
};

/// A class of the process. `present` is false for a class that the process lacks: it then cannot be found by name.
struct HostClass {
    using Implementation = void (*)();

    std::string name;
    HostClass* superclass = nullptr;
    bool present = true;
    std::map<const HostSelector*, Implementation> methods;
    /// Of the class itself; there is no class object here, so they are called with a null receiver.
    std::map<const HostSelector*, Implementation> classMethods;
    std::vector<HostField> fields;
    /// Makes a bare object of the kind that instances are; null: as the superclass does.
    struct HostObject* (*make)() = nullptr;

    // Of a class that was registered at run time: its block of instance variables.
    bool isRegistered = false;
    std::size_t instanceSize = 0;
    void (*construct)(void* memory) = nullptr;
    void (*destroy)(struct HostObject* self, void* memory) = nullptr;

    /// The implementation that an instance would run, inherited ones included; null if there is none.
    Implementation find(const HostSelector* selector) const;
    bool inheritsFrom(std::string_view className) const;
};

/// Any object of the process, counted by hand, on any thread. Made by sim::ClassTable only.
struct HostObject {
    HostClass* isa = nullptr;
    std::size_t references = 1;
    /// Set while its dealloc runs: counting it then neither saves nor frees it a second time.
    bool isDeallocating = false;
    /// The instance variables of the most derived class that was registered at run time; else null. A host that has
    /// another object for this one keeps that here, and its deleter hears of this object's end.
    std::shared_ptr<std::byte[]> instanceVariables;
    /// The name that traces call it by, once it has one.
    std::string name;

    HostObject() = default;
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;
    virtual ~HostObject() = default;
};

namespace sim {

const HostSelector* selector(std::string_view name);

/// A function with the host's signature as a method table keeps it.
template <typename Function> HostClass::Implementation implementation(Function* function)
{
    return reinterpret_cast<HostClass::Implementation>(function);
}

// Counting, for whoever holds an object. Null: nothing happens; nor does anything once the process has ended.
void retain(HostObject* object);
void release(HostObject* object);

/// Calls a method's implementation with its true type. Null answers Result().
template <typename Result, typename... Arguments>
Result call(
    HostClass::Implementation implementation, HostObject* self, const HostSelector* name, Arguments... arguments)
{
    if (implementation == nullptr)
        return Result();
    using Method = Result (*)(HostObject*, const HostSelector*, Arguments...);
    return reinterpret_cast<Method>(implementation)(self, name, arguments...);
}

/// Sends a message: finds the implementation and calls it with its true type. A null receiver or a selector that
/// the class does not know answers Result().
template <typename Result, typename... Arguments>
Result send(HostObject* receiver, const HostSelector* name, Arguments... arguments)
{
    if (receiver == nullptr)
        return Result();
    return call<Result>(receiver->isa->find(name), receiver, name, arguments...);
}

} // namespace sim
} // namespace panotra
