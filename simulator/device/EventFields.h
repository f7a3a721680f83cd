/// The fields of an event, put together in order, without the detour of a list of lists.
#pragma once

#include "simulator/device/Device.h"

#include <nlohmann/json.hpp>

#include <string_view>
#include <utility>

namespace panotra::sim {

namespace detail {

inline void addFields(Json::object_t&) { }

template <typename Value, typename... Others>
void addFields(Json::object_t& fields, std::string_view name, Value&& value, Others&&... others)
{
    fields.emplace_back(name, std::forward<Value>(value));
    addFields(fields, std::forward<Others>(others)...);
}

} // namespace detail

/// eventFields("name", value, "other name", value…), no name twice.
template <typename... NamesAndValues> Json eventFields(NamesAndValues&&... namesAndValues)
{
    Json::object_t fields;
    fields.reserve(sizeof...(namesAndValues) / 2);
    detail::addFields(fields, std::forward<NamesAndValues>(namesAndValues)...);
    return fields;
}

} // namespace panotra::sim
