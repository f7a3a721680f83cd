/// NSObject: the counted handle to a host object, base of every handle class of the seam.
///
/// A handle is one pointer wide. A null handle is a value: every operation on it is a defined no-operation that
/// answers zero, false, an empty string or a null handle, as a message to a null object does on the platform.
/// Handles are cheap to copy (one count) and their methods are const: they change the object, not the handle.
#pragma once

#include "platform/Runtime.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

namespace panotra {

class NSObject {
public:
    /// How a handle comes by its count: by taking over one that the caller owns, or by adding its own.
    enum class Ownership { Adopt, Retain };

    constexpr NSObject() noexcept = default;
    constexpr NSObject(std::nullptr_t) noexcept { }
    NSObject(id object, Ownership ownership) noexcept
        : m_object(object)
    {
        if (ownership == Ownership::Retain)
            retain(object);
    }
    NSObject(const NSObject& other) noexcept
        : NSObject(other.m_object, Ownership::Retain)
    {
    }
    NSObject(NSObject&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    NSObject& operator=(NSObject other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~NSObject()
    {
        if (m_object != nullptr) // often known here, and not there
            release(m_object);
    }

    /// The object itself, borrowed.
    id get() const noexcept { return m_object; }
    /// Gives up the handle's count to the caller and leaves the handle null.
    id leak() noexcept { return std::exchange(m_object, nullptr); }
    explicit operator bool() const noexcept { return m_object != nullptr; }
    /// Identity, not `isEqual:`.
    friend bool operator==(const NSObject& a, const NSObject& b) noexcept { return a.m_object == b.m_object; }

    bool isEqual(const NSObject& other) const noexcept;
    bool respondsToSelector(const char* selector) const noexcept;
    /// The value of the field or property `key`, a constant of the program's, with a scalar boxed as a number. Null for
    /// an unknown key: the platform would raise, and nothing here may.
    NSObject valueForKey(const char* key) const noexcept;

    /// The platform's conversions of a foreign value. Numbers and booleans convert; a string gives its leading
    /// decimal number and is true when it begins with Y, y, T, t or a digit 1 to 9 after spaces, an optional sign
    /// and zeros; any other kind of object, and null, gives zero or false. Out of range: truncated toward zero,
    /// then reduced to the width of the type.
    bool boolValue() const noexcept;
    float floatValue() const noexcept;
    double doubleValue() const noexcept;
    std::int64_t integerValue() const noexcept;
    std::uint16_t unsignedShortValue() const noexcept;

    /// Sends `selector` with `object` after `delay` seconds on the main run loop, in the order of due times, then
    /// of asking. Keeps this object and `object` alive until then. A delay of zero or less: at the next turn.
    void performSelector(const char* selector, const NSObject& object, double delay) const noexcept;
    /// Forgets every pending perform with this very target, selector and object.
    static void cancelPreviousPerformRequests(
        const NSObject& target, const char* selector, const NSObject& object) noexcept;

private:
    id m_object = nullptr;
};

/// A handle that takes over the caller's count.
template <typename Handle> Handle adopt(id object) noexcept
{
    return Handle(object, NSObject::Ownership::Adopt);
}

/// A handle that adds a count of its own to a borrowed object.
template <typename Handle> Handle retained(id object) noexcept
{
    return Handle(object, NSObject::Ownership::Retain);
}

/// A counted reference with the life of the process: constant-initialised to null, never released at exit, so
/// that a process-wide value needs neither a static initialiser nor a destructor.
template <typename Handle> class ProcessReference {
public:
    /// Borrowed: it is another object after the next `set`.
    const Handle& get() const noexcept { return *std::launder(reinterpret_cast<const Handle*>(m_handle.data())); }
    void set(Handle handle) noexcept
    {
        static_assert(sizeof(Handle) == sizeof m_handle);
        Handle& held = *std::launder(reinterpret_cast<Handle*>(m_handle.data()));
        held = std::move(handle);
    }
    explicit operator bool() const noexcept { return std::bit_cast<id>(m_handle) != nullptr; }

private:
    /// A handle without its destructor. One of zeros is a null handle.
    alignas(id) std::array<std::byte, sizeof(id)> m_handle {};
};

} // namespace panotra
