/// What the reports of a trace are made of: tables of fields, from which their reference is written as well.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/FieldNote.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

/// A field of a report about a `Source`.
template <typename Source> struct ReportField {
    std::string_view name;
    std::string_view meaning; ///< in words for people
    std::string_view example; ///< of its value; each report says in which spelling
    Json (*read)(const Source& source);
};

/// null where there is no value.
template <typename Value> Json orNull(const std::optional<Value>& value)
{
    return value ? Json(*value) : Json();
}

/// Reads a member as it is.
template <auto member, typename Source> Json memberOf(const Source& source)
{
    return source.*member;
}

/// Adds the fields to `report`, in their order.
template <typename Source, std::size_t count>
void addFields(Json& report, const std::array<ReportField<Source>, count>& fields, const Source& source)
{
    for (const auto& field : fields)
        report[std::string(field.name)] = field.read(source);
}

template <typename Source, std::size_t count>
Json reportOf(const std::array<ReportField<Source>, count>& fields, const Source& source)
{
    auto report = Json::object();
    addFields(report, fields, source);
    return report;
}

/// Adds what the reference has to say of the fields; `before` stands before each name.
template <typename Source, std::size_t count>
void addNotes(
    std::vector<FieldNote>& notes, const std::string& before, const std::array<ReportField<Source>, count>& fields)
{
    for (const auto& field : fields)
        notes.push_back({ before + std::string(field.name), std::string(field.meaning), std::string(field.example) });
}

} // namespace panotra::sim
