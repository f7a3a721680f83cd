/// The classes of the process, and its living objects.
#pragma once

#include "simulator/device/Device.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace panotra::sim {

/// Classes by name, classes registered at run time, and every object that lives.
class ClassTable {
public:
    explicit ClassTable(Device& device);
    ~ClassTable();

    /// Null where the class is lacking.
    HostClass* find(std::string_view name);
    /// A class of the platform itself, also where the process lacks it; its own objects need it all the same.
    HostClass& platformClass(std::string_view name);
    /// Makes a class lacking or present. An unknown name is made known as lacking or as an empty class.
    void setPresent(const std::string& name, bool present);
    HostClass& add(const std::string& name, const std::string& superclass);
    /// Replaces a method; traced as `hook`. Answers whether the class has or inherits it.
    bool replace(HostClass& hostClass, const HostSelector* selector, HostClass::Implementation replacement,
        HostClass::Implementation* previous);

    /// A new object of the class, of the kind that it or the nearest superclass makes; with its block of instance
    /// variables if it was registered at run time. Counted once.
    HostObject* instantiate(HostClass& isa);

    void retain(HostObject* object);
    /// The last release runs the class's dealloc and deletes the object.
    void release(HostObject* object);
    HostObject* autorelease(HostObject* object);
    /// A mark in the pool, which is popped with what was autoreleased since.
    std::size_t pushAutoreleasePool() const;
    void popAutoreleasePool(std::size_t mark);
    void drainAutoreleasePool() { popAutoreleasePool(0); }

    /// Takes an object made with `new` into the process: sets its class and counts it among the living.
    void adopt(HostObject* object, HostClass& isa);
    /// A new object of a platform class, counted once.
    template <typename Object, typename... Arguments> Object* make(std::string_view className, Arguments&&... arguments)
    {
        HostClass& isa = platformClass(className);
        auto* object = new Object(std::forward<Arguments>(arguments)...);
        adopt(object, isa);
        return object;
    }
    std::size_t liveObjects() const;
    std::size_t liveObjects(std::string_view className) const; ///< of that class or a subclass
    /// Any living object of that very class, or null.
    HostObject* anyInstance(std::string_view className);
    /// What a living object's field of that name holds, or null; the oldest holder counts.
    HostObject* heldInField(std::string_view field) const;
    /// Names every object after the field that holds it, if it has no name yet. The oldest holder counts.
    void nameHeldObjects();

    // A field by key.

    /// Null for an unknown key and for a scalar.
    HostObject* objectForKey(HostObject* object, std::string_view key) const;
    /// A discarded value for an unknown key and for an object.
    Json scalarForKey(HostObject* object, std::string_view key) const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace panotra::sim
