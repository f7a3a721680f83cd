/// The host's plain services: audio, Darwin notifications, the screen, fingers and the table of classes.
#pragma once

#include "simulator/device/Device.h"

#include <map>
#include <utility>
#include <vector>

namespace panotra::sim {

/// Levels by category, the active route and category. A category without a level reads as 0.
class AudioService {
public:
    std::vector<std::pair<std::string, float>> levels; ///< in the order first stored; the six known ones at 0.5
    std::optional<std::string> route = "Speaker";
    std::string activeCategory = "Audio/Video";
    bool echo = false;

    AudioService();
    float level(const std::string& category) const;
    bool hasLevel(const std::string& category) const;
    void store(const std::string& category, float level);
};

/// Names, states, tokens and observers.
class DarwinNotifications {
public:
    explicit DarwinNotifications(Device& device);

    void setState(const std::string& name, std::uint64_t state);
    std::uint64_t state(const std::string& name) const;
    /// Tokens count from 1. Traced as `register`.
    std::int32_t registerCheck(const std::string& name);
    std::uint64_t stateOf(std::int32_t token) const;
    /// Traced as `observe`.
    void addObserver(const std::string& name, void (*callback)());
    /// Calls the observers in this process; leaves no event of its own.
    void deliver(const std::string& name);
    /// `notify_post`. Traced as `post`, then delivered.
    void post(const std::string& name);

private:
    Device& m_device;
    std::map<std::string, std::uint64_t> m_states;
    std::vector<std::string> m_tokens;
    std::vector<std::pair<std::string, void (*)()>> m_observers;
};

/// The screen and what surrounds the mixer on it.
class Screen {
public:
    double width = 375; ///< points, upright
    double height = 667;
    double scale = 2; ///< pixels a point
    bool hasRealDisplayBounds = true; ///< false: only `_referenceBounds`
    std::int64_t orientation = 1;
    bool statusBarHidden = false;
    std::optional<std::pair<double, double>> statusBarCenter; ///< none: half the width as now seen, 10

    /// Width and height in points as the interface orientation sees them.
    std::pair<double, double> currentSize() const;
    std::pair<double, double> currentStatusBarCenter() const;
};

/// One finger on the mixer's window, in screen coordinates.
class Touches {
public:
    explicit Touches(Device& device);
    ~Touches();

    /// Hit-tests the mixer's window; traced as `hit`.
    void down(double x, double y);
    void move(double x, double y);
    void up();

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

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
