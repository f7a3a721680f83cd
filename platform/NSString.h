/// NSString and the small values that come and go as objects: numbers, dictionaries, data.
#pragma once

#include "platform/NSObject.h"

#include <string_view>

namespace panotra {

class NSString : public NSObject {
public:
    using NSObject::NSObject;

    /// A string object with this UTF-8 text.
    static NSString stringWithUTF8String(const char* text) noexcept;
    /// The same of a text that is a constant of the program's. The host may keep one object for all uses of it: `text`
    /// is known by its place, where nothing else may ever stand.
    static NSString constant(const char* text) noexcept;
    /// `object` itself if it is a string, null if it is anything else: foreign values are suspects.
    static NSString checked(NSObject object) noexcept;

    /// The text as UTF-8, borrowed from the string. Null gives an empty view.
    std::string_view view() const noexcept;
    /// Exact, case-sensitive equality. Null equals nothing.
    bool isEqualToString(std::string_view other) const noexcept { return *this && view() == other; }
};

class NSNumber : public NSObject {
public:
    using NSObject::NSObject;

    static NSNumber numberWithFloat(float value) noexcept;
};

class NSDictionary : public NSObject {
public:
    using NSObject::NSObject;

    /// `object` itself if it is a dictionary, null if it is anything else.
    static NSDictionary checked(NSObject object) noexcept;

    /// Null where the key is absent, and for a null key.
    NSObject objectForKey(const NSString& key) const noexcept;
};

class NSData : public NSObject {
public:
    using NSObject::NSObject;
};

} // namespace panotra
