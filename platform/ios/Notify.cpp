/// Darwin notifications.
#include "platform/Notify.h"

#include "platform/NSString.h"

#include <CoreFoundation/CoreFoundation.h>
#include <array>
#include <cstddef>
#include <notify.h>
#include <utility>

namespace panotra {
namespace {

using Callback = void (*)() noexcept;

/// Observers of the library: twice as many as it has. One more would not be added.
constexpr std::size_t observerLimit = 8;
constinit std::array<Callback, observerLimit> callbacks {};
constinit std::size_t observerCount = 0;

/// What the notification centre calls. It hands over nothing by which one observer could be told from another, since
/// observer and object are null: every observer has a function of its own.
template <std::size_t observer>
void receive(CFNotificationCenterRef, void*, CFStringRef, const void*, CFDictionaryRef) noexcept
{
    const AutoreleasePool pool; // deliveries are not always inside a turn of the run loop that has one
    callbacks[observer]();
}

template <std::size_t... observers>
constexpr std::array<CFNotificationCallback, observerLimit> receiversOf(std::index_sequence<observers...>)
{
    return { receive<observers>... };
}

constexpr auto receivers = receiversOf(std::make_index_sequence<observerLimit>());

constexpr CFNotificationSuspensionBehavior noSuspensionBehaviour = 0;

} // namespace

void notify_register_check(const char* name, std::int32_t* token) noexcept
{
    int registered = 0;
    if (name != nullptr && token != nullptr && ::notify_register_check(name, &registered) == NOTIFY_STATUS_OK)
        *token = registered;
}

std::uint64_t notify_get_state(std::int32_t token) noexcept
{
    std::uint64_t state = 0;
    return ::notify_get_state(token, &state) == NOTIFY_STATUS_OK ? state : 0;
}

void notify_post(const char* name) noexcept
{
    if (name != nullptr)
        ::notify_post(name);
}

void addDarwinObserver(const char* name, void (*callback)() noexcept) noexcept
{
    if (name == nullptr || callback == nullptr || observerCount == observerLimit)
        return;
    const NSString observedName = NSString::stringWithUTF8String(name); // one kind with the notification centre's names
    callbacks[observerCount] = callback;
    CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), nullptr, receivers[observerCount],
        reinterpret_cast<CFStringRef>(observedName.get()), nullptr, noSuspensionBehaviour);
    ++observerCount;
}

} // namespace panotra
