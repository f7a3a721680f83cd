/// The command `panotra prefs`: another process that looks at the settings and changes them.
#pragma once

#include "simulator/ExitStatus.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace panotra::preferences {

enum class PrefsAction { List, Get, Set, Unset };

/// `panotra prefs ACTION [--prefs FOLDER] DOMAIN [KEY [TYPE VALUE]]` as it was typed.
struct PrefsRequest {
    PrefsAction action = PrefsAction::List;
    std::optional<std::string> folder; ///< none: the default folder
    std::string domain;
    std::optional<std::string> key;
    std::optional<std::string> type;
    std::optional<std::string> value;
    bool isForTerminal = false; ///< what is printed is read by a person, from a terminal
};

/// `list` prints a line `KEY TYPE VALUE` for each key, strings, and keys with blanks, in double quotes; `get` prints
/// the value alone, in quotes only if a terminal is to get control characters. A value that is no number, boolean or
/// string is listed as `other` and cannot be got. What went wrong is one line
/// on `errors`, and so is advice about what `set` has stored.
sim::ExitStatus runPrefsCommand(const PrefsRequest& request, std::ostream& output, std::ostream& errors);

} // namespace panotra::preferences
