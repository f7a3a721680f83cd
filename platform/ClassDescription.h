/// Classes of ours in the host's object system.
///
/// The host must see the mixer's classes under their own names, read their fields by key and reach their methods
/// by selector. A description is data: the instance variables in declared order and the methods with their
/// implementations. The C++ object behind a handle is the block of instance variables itself: it lives inside
/// the host object, is constructed when the object is allocated and destroyed with its last reference.
#pragma once

#include "platform/CoreGraphics.h"
#include "platform/NSObject.h"
#include "platform/TypeEncoding.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace panotra {

/// One instance variable. `encoding` is the runtime's type code: "@" object, "B" boolean, "f" float, "d" double.
struct InstanceVariable {
    const char* name;
    const char* encoding;
    std::size_t offset;
    std::size_t size;
    std::size_t alignment;
};

/// One method. `encoding` is the runtime's type code of the whole signature, receiver and selector included.
struct Method {
    const char* selector;
    const char* encoding;
    IMP implementation;
};

struct ClassDescription {
    const char* name;
    const char* superclass;
    std::span<const InstanceVariable> instanceVariables;
    std::span<const Method> methods;
    /// Methods of the class itself, such as `sharedInstance`.
    std::span<const Method> classMethods;
    /// Size of the block of instance variables.
    std::size_t size;
    /// Constructs the block in memory of that size and alignment.
    void (*construct)(void* memory);
    /// `dealloc`: gives up what the object owns, in its own order, and destroys the block. Runs while `self` is
    /// still whole; the superclass's `dealloc` follows.
    void (*destroy)(id self, void* memory);
};

/// A new object of the class, counted once, its superclass not yet initialised. The first use registers the
/// class; registering it twice is impossible. Null where the superclass is missing.
id allocate(const ClassDescription&) noexcept;
/// `[super init]` for an object of the class. May answer another object, or null. Null gives null. The answer is
/// borrowed, and the caller keeps its count of `self` whatever is answered.
id superInit(id self, const ClassDescription&) noexcept;
/// The block of instance variables. Null for null and for an object of any other class.
void* instanceVariables(id object, const ClassDescription&) noexcept;

/// A row of a field table: `offset` is the member's place in the block of instance variables.
template <typename Member> constexpr InstanceVariable instanceVariable(const char* name, std::size_t offset)
{
    return { name, TypeEncoding<Member>::value, offset, sizeof(Member), alignof(Member) };
}

/// The names of members that stand in an array: "_view0", "_view1" and so on. For static tables.
template <std::size_t count> class NumberedNames {
public:
    consteval explicit NumberedNames(std::string_view stem)
    {
        for (std::size_t number = 0; number < count; ++number) {
            std::array<char, longest + 1>& name = m_names[number];
            std::size_t length = 0;
            for (const char character : stem)
                name[length++] = character;
            if (number >= 10)
                name[length++] = static_cast<char>('0' + number / 10);
            name[length] = static_cast<char>('0' + number % 10);
        }
    }
    constexpr const char* operator[](std::size_t number) const { return m_names[number].data(); }

private:
    static_assert(count <= 100, "two digits");
    static constexpr std::size_t longest = 23;

    std::array<std::array<char, longest + 1>, count> m_names {};
};

/// The rows of an array of members, `offset` being the place of the first.
template <typename Member, std::size_t count>
constexpr std::array<InstanceVariable, count> numberedInstanceVariables(
    const NumberedNames<count>& names, std::size_t offset)
{
    std::array<InstanceVariable, count> rows {};
    for (std::size_t number = 0; number < count; ++number)
        rows[number] = instanceVariable<Member>(names[number], offset + number * sizeof(Member));
    return rows;
}

/// One table of several.
template <std::size_t... counts> constexpr auto joined(const std::array<InstanceVariable, counts>&... tables)
{
    std::array<InstanceVariable, (counts + ...)> rows {};
    std::size_t next = 0;
    const auto append = [&](const auto& table) {
        for (const InstanceVariable& row : table)
            rows[next++] = row;
    };
    (append(tables), ...);
    return rows;
}

} // namespace panotra
