/// The events that a person asked for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

class EventFilter {
public:
    /// Takes the names of events, with commas between. Answers what is wrong with the first that is none, "found …,
    /// expected …"; nothing if all are well.
    std::string add(std::string_view names);

    /// Whether nobody asked for anything in particular.
    bool takesAll() const { return m_names.empty(); }
    bool takes(std::string_view event) const;
    /// Whether any of the events is asked for.
    bool takesOneOf(const std::vector<std::string_view>& events) const;

private:
    std::vector<std::string> m_names;
};

} // namespace panotra::sim
