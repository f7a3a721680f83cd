/// What only the doctor asks of the process. Whatever is missing answers null, zero or false. Any thread.
#pragma once

#include "platform/NSString.h"

#include <cstddef>
#include <string>
#include <vector>

namespace panotra::doctor {

/// "12.4.1".
NSString systemVersion() noexcept;

// What the runtime says of a class. It may ask the class about a method that it does not find; a raise inside that
// counts as "not there".

bool hasClass(const char* className) noexcept;
/// The runtime's code of a method that the class has or inherits, of its objects or its own; null where it has none.
const char* typeOfMethod(const char* className, const char* method, bool isOfClass) noexcept;
/// The same of an instance variable.
const char* typeOfVariable(const char* className, const char* variable) noexcept;

/// The names of the methods that the class's own objects have of its own, in the alphabet's order.
std::vector<std::string> namesOfOwnMethods(const char* className);

/// A method that a class has of its own, to be exchanged.
struct OwnMethod;
/// Null for one that is inherited or missing.
OwnMethod* ownMethod(const char* className, const char* method) noexcept;
IMP implementationOf(OwnMethod* method) noexcept;
/// Answers the implementation that was there.
IMP setImplementation(OwnMethod* method, IMP implementation) noexcept;

/// The scenes of the process; null where there are none.
NSObject connectedScenes() noexcept;
/// Whether a scene belongs to the main screen.
bool isOfMainScreen(const NSObject& scene) noexcept;
NSObject objectAt(const NSObject& list, std::size_t index) noexcept;

/// All keys of a dictionary, in its order.
NSObject keysOf(const NSDictionary& dictionary) noexcept;
std::size_t countOf(const NSObject& list) noexcept;
/// Null for what is no string.
NSString stringAt(const NSObject& list, std::size_t index) noexcept;

/// "NSString", "NSNumber" or "NSDictionary" for what the mixer could read, else the name of the object's own class.
const char* kindOf(const NSObject& value) noexcept;

} // namespace panotra::doctor
