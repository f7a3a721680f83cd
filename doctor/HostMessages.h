/// What only the doctor asks of the process. Whatever is missing answers null, zero or false. Any thread.
#pragma once

#include "platform/NSString.h"

#include <cstddef>

namespace panotra::doctor {

/// "12.4.1".
NSString systemVersion() noexcept;
bool isOnMainThread() noexcept;

// What the runtime says of a class. It may ask the class about a method that it does not find; a raise inside that
// counts as "not there".

bool hasClass(const char* className) noexcept;
/// The runtime's code of a method that the class has or inherits, of its objects or its own; null where it has none.
const char* typeOfMethod(const char* className, const char* method, bool isOfClass) noexcept;
/// The same of an instance variable.
const char* typeOfVariable(const char* className, const char* variable) noexcept;

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
