/// The small objects that come and go between programs and the host: strings, numbers, dictionaries, events.
#pragma once

#include "simulator/device/Device.h"

#include <nlohmann/json.hpp>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace panotra::sim {

struct String : HostObject {
    std::string text; ///< UTF-8
    explicit String(std::string utf8)
        : text(std::move(utf8))
    {
    }
};

/// The text of a string object; null for null and for any other kind of object.
const std::string* textOf(const HostObject* object);

/// A number or a boolean, which stays one.
struct Number : HostObject {
    Json value;
    explicit Number(Json number)
        : value(std::move(number))
    {
    }
};

struct Dictionary : HostObject {
    std::map<std::string, HostObject*> entries; ///< counted
    ~Dictionary() override;
    /// Takes over the caller's count.
    void adopt(const std::string& key, HostObject* value) { entries[key] = value; }
    /// Null where the key is absent. Borrowed.
    HostObject* objectForKey(const std::string& key) const;
};

/// Objects, each once.
struct Set : HostObject {
    std::vector<HostObject*> members; ///< counted
    ~Set() override;
    void add(HostObject* member);
};

struct Data : HostObject {
    std::string bytes;
    explicit Data(std::string contents)
        : bytes(std::move(contents))
    {
    }
};

struct Bundle : HostObject {
    std::optional<std::string> identifier;
    explicit Bundle(std::optional<std::string> bundleIdentifier = std::nullopt)
        : identifier(std::move(bundleIdentifier))
    {
    }
};

struct Event : HostObject {
    std::int64_t type; ///< the platform's number: 0 touches, 1 motion
    explicit Event(std::int64_t eventType)
        : type(eventType)
    {
    }
};

/// A sound with a type. Sounds without one are plain objects.
struct Sound : HostObject {
    std::int64_t type;
    explicit Sound(std::int64_t soundType)
        : type(soundType)
    {
    }
};

/// A gesture on its way to a listener.
struct GestureEvent : HostObject {
    std::string listener;
    explicit GestureEvent(std::string listenerName)
        : listener(std::move(listenerName))
    {
    }
};

/// A new string object that the autorelease pool owns.
String* autoreleasedString(const std::string& text);

} // namespace panotra::sim
