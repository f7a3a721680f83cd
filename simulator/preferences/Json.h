/// The name under which values of settings go; who looks into one includes the library of JSON whole.
#pragma once

#include <nlohmann/json_fwd.hpp>

namespace panotra::preferences {

/// Fields keep their order.
using Json = nlohmann::ordered_json;

} // namespace panotra::preferences
