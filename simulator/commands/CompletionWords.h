/// What a shell may offer for a word of the command line.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace panotra::sim {

struct Completions {
    enum class Kind { Nothing, Words, Files, Folders };

    Kind kind = Kind::Nothing;
    std::vector<std::string> words {};
};

/// For the value of the option, or for the word that stands in its place.
Completions completionsOf(const CLI::Option& option);

/// The options that help shows, in its order.
std::vector<const CLI::Option*> optionsShown(const CLI::App& command);
/// The words of the command that stand by their places.
std::vector<const CLI::Option*> placesOf(const CLI::App& command);
/// The commands of the program.
std::vector<const CLI::App*> commandsShown(const CLI::App& app);

bool takesValue(const CLI::Option& option);
/// "--style", "-o": all its spellings.
std::vector<std::string> spellingsOf(const CLI::Option& option);

} // namespace panotra::sim
