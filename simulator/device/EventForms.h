/// What becomes of an event: an object of JSON, or the same at once as the text of a line.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/EventFields.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace panotra::sim {

/// {"t": seconds, "event": name, fields…}
class EventObject final : public EventFields {
public:
    EventObject(const TraceEvent& event, double seconds);

    Json take();

private:
    void begin(std::string_view name) override { m_name = name; }
    void takeNothing() override { m_members.emplace_back(m_name, nullptr); }
    void takeTruth(bool value) override { m_members.emplace_back(m_name, value); }
    void takeInteger(std::int64_t value) override { m_members.emplace_back(m_name, value); }
    void takeUnsigned(std::uint64_t value) override { m_members.emplace_back(m_name, value); }
    void takeNumber(double value) override { m_members.emplace_back(m_name, value); }
    void takeText(std::string_view value) override { m_members.emplace_back(m_name, value); }
    void takeJson(const Json& value) override { m_members.emplace_back(m_name, value); }

    std::string_view m_name;
    Json::object_t m_members;
};

/// What jsonText(object) would be of that object, to the byte, with a line end.
class EventLine final : public EventFields {
public:
    EventLine(const TraceEvent& event, double seconds);

    std::string_view finish();

private:
    void begin(std::string_view name) override;
    void takeNothing() override;
    void takeTruth(bool value) override;
    void takeInteger(std::int64_t value) override;
    void takeUnsigned(std::uint64_t value) override;
    void takeNumber(double value) override;
    void takeText(std::string_view value) override;
    void takeJson(const Json& value) override;

    std::string m_text;
};

/// On one line. Numbers read back as the very same; bytes that are no UTF-8 are replaced.
std::string jsonText(const Json& value);

} // namespace panotra::sim
