/// Text from outside as a person is shown it: on one line, and nothing in it drives a terminal.
#pragma once

#include <string>
#include <string_view>

namespace panotra::preferences {

/// Control characters, line ends and whatever is not UTF-8 become escapes: \x1b. The rest stays.
std::string printable(std::string_view text);

/// In double quotes, with what cannot be printed on one line escaped as in JSON.
std::string inQuotes(std::string_view text);

} // namespace panotra::preferences
