/// What is well-formed UTF-8 and what is not.
#pragma once

#include <string_view>

namespace panotra::preferences {

/// No overlong forms, no surrogates, nothing above U+10FFFF. NUL is a character like any other.
bool isUtf8(std::string_view text);

} // namespace panotra::preferences
