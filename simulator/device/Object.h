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
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace panotra {

/// A method name, interned: equal names are the same object for the life of the program.
struct HostSelector {
    std::string name;
};

/// A field of a class that was registered at run time, readable by key. `encoding` is "@", "B", "f", "d" or "q".
struct HostField {
    std::string name;
    char encoding;
    std::size_t offset;
};

/// A class of the process. `present` is false for a class that the process lacks: it then cannot be found by name.
struct HostClass {
    using Implementation = void (*)();

    std::string name;
    HostClass* superclass = nullptr;
    bool present = true;
    std::map<const HostSelector*, Implementation> methods;
    std::vector<HostField> fields;
    std::size_t instanceSize = 0;
    void (*construct)(void* memory) = nullptr;
    void (*destroy)(struct HostObject* self, void* memory) = nullptr;

    /// The implementation that an instance would run, inherited ones included; null if there is none.
    Implementation find(const HostSelector* selector) const;
    bool inheritsFrom(std::string_view className) const;
};

/// Any object of the process, counted by hand. Made by sim::Device only.
struct HostObject {
    HostClass* isa = nullptr;
    std::size_t references = 1;
    /// The instance variables of the most derived class that was registered at run time; else null.
    std::unique_ptr<std::byte[]> instanceVariables;
    /// The name that traces call it by, once it has one.
    std::string name;

    HostObject() = default;
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;
    virtual ~HostObject() = default;
};

namespace sim {

const HostSelector* selector(std::string_view name);

/// Sends a message: finds the implementation and calls it with its true type. A null receiver or a selector that
/// the class does not know answers Result().
template <typename Result, typename... Arguments>
Result send(HostObject* receiver, const HostSelector* name, Arguments... arguments)
{
    if (receiver == nullptr)
        return Result();
    const auto implementation = receiver->isa->find(name);
    if (implementation == nullptr)
        return Result();
    return reinterpret_cast<Result (*)(HostObject*, const HostSelector*, Arguments...)>(implementation)(
        receiver, name, arguments...);
}

} // namespace sim
} // namespace panotra
