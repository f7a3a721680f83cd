/// What planted sources call: whether a mutant is the chosen one. Included into every source of the planted copy, and
/// into nothing else.
///
/// A process is told by its environment: PANOTRA_MUTANT is the number of the mutant that lives in it, none without;
/// PANOTRA_MUTANTS_REACHED names a file with one byte a mutant, which becomes 1 where a mutant is asked for.
///
/// Nothing here changes what the compiler evaluates: there every mutant is asleep.
#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <sys/mman.h>
#include <sys/stat.h>
#include <type_traits>

namespace mutants {

struct State {
    bool isKnown;
    int chosen;
    unsigned char* reached;
    long size; ///< of `reached`
};

inline constinit State state {};

[[gnu::noinline, gnu::cold]] inline void findOut() noexcept
{
    const char* const chosen = std::getenv("PANOTRA_MUTANT");
    state.chosen = chosen != nullptr ? std::atoi(chosen) : -1;
    if (const char* const name = std::getenv("PANOTRA_MUTANTS_REACHED")) {
        const int file = ::open(name, O_RDWR | O_CLOEXEC);
        struct stat status { };
        if (file >= 0 && ::fstat(file, &status) == 0) {
            void* const bytes = ::mmap(
                nullptr, static_cast<std::size_t>(status.st_size), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
            if (bytes != MAP_FAILED) {
                state.reached = static_cast<unsigned char*>(bytes);
                state.size = status.st_size;
            }
        }
    }
    state.isKnown = true;
}

inline bool isChosen(int mutant) noexcept
{
    if (!state.isKnown)
        findOut();
    if (mutant < state.size)
        state.reached[mutant] = 1;
    return mutant == state.chosen;
}

constexpr bool is(int mutant) noexcept
{
    return !std::is_constant_evaluated() && isChosen(mutant);
}

// Every mutant of an operation is asked for before it is done, so that one that is not reached is known.

template <typename T> constexpr T changed(int next, int zero, T value) noexcept
{
    const bool isNext = is(next);
    const bool isZero = zero >= 0 && is(zero);
    if constexpr (std::is_same_v<T, bool>)
        return isNext != value;
    else if constexpr (std::is_enum_v<T>)
        return isNext ? static_cast<T>(static_cast<long>(value) + 1) : value;
    else
        return isNext ? static_cast<T>(value + 1) : isZero ? T() : value;
}

constexpr const char* text(int empty, const char* value) noexcept
{
    return is(empty) ? "" : value;
}

/// A null to refer to.
template <typename T> const T& noneOf()
{
    static const T none(nullptr);
    return none;
}

/// What is referred to is not copied: a copy of a handle counts, and that can be seen.
template <typename T> constexpr decltype(auto) null(int mutant, const T& value)
{
    return static_cast<const T&>(is(mutant) ? noneOf<T>() : value);
}
template <typename T>
requires(!std::is_reference_v<T>) constexpr T null(int mutant, T&& value)
{
    if (is(mutant))
        return T(nullptr);
    return static_cast<T&&>(value);
}

template <typename T> constexpr auto minus(int mutant, const T& value)
{
    return is(mutant) ? +value : -value;
}

template <typename T> constexpr decltype(auto) increment(int mutant, T& value)
{
    if (is(mutant))
        return --value;
    return ++value;
}
template <typename T> constexpr decltype(auto) decrement(int mutant, T& value)
{
    if (is(mutant))
        return ++value;
    return --value;
}

#define MUTANTS_OPERATION(name, original, other)                                                                       \
    template <typename A, typename B> constexpr auto name(int mutant, const A& a, const B& b)                          \
    {                                                                                                                  \
        return is(mutant) ? static_cast<decltype(a original b)>(a other b) : a original b;                             \
    }
MUTANTS_OPERATION(add, +, -)
MUTANTS_OPERATION(subtract, -, +)
MUTANTS_OPERATION(multiply, *, /)
MUTANTS_OPERATION(divide, /, *)
MUTANTS_OPERATION(remainder, %, *)
MUTANTS_OPERATION(both, &, |)
MUTANTS_OPERATION(either, |, &)
#undef MUTANTS_OPERATION

#define MUTANTS_ASSIGNMENT(name, original, other)                                                                      \
    template <typename A, typename B> constexpr A& name(int mutant, A& a, const B& b)                                  \
    {                                                                                                                  \
        if (is(mutant))                                                                                                \
            a other b;                                                                                                 \
        else                                                                                                           \
            a original b;                                                                                              \
        return a;                                                                                                      \
    }
MUTANTS_ASSIGNMENT(assignSum, +=, -=)
MUTANTS_ASSIGNMENT(assignDifference, -=, +=)
MUTANTS_ASSIGNMENT(assignProduct, *=, /=)
MUTANTS_ASSIGNMENT(assignQuotient, /=, *=)
#undef MUTANTS_ASSIGNMENT

#define MUTANTS_COMPARISON(name, original, boundary, opposite)                                                         \
    template <typename A, typename B> constexpr bool name(int first, int second, const A& a, const B& b)               \
    {                                                                                                                  \
        const bool isBoundary = is(first);                                                                             \
        const bool isOpposite = is(second);                                                                            \
        return isBoundary ? a boundary b : isOpposite ? a opposite b : a original b;                                   \
    }
MUTANTS_COMPARISON(less, <, <=, >=)
MUTANTS_COMPARISON(lessOrEqual, <=, <, >)
MUTANTS_COMPARISON(greater, >, >=, <=)
MUTANTS_COMPARISON(greaterOrEqual, >=, >, <)
#undef MUTANTS_COMPARISON

/// Which statement of a run stands at `place`: its own, or a neighbour's. `swaps[i]` swaps i and i + 1; -1 is none.
constexpr int order(int place, std::initializer_list<int> swaps) noexcept
{
    int result = place;
    int index = 0;
    for (const int swap : swaps) {
        if (swap >= 0 && (index == place || index + 1 == place) && is(swap))
            result = index == place ? place + 1 : place - 1;
        ++index;
    }
    return result;
}

} // namespace mutants
