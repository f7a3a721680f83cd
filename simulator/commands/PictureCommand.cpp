/// The command line of `panotra picture`.
#include "simulator/commands/Commands.h"

#include "facts/MixerSettings.h"
#include "simulator/Bundle.h"
#include "simulator/commands/NamedOptions.h"
#include "simulator/picture/SinglePicture.h"
#include "simulator/scenario/Numbers.h"
#include "simulator/scenario/TextFormat.h"
#include "simulator/systems/Systems.h"

#include <memory>
#include <string>
#include <utility>

namespace panotra::sim {

namespace {

std::string describe(const MixerSetting& setting)
{
    return std::string("The setting ") + setting.key + ": " + bothSpellings(valuesOf(setting));
}

/// Smaller than a tenth nothing can be made out, larger than twice nothing but gaps may be left on the screen.
std::string whyNoScale(const std::string& text)
{
    const auto scale = parseDouble(text);
    return scale && *scale >= 0.1 && *scale <= 2 ? "" : "expected a number from 0.1 to 2";
}

} // namespace

void addPictureCommand(CLI::App& app, ExitStatus& status, Work<PictureOptions> draw)
{
    const auto options = std::make_shared<PictureOptions>();
    MixerShowing& showing = options->showing;
    constexpr const MixerSetting& style = mixerSetting("activeStyle");
    constexpr const MixerSetting& skin = mixerSetting("mixerSkin");
    CLI::App* const command = app.add_subcommand("picture", "Draw the mixer on the screen of a phone");
    command->add_option("--style", showing.style, describe(style))
        ->transform(named(valuesOf(style)))
        ->type_name("STYLE");
    command->add_option("--skin", showing.skin, describe(skin))->transform(named(valuesOf(skin)))->type_name("SKIN");
    command
        ->add_option("--orientation", showing.orientation,
            "The interface: " + bothSpellings(orientationNames()) + " (default 1)")
        ->transform(named(orientationNames()))
        ->type_name("ORIENTATION");
    command
        ->add_option("--system", options->system,
            "The system whose home screen the phone has, " + std::to_string(systems::oldest) + " to "
                + std::to_string(systems::newest) + "; without it, all of what 10 to 12 have")
        ->transform(named(systemNames()))
        ->type_name("SYSTEM");
    command->add_option("--screen", options->screen, "The screen in points and pixels a point (default 375x667@2)")
        ->type_name("WxH@S");
    command
        ->add_option("--scale", showing.mixerScale,
            "The setting scale, the size of the mixer, 0.1 to 2 (default "
                + shortNumber(mixerSetting("scale").absentValue) + ")")
        ->check(whyNoScale)
        ->type_name("F");
    command
        ->add_option("--level", options->levels,
            "The level, 0 to 1, of a slot: " + bothSpellings(slotNames()) + "; may be repeated")
        ->type_name("SLOT=V")
        ->transform(namedBeforeEquals(slotNames()))
        ->take_all()
        ->expected(1);
    command->add_option("--focus", showing.focusedSlot, "A slot whose slider is held by a finger")
        ->transform(named(slotNames()))
        ->type_name("SLOT");
    command->add_option("--wallpaper", options->wallpaper, "dusk, dawn or a PNG file")
        ->type_name("FILE.png")
        ->capture_default_str();
    command->add_flag("--as-viewed", options->asViewed,
        "Turn the picture as the viewer holds the phone; without it the screen stands as it is built");
    command->add_option("-o,--output", options->outputFile, "The picture to write; - is standard output")
        ->type_name("FILE.png")
        ->required();
    command->footer("Exit status: 0 all went well, 2 the command line is wrong, 3 a file or a font could not be "
                    "read or written.");
    command->callback([options, &status, draw = std::move(draw)] {
        options->resourceFolder = bundleBesideProgram();
        status = draw(*options);
    });
}

} // namespace panotra::sim
