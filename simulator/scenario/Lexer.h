/// Lines and words of a scenario.
///
/// Words are separated by spaces and tabs; a part in double quotes may stand anywhere in a word and hold blanks,
/// `#`, `\"` and `\\`; `#` outside quotes starts a comment.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

struct Word {
    std::string text;
    /// Whether any part of it stood in quotes, which keeps `"nil"` a name.
    bool quoted = false;
};

struct Line {
    std::size_t number; ///< from 1
    std::string_view source; ///< as written, in the text that was read; no blanks around it
    std::vector<Word> words; ///< at least one, unless there is a mistake
    /// The comments above it since the last such line, as written; empty for an empty line between them.
    std::vector<std::string_view> remarks;
    std::optional<std::string> mistake; ///< "found …, expected …"
};

/// The lines of `text` that hold words or a mistake. `text` must outlive them.
std::vector<Line> readLines(std::string_view text);

/// The comment behind the words of a line as written, its hash mark included; empty if there is none.
std::string_view commentIn(std::string_view source);

/// The word that is read as `text`, in quotes where it needs them, or always. No word is read as a text with a line end
/// in it.
std::string asWord(std::string_view text);
std::string asQuotedWord(std::string_view text);

} // namespace panotra::sim
