/// The command line of `panotra film`.
#include "simulator/commands/Commands.h"

#include "simulator/Bundle.h"
#include "simulator/film/Film.h"
#include "simulator/scenario/Numbers.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace panotra::sim {

namespace {

/// "WxH", each a whole number of pixels that both kinds of file can hold.
std::optional<FilmSize> parseFilmSize(const std::string& text)
{
    constexpr int smallest = 64;
    constexpr int largest = 4096;
    const auto cross = text.find('x');
    if (cross == text.npos)
        return std::nullopt;
    const auto width = parseInteger<int>(text.substr(0, cross));
    const auto height = parseInteger<int>(text.substr(cross + 1));
    const auto fits = [](const std::optional<int>& side) {
        return side && *side >= smallest && *side <= largest;
    };
    if (!fits(width) || !fits(height))
        return std::nullopt;
    return FilmSize { *width, *height };
}

std::string whyNoSize(const std::string& text)
{
    return parseFilmSize(text) ? "" : "expected WIDTHxHEIGHT in pixels, each from 64 to 4096, as in 360x720";
}

std::string whyNoSpeed(const std::string& text)
{
    constexpr double slowest = 1.0 / 16;
    const auto speed = parseDouble(text);
    return speed && *speed >= slowest && *speed <= 16 ? "" : "expected a number from 0.0625 to 16";
}

struct FilmArguments {
    FilmOptions options;
    std::string size = "360x720";
    bool hasCaptions = false;
};

} // namespace

void addFilmCommand(CLI::App& app, ExitStatus& status, Work<FilmOptions> make)
{
    const auto arguments = std::make_shared<FilmArguments>();
    FilmOptions& options = arguments->options;
    CLI::App* const command = app.add_subcommand("film", "Play a scenario into a picture that moves");
    command->add_option("FILE", options.scenarioFile, "The scenario; - is standard input")->required()->type_name("");
    command->add_option("-o,--output", options.outputFile, "The film to write, FILE.webp or FILE.gif")
        ->type_name("FILE")
        ->required();
    command->add_option("--size", arguments->size, "Its size in pixels")
        ->check(whyNoSize)
        ->type_name("WxH")
        ->capture_default_str();
    command->add_option("--fps", options.look.framesPerSecond, "Its frames a second, 1 to 60")
        ->check(CLI::Range(1, 60))
        ->type_name("N")
        ->capture_default_str();
    command
        ->add_option(
            "--speed", options.look.speed, "How many seconds of the scenario one of the film shows, 1/16 to 16")
        ->check(whyNoSpeed)
        ->type_name("F")
        ->capture_default_str();
    command->add_flag("--captions", arguments->hasCaptions, "Show the scenario's comments below the phone");
    command->add_option("--wallpaper", options.wallpaper, "dusk, dawn or a PNG file")
        ->type_name("FILE.png")
        ->capture_default_str();
    command->add_flag("--force", options.mayOverwrite, "Overwrite the film if it is there already");
    command->footer(
        "The same scenario gives the same film, to the byte. It keeps settings in memory, and its `shot` leaves no "
        "picture.\nWhere standard error is a terminal it tells how far it is.\n\n"
        "Exit status: 0 all went well, 1 an expectation of the scenario failed, 2 the command line or the scenario is "
        "wrong\nand nothing was written, 3 a file or a font could not be read or written.");
    command->callback([arguments, &status, make = std::move(make)] {
        FilmOptions& chosen = arguments->options;
        chosen.look.size = parseFilmSize(arguments->size).value_or(chosen.look.size);
        chosen.look.captions = arguments->hasCaptions ? Captions::Shown : Captions::Hidden;
        chosen.resourceFolder = bundleBesideProgram();
        status = make(chosen);
    });
}

} // namespace panotra::sim
