/// How much room text takes on a terminal.
#pragma once

#include <cstddef>
#include <string_view>

namespace panotra {

/// The columns that the text fills: two for a wide character, none for one that joins the character before it. Bytes
/// that are not UTF-8 count one each, as whoever shows them shows at least that.
std::size_t columnsOf(std::string_view text);

/// How many bytes of the text, whole characters, fit into `columns`. At least one character, unless there is none.
std::size_t bytesThatFit(std::string_view text, std::size_t columns);

} // namespace panotra
