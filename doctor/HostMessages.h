/// The messages that only the doctor sends. Whatever is missing answers null, zero or false. Any thread.
#pragma once

#include "platform/NSString.h"

#include <cstddef>

namespace panotra::doctor {

/// "12.4.1".
NSString systemVersion() noexcept;
bool isOnMainThread() noexcept;

/// From now on `observer` is sent `observe:` with notifications of that name, null for any, that are posted in the name
/// of `object`, null for anybody's.
void addObserver(const NSObject& observer, const char* name, const NSObject& object) noexcept;
/// From now on it is sent none.
void removeObserver(const NSObject& observer) noexcept;

NSString nameOfNotification(const NSObject& notification) noexcept;
NSDictionary contentsOfNotification(const NSObject& notification) noexcept;

/// All keys of a dictionary, in its order.
NSObject keysOf(const NSDictionary& dictionary) noexcept;
std::size_t countOf(const NSObject& list) noexcept;
/// Null for what is no string.
NSString stringAt(const NSObject& list, std::size_t index) noexcept;

/// "NSString", "NSNumber" or "NSDictionary" for what the mixer could read, else the name of the object's own class.
const char* kindOf(const NSObject& value) noexcept;

} // namespace panotra::doctor
