/// What the command line takes, written as functions of two shells.
#include "simulator/commands/Manual.h"

#include "simulator/commands/CompletionWords.h"

#include <string_view>

namespace panotra::sim {

namespace {

std::string joined(const std::vector<std::string>& words, std::string_view between)
{
    std::string text;
    for (const auto& word : words)
        text += (text.empty() ? std::string() : std::string(between)) + word;
    return text;
}

std::vector<std::string> commandNames(const CLI::App& app)
{
    std::vector<std::string> names;
    for (const auto* const command : commandsShown(app))
        names.push_back(command->get_name());
    return names;
}

std::vector<std::string> allSpellings(const CLI::App& command)
{
    std::vector<std::string> spellings;
    for (const auto* const option : optionsShown(command)) {
        for (const auto& spelling : spellingsOf(*option))
            spellings.push_back(spelling);
    }
    return spellings;
}

// --- bash

/// What the functions below are told to offer.
std::string bashOffer(const Completions& completions)
{
    switch (completions.kind) {
    case Completions::Kind::Words:
        return "_panotra_words '" + joined(completions.words, " ") + "'";
    case Completions::Kind::Files:
        return "_panotra_files -f";
    case Completions::Kind::Folders:
        return "_panotra_files -d";
    case Completions::Kind::Nothing:
        break;
    }
    return "true";
}

/// A row of a shell's `case`.
std::string bashRow(const std::string& pattern, const std::string& order)
{
    return "    " + pattern + ") " + order + " ;;\n";
}

/// "play:--prefs | play:-p"
std::string bashPattern(const CLI::App& command, const std::vector<std::string>& words)
{
    std::vector<std::string> patterns;
    for (const auto& word : words)
        patterns.push_back(command.get_name() + ':' + word);
    return joined(patterns, " | ");
}

std::string bashRows(const CLI::App& app, std::string (*rowOf)(const CLI::App& command, const CLI::Option& option))
{
    std::string rows;
    for (const auto* const command : commandsShown(app)) {
        for (const auto* const option : optionsShown(*command)) {
            if (takesValue(*option))
                rows += rowOf(*command, *option);
        }
    }
    return rows;
}

std::string bashPlaces(const CLI::App& app)
{
    auto rows = bashRow(":0", "_panotra_words '" + joined(commandNames(app), " ") + "'");
    for (const auto* const command : commandsShown(app)) {
        std::size_t number = 0;
        for (const auto* const place : placesOf(*command))
            rows += bashRow(command->get_name() + ':' + std::to_string(number++), bashOffer(completionsOf(*place)));
    }
    return rows;
}

std::string bashOptions(const CLI::App& app)
{
    auto rows = bashRow("''", "_panotra_words '" + joined(allSpellings(app), " ") + "'");
    for (const auto* const command : commandsShown(app))
        rows += bashRow(command->get_name(), "_panotra_words '" + joined(allSpellings(*command), " ") + "'");
    return rows;
}

constexpr std::string_view bashHelpers = R"(# Completion of panotra for bash.

# Words that go on from what was typed; behind a comma another one begins.
_panotra_words()
{
    local before=
    [[ $current != *,* ]] || before=${current%,*},
    mapfile -t COMPREPLY < <(compgen -P "$before" -W "$1" -- "${current##*,}")
}

# Files (-f) or folders (-d).
_panotra_files()
{
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$current")
}

_panotra()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command= place=0 skips= index word
    COMPREPLY=()
    # --option=value comes as three words.
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = && $COMP_CWORD -gt 1 ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for ((index = 1; index < COMP_CWORD; index++)); do
        word=${COMP_WORDS[index]}
        if [[ -n $skips ]]; then
            [[ $word == = ]] || skips=
            continue
        fi
        case $command:$word in
    :-*) ;;
    :*) command=$word ;;
)";

// --- zsh

/// In single quotes, and safe where the shell's function looks for brackets and colons.
std::string zshText(std::string_view text)
{
    std::string safe;
    for (const char letter : text) {
        if (letter == '\'')
            safe += "'\\''";
        else if (letter == '[' || letter == ']' || letter == ':' || letter == '\\')
            safe += std::string("\\") + letter;
        else
            safe += letter;
    }
    return safe;
}

std::string zshOffer(const CLI::Option& option)
{
    const auto completions = completionsOf(option);
    switch (completions.kind) {
    case Completions::Kind::Words:
        // What is a list by its name takes several, with commas between.
        if (option.get_type_name().find(",...") != std::string::npos)
            return "_values -s , word " + joined(completions.words, " ");
        return '(' + joined(completions.words, " ") + ')';
    case Completions::Kind::Files:
        return "_files";
    case Completions::Kind::Folders:
        return "_files -/";
    case Completions::Kind::Nothing:
        break;
    }
    return " ";
}

/// A row a spelling: "'--style[…]:STYLE:(panel banner)'".
std::string zshOption(const CLI::Option& option)
{
    std::string rows;
    for (const auto& spelling : spellingsOf(option)) {
        rows += " \\\n            '" + spelling + '[' + zshText(option.get_description()) + ']';
        if (takesValue(option))
            rows += ":value:" + zshOffer(option);
        rows += "'";
    }
    return rows;
}

std::string zshOptions(const CLI::App& command)
{
    std::string rows;
    for (const auto* const option : optionsShown(command))
        rows += zshOption(*option);
    return rows;
}

std::string zshPlaces(const CLI::App& command)
{
    std::string rows;
    for (const auto* const place : placesOf(command))
        rows += " \\\n            ':" + zshText(place->get_name()) + ':' + zshOffer(*place) + "'";
    return rows;
}

} // namespace

std::string bashCompletion(const CLI::App& app)
{
    auto text = std::string(bashHelpers);
    text += bashRows(app, [](const CLI::App& command, const CLI::Option& option) {
        return bashRow(bashPattern(command, spellingsOf(option)), "skips=yes");
    });
    text += bashRow("*:-?*", "");
    text += bashRow("*", "place=$((place + 1))");
    text += "        esac\n    done\n    case $command:$previous in\n";
    text += bashRows(app, [](const CLI::App& command, const CLI::Option& option) {
        return bashRow(bashPattern(command, spellingsOf(option)), bashOffer(completionsOf(option)) + "; return");
    });
    text += "    esac\n    if [[ $current == -* ]]; then\n        case $command in\n" + bashOptions(app);
    text += "        esac\n        return\n    fi\n    case $command:$place in\n" + bashPlaces(app);
    return text + "    esac\n}\n\ncomplete -F _panotra panotra\n";
}

std::string zshCompletion(const CLI::App& app)
{
    std::string text = "#compdef panotra\n# Completion of panotra for zsh.\n\n_panotra()\n{\n"
                       "    local context state line curcontext=$curcontext\n    typeset -A opt_args\n"
                       "    _arguments -C"
        + zshOptions(app)
        + " \\\n            '1:command:->command' '*::word:->word'\n    case $state in\n    command)\n"
          "        local -a commands=(";
    for (const auto* const command : commandsShown(app))
        text += "\n            '" + command->get_name() + ':' + zshText(command->get_description()) + "'";
    text += "\n        )\n        _describe command commands\n        ;;\n    word)\n        case $words[1] in\n";
    for (const auto* const command : commandsShown(app)) {
        text += "        " + command->get_name() + ")\n            _arguments" + zshOptions(*command)
            + zshPlaces(*command) + "\n            ;;\n";
    }
    return text + "        esac\n        ;;\n    esac\n}\n\n_panotra \"$@\"\n";
}

} // namespace panotra::sim
