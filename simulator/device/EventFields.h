/// The fields of an event on their way to whoever gets the trace: none of them becomes an object that nobody wants.
#pragma once

#include "simulator/device/TraceEvents.h"

#include <nlohmann/json_fwd.hpp>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace panotra::sim {

class EventFields {
public:
    explicit EventFields(const TraceEvent& event)
        : m_missing(event.fields)
    {
    }
    EventFields(const EventFields&) = delete;
    EventFields& operator=(const EventFields&) = delete;

    /// add("name", value, "other name", value…), in the order of the table of events. A value is a truth, a number, a
    /// text, JSON, or nothing: nullptr, or a null pointer to a text.
    template <typename Value, typename... Others>
    void add(std::string_view name, const Value& value, const Others&... others)
    {
        note(name);
        begin(name);
        if constexpr (std::same_as<Value, bool>)
            takeTruth(value);
        else if constexpr (std::floating_point<Value>)
            takeNumber(value);
        else if constexpr (std::signed_integral<Value>)
            takeInteger(value);
        else if constexpr (std::unsigned_integral<Value>)
            takeUnsigned(value);
        else if constexpr (std::same_as<Value, nlohmann::ordered_json>)
            takeJson(value);
        else if constexpr (std::same_as<Value, std::nullptr_t>)
            takeNothing();
        else if constexpr (std::convertible_to<Value, const std::string*>)
            value == nullptr ? takeNothing() : takeText(*value);
        else
            takeText(value);
        if constexpr (sizeof...(others) > 0)
            add(others...);
    }

protected:
    ~EventFields() = default;
    /// Nothing that the table has is missing. Anything else is a mistake of whoever adds the fields.
    void noteEnd();

private:
    void note(std::string_view name);
    /// The field of that name comes next.
    virtual void begin(std::string_view name) = 0;
    // Its value.
    virtual void takeNothing() = 0;
    virtual void takeTruth(bool value) = 0;
    virtual void takeInteger(std::int64_t value) = 0;
    virtual void takeUnsigned(std::uint64_t value) = 0;
    virtual void takeNumber(double value) = 0;
    virtual void takeText(std::string_view value) = 0;
    virtual void takeJson(const nlohmann::ordered_json& value) = 0;

    std::string_view m_missing; ///< of the table's list, what has not come yet
};

} // namespace panotra::sim
