/// Names that are known whatever their capitals.
#pragma once

#include <string>
#include <string_view>

namespace panotra {

/// Only the letters of ASCII have small ones here: what is looked up so has no others. The rest stays.
std::string inSmallLetters(std::string_view text);

} // namespace panotra
