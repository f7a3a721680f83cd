/// What the reference of the trace tells of a field.
#pragma once

#include <string>

namespace panotra::sim {

struct FieldNote {
    std::string path; ///< with capitals for what varies
    std::string meaning;
    std::string example;
};

} // namespace panotra::sim
