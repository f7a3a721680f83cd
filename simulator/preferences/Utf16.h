/// Text of 16-bit units, the higher byte first, as binary property lists hold it.
#pragma once

#include <string>
#include <string_view>

namespace panotra::preferences {

/// Answers false, and leaves any text, if a surrogate stands without its pair. `bytes`: an even number.
bool fromUtf16(std::string_view bytes, std::string& utf8);

/// `utf8`: well-formed.
std::string toUtf16(std::string_view utf8);

} // namespace panotra::preferences
