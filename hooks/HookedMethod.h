/// Entries of hooked methods: the one way by which the host enters the library instead of a method of its own.
///
/// A home screen calls some of these methods from queues of its own, while everything of ours lives on the main
/// thread. So no hook is installed bare: what the host calls is its entry. On the main thread the entry
/// calls the hook and nothing else. On any other thread a hook without an answer runs on the main queue, whole, the
/// previous implementation in its place within it; so the host sees the order that it would see on the main thread. A
/// hook that must answer runs at once: it calls the previous implementation where it is and gives what is ours to
/// `onMainThread`.
///
/// The raise of a previous implementation is its caller's: neither entries nor hooks stand in its way, and neither are
/// they `noexcept`.
#pragma once

#include "hooks/PreviousImplementations.h"
#include "platform/Dispatch.h"
#include "platform/MethodReplacement.h"
#include "platform/NSObject.h"

#include <tuple>
#include <type_traits>
#include <utility>

namespace panotra {

/// What stands in the place of a hooked method.
struct HookEntry {
    IMP implementation;
    IMP callInherited; ///< the class's own method where it only inherits one
    Class* owner; ///< the class that was hooked, null before
    IMP* previous;
};

/// Runs `work` on the main queue, behind what was asked for before. `work` keeps alive what it names: it holds handles,
/// not borrowed objects, and nothing by reference.
template <typename Work> void runOnMainQueue(Work work)
{
    dispatch_async_f(new Work(std::move(work)), [](void* context) {
        const AutoreleasePool pool; // the queue promises none
        auto* const kept = static_cast<Work*>(context);
        (*kept)();
        delete kept;
    });
}

/// Runs `work` at once on the main thread, on the main queue from any other one.
template <typename Work> void onMainThread(Work work)
{
    if (isMainThread()) [[likely]]
        work();
    else
        runOnMainQueue(std::move(work));
}

/// An argument of a call that is over: an object is counted, anything else is a value.
template <typename T> struct KeptArgument {
    T kept;
    T get() const noexcept { return kept; }
};
template <> struct KeptArgument<id> {
    explicit KeptArgument(id object) noexcept
        : kept(retained<NSObject>(object))
    {
    }
    id get() const noexcept { return kept.get(); }
    NSObject kept;
};

/// The entry of a hook and of the field that keeps what it replaces. Both have the method's type, or it does not
/// compile.
template <auto Function, auto Field> struct HookedMethod;

template <typename Result, typename... Arguments, Result (*Function)(id, SEL, Arguments...),
    PreviousImplementation<Result(Arguments...)> PreviousImplementations::*Field>
struct HookedMethod<Function, Field> {
    static HookEntry entry() noexcept
    {
        return { reinterpret_cast<IMP>(&enter), reinterpret_cast<IMP>(&callInherited), &owner,
            &(previous.*Field).implementation };
    }

private:
    static inline constinit Class owner = nullptr;

    static Result enter(id self, SEL selector, Arguments... arguments)
    {
        if constexpr (std::is_void_v<Result>) {
            if (!isMainThread()) [[unlikely]] {
                callLater(self, selector, arguments...);
                return;
            }
        }
        return Function(self, selector, arguments...);
    }

    static void callLater(id self, SEL selector, Arguments... arguments)
    {
        static_assert(
            ((std::is_same_v<Arguments, id> || !std::is_pointer_v<Arguments>)&&...), "would point at nothing by then");
        runOnMainQueue([receiver = retained<NSObject>(self), selector,
                           kept = std::tuple(KeptArgument<Arguments> { arguments }...)] {
            std::apply([&](const auto&... each) { Function(receiver.get(), selector, each.get()...); }, kept);
        });
    }

    /// `[super …]`, looked up at every call: whoever hooks the superclass later is still called.
    static Result callInherited(id self, SEL selector, Arguments... arguments)
    {
        const PreviousImplementation<Result(Arguments...)> inherited { inheritedImplementation(owner, selector) };
        return inherited(self, selector, arguments...);
    }
};

} // namespace panotra
