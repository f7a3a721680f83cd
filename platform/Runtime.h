/// The host's object system: the handles that cross the seam, classes by name, counting and pools.
///
/// Everything under platform/ is called on the host's main thread. Excepted are method replacement, which runs on the
/// thread that loads the library, and what says that it may be called from any thread. Declarations only; a backend is
/// chosen by the list of files linked.
#pragma once

#include <cstdint>

namespace panotra {

struct HostObject;
struct HostSelector;
struct HostClass;

/// A host object as it crosses the seam: borrowed, never counted. Null is a value (see NSObject.h).
using id = HostObject*;
/// A method name as hooks receive it. Only ever handed back to the host.
using SEL = const HostSelector*;
/// A host class. Null where the process lacks it.
using Class = HostClass*;
/// A method's implementation. Cast to its true type, `R (*)(id self, SEL selector, …)`, before it is called.
using IMP = void (*)();
/// As wide as a pointer: most of the platform's integers.
using NSInteger = std::intptr_t;
using NSUInteger = std::uintptr_t;

/// The class called `name`, or null if this process has none.
Class objc_getClass(const char* name) noexcept;

/// Counting, from any thread. Null: nothing happens.
void retain(id object) noexcept;
void release(id object) noexcept;

/// Hands a counted object to the host's autorelease pool and returns it, for methods that answer an object.
/// Null gives null.
id autorelease(id object) noexcept;

/// A pool for what the host autoreleases until the pool is popped, innermost first.
void* objc_autoreleasePoolPush() noexcept;
void objc_autoreleasePoolPop(void* pool) noexcept;

/// A pool for the life of a scope: for entry points around which the host keeps none, such as the load of the library.
class AutoreleasePool {
public:
    AutoreleasePool() noexcept
        : m_pool(objc_autoreleasePoolPush())
    {
    }
    ~AutoreleasePool() { objc_autoreleasePoolPop(m_pool); }
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

private:
    void* m_pool;
};

} // namespace panotra
