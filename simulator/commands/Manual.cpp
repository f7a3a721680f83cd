/// The manual page: names, options and footers of the command line, set as the formatter wants them.
#include "simulator/commands/Manual.h"

#include "simulator/commands/CompletionWords.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <string_view>
#include <utility>

namespace panotra::sim {

namespace {

/// Text that the formatter takes as it is: a backslash begins its orders, a point or quote at the beginning of a line
/// too, and a minus sign would become a hyphen, which nobody can copy.
std::string plainText(std::string_view text)
{
    std::string plain;
    bool isAtStart = true;
    for (const char letter : text) {
        if (isAtStart && (letter == '.' || letter == '\''))
            plain += "\\&";
        if (letter == '\\')
            plain += "\\e";
        else if (letter == '-')
            plain += "\\-";
        else
            plain += letter;
        isAtStart = letter == '\n';
    }
    return plain;
}

std::string bold(std::string_view text)
{
    return "\\fB" + plainText(text) + "\\fR";
}

/// "FILE" in italics, "required" where it is.
std::string valueText(std::string_view value)
{
    return "\\fI" + plainText(value) + "\\fR";
}

std::string nameOfValue(const CLI::Option& option)
{
    // What checks it stands behind a colon, for help.
    const auto name = option.get_type_name();
    return name.substr(0, name.find(':'));
}

std::string optionText(const CLI::Option& option)
{
    std::string text = ".TP\n";
    bool isFirst = true;
    for (const auto& spelling : spellingsOf(option)) {
        text += (isFirst ? "" : ", ") + bold(spelling);
        isFirst = false;
    }
    if (takesValue(option))
        text += ' ' + valueText(nameOfValue(option));
    text += '\n' + plainText(option.get_description());
    if (!option.get_default_str().empty())
        text += plainText(" (default " + option.get_default_str() + ')');
    return text + '\n';
}

std::string optionTexts(const CLI::App& command)
{
    std::string text;
    for (const auto* const option : optionsShown(command))
        text += optionText(*option);
    return text;
}

std::string placeTexts(const CLI::App& command)
{
    std::string text;
    for (const auto* const place : placesOf(command))
        text += ".TP\n" + valueText(place->get_name()) + '\n' + plainText(place->get_description()) + '\n';
    return text;
}

/// A footer's lines; an empty one parts paragraphs.
std::string paragraphs(std::string_view text)
{
    std::string lines = ".PP\n";
    while (!text.empty()) {
        const auto line = text.substr(0, text.find('\n'));
        lines += line.empty() ? ".PP\n" : plainText(line) + '\n';
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    return lines;
}

std::string synopsisOf(const CLI::App& app, const CLI::App& command)
{
    auto text = ".PP\n" + bold(app.get_name()) + ' ' + bold(command.get_name()) + " [\\fIOPTION\\fR]...";
    for (const auto* const place : placesOf(command)) {
        const bool isRequired = place->get_required();
        text += (isRequired ? " " : " [") + valueText(place->get_name()) + (isRequired ? "" : "]");
    }
    return text + '\n';
}

constexpr std::string_view surroundings = R"(.SH ENVIRONMENT
.TP
\fBCOLUMNS\fR
How wide text may be where standard output is no terminal; 80 without it.
.TP
\fBNO_COLOR\fR
If it is set and not empty, no text has colours.
.TP
\fBXDG_DATA_HOME\fR
Where the folder of the property lists is kept; ~/.local/share without it.
.TP
\fBXDG_RUNTIME_DIR\fR
The folder of the session, in which \fBpanotra desktop\fR is found by a second one.
.TP
\fBXDG_STATE_HOME\fR
Where the place of the window is kept; ~/.local/state without it.
.SH FILES
.TP
\fI~/.local/share/panotra/preferences\fR
The property lists of settings and remembered levels, a file a domain.
.TP
\fI~/.local/state/panotra/window\fR
Where the window of \fBpanotra window\fR stood when it was closed last, and how large it was.
.SH EXAMPLES
.TP
\fBpanotra play examples/headphones.scenario\fR
A day in the life of the mixer, in words.
.TP
\fBpanotra picture \-\-style banner \-\-skin dark \-o banner.png\fR
A picture of the banner.
.TP
\fBpanotra prefs set net.qorvath.panotra mixerSkin int 3\fR
What the settings page does for the black skin.
)";

} // namespace

std::string manualPage(const CLI::App& app, const std::string& version)
{
    const auto& name = app.get_name();
    auto text = ".TH PANOTRA 1 \"\" \"panotra " + plainText(version) + "\" \"User Commands\"\n.SH NAME\n"
        + plainText(name) + " \\- a volume mixer for the home screen, on a simulated device\n.SH SYNOPSIS\n";
    for (const auto* const command : commandsShown(app))
        text += synopsisOf(app, *command);
    text += ".SH DESCRIPTION\n" + plainText(app.get_description()) + "\n.SH OPTIONS\n" + optionTexts(app)
        + ".SH COMMANDS\n";
    for (const auto* const command : commandsShown(app)) {
        text += ".SS " + plainText(name + ' ' + command->get_name()) + '\n' + plainText(command->get_description())
            + ".\n" + placeTexts(*command) + optionTexts(*command);
        if (!command->get_footer().empty())
            text += paragraphs(command->get_footer());
    }
    return text + std::string(surroundings);
}

void addManual(CLI::App& app, const std::string& version)
{
    const auto add = [&app](const char* name, std::function<std::string()> text) {
        const auto print = [text = std::move(text)] {
            std::cout << text();
            throw CLI::Success();
        };
        app.add_flag_callback(name, print)->group("");
    };
    add("--manual", [&app, version] { return manualPage(app, version); });
    add("--completion-bash", [&app] { return bashCompletion(app); });
    add("--completion-zsh", [&app] { return zshCompletion(app); });
}

} // namespace panotra::sim
