/// Text from outside as a person is shown it: on one line, and nothing in it drives a terminal.
#pragma once

#include <string>
#include <string_view>

namespace panotra {

/// Control characters, line ends and whatever is not UTF-8 become escapes by the byte: \x1b. The rest stays.
std::string printable(std::string_view text);

/// In double quotes, with what cannot be printed on one line escaped as in JSON. What is not UTF-8 becomes U+FFFD.
std::string inQuotes(std::string_view text);

} // namespace panotra
