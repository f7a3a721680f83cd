/// What is well-formed UTF-8 and what is not: no overlong forms, no surrogates, nothing above U+10FFFF. NUL is a
/// character like any other.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace panotra {

/// How many bytes the character at the beginning of the text, which is not empty, has; 0 if there is none.
std::size_t lengthOfCharacter(std::string_view text);

/// Where the first byte stands that is not part of a character; none if all are.
std::optional<std::size_t> firstMalformedByte(std::string_view text);

inline bool isUtf8(std::string_view text)
{
    return !firstMalformedByte(text);
}

} // namespace panotra
