/// Whether two traces tell the same story, and where they first differ.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace panotra::testing {

/// Compares traces of JSON Lines: the same events in the same order with the same fields, the order of fields aside;
/// numbers within 1e-6, absolute or relative; null only with null. In an `answer` the expected value "PNG" stands for
/// any positive number of bytes.
///
/// Answers nothing if they agree, else the first difference: "line 3 (hit), view: expected null, found "_window"".
std::optional<std::string> firstDifference(std::string_view expected, std::string_view actual);

} // namespace panotra::testing
