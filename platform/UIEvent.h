/// UIEvent and the sounds of the home screen: what hooks receive and must ask the kind of.
#pragma once

#include "platform/NSObject.h"

namespace panotra {

/// UIEventTypeMotion: the platform's value.
inline constexpr std::int64_t UIEventTypeMotion = 1;

class UIEvent : public NSObject {
public:
    using NSObject::NSObject;

    std::int64_t type() const noexcept;
};

/// A sound about to be played. Not every kind has a type: ask `respondsToSelector("soundType")` first.
class SBSound : public NSObject {
public:
    using NSObject::NSObject;

    std::int64_t soundType() const noexcept;
};

} // namespace panotra
