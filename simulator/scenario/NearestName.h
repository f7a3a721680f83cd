/// The right name for a misspelt one: of a command, an option, a path.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace panotra::sim {

/// How many letters must be put in, left out or exchanged to make `name` of `word`; a capital counts as its small
/// letter. None where so many differ that they are different words.
std::optional<std::size_t> misspelling(std::string_view word, std::string_view name);

/// " (did you mean NAME?)" with the nearest of the names, or nothing where none is near.
std::string didYouMean(std::string_view word, std::span<const std::string_view> names);

} // namespace panotra::sim
