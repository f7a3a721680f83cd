/// From options to a picture.
#include "simulator/picture/SinglePicture.h"

#include "simulator/FileClashes.h"
#include "simulator/Files.h"
#include "simulator/device/SystemShape.h"
#include "simulator/picture/LooksOfPhone.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/render/Orientation.h"
#include "simulator/scenario/Numbers.h"
#include "simulator/text/Printable.h"

#include <cstdio>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include <unistd.h>

namespace panotra::sim {

namespace {

constexpr int lastSlot = volumeSlotCount - 1;
constexpr const char* standardOutput = "-";

/// "SLOT=LEVEL", the slot from 0 to the last, the level from 0 to 1.
std::optional<SlotLevel> parseSlotLevel(const std::string& text)
{
    const auto equals = text.find('=');
    if (equals == text.npos)
        return std::nullopt;
    const auto slot = parseInteger<int>(text.substr(0, equals));
    const auto level = parseFloat(text.substr(equals + 1));
    if (!slot || *slot < 0 || *slot > lastSlot || !level || !(*level >= 0 && *level <= 1))
        return std::nullopt;
    return SlotLevel { static_cast<SlotNumber>(*slot), *level };
}

/// Reads the options that are text into what is to be shown. Answers the first mistake, or nothing.
std::optional<std::string> completeShowing(PictureOptions& options)
{
    if (!options.screen.empty()) {
        const auto screen = parseScreen(options.screen);
        if (!screen)
            return "--screen: " + whyNoScreen(options.screen);
        options.showing.screen = *screen;
    }
    for (const std::string& text : options.levels) {
        const auto level = parseSlotLevel(text);
        if (!level)
            return "--level: found " + inQuotes(text) + ", expected SLOT=LEVEL, a slot from 0 to "
                + std::to_string(lastSlot) + " and a level from 0 to 1, as in 7=0.5";
        options.showing.levels.push_back(*level);
    }
    if (options.showing.focusedSlot && (*options.showing.focusedSlot < 0 || *options.showing.focusedSlot > lastSlot))
        return "--focus: found " + std::to_string(*options.showing.focusedSlot) + ", expected a slot from 0 to "
            + std::to_string(lastSlot);
    return std::nullopt;
}

/// What is wrong with the files that were named, or nothing.
std::optional<std::string> clashOf(const PictureOptions& options)
{
    std::vector<NamedFile> files { { "--output",
        options.outputFile == standardOutput ? "/dev/stdout" : options.outputFile, NamedFile::Use::Written } };
    if (isWallpaperFile(options.wallpaper))
        files.push_back({ "--wallpaper", options.wallpaper, NamedFile::Use::Read });
    return clashAmong(files);
}

ExitStatus complainOf(ExitStatus status, const std::string& message)
{
    complain(message);
    return status;
}

/// What is wrong with the name of the picture, or nothing. One without an ending may be a device or a pipe.
std::optional<std::string> whyNoPicture(const std::string& name)
{
    const auto ending = std::filesystem::path(name).extension().string();
    if (ending.empty() || ending == ".png" || ending == ".PNG")
        return std::nullopt;
    return "--output: found " + inQuotes(name) + ", expected a name that ends in .png, or - for standard output";
}

ExitStatus write(const render::Bitmap& picture, const std::string& name)
{
    const bool isStandardOutput = name == standardOutput;
    const auto failure = isStandardOutput ? writePng(picture, *stdout) : writePng(picture, name);
    if (!failure)
        return ExitStatus::AllWell;
    if (!isStandardOutput || !isReaderGone())
        complain((isStandardOutput ? "standard output" : printable(name)) + ": " + *failure);
    return ExitStatus::FileFailed;
}

} // namespace

ExitStatus drawPicture(PictureOptions options, const Library& library)
{
    if (const auto mistake = completeShowing(options))
        return complainOf(ExitStatus::WrongInput, *mistake);
    const MixerShowing& showing = options.showing;
    const ScreenSize& size = showing.screen;
    if (const auto reason = render::whyTooLargeOrSmall({ size.width, size.height }, size.scale))
        return complainOf(ExitStatus::WrongInput, "--screen: " + *reason);
    if (const auto mistake = whyNoPicture(options.outputFile))
        return complainOf(ExitStatus::WrongInput, *mistake);
    if (options.outputFile == standardOutput && isatty(STDOUT_FILENO) == 1)
        return complainOf(ExitStatus::WrongInput, "--output: standard output is a terminal, which shows no pictures");
    if (const auto clash = clashOf(options))
        return complainOf(ExitStatus::WrongInput, *clash);
    if (const auto missing = missingFolderOf(options.outputFile))
        return complainOf(ExitStatus::FileFailed, *missing);
    std::string failure;
    auto wallpaper = findWallpaper(options.wallpaper, failure);
    if (!wallpaper)
        return complainOf(ExitStatus::FileFailed, printable(options.wallpaper) + ": " + failure);
    const auto renderer = makeRenderer(std::move(*wallpaper), complain, failure);
    if (renderer == nullptr)
        return complainOf(ExitStatus::FileFailed, failure);

    Device device;
    device.resourceFolder = options.resourceFolder;
    if (options.system)
        takeShape(device, *options.system);
    beginToShow(device, library, showing);
    finishShowing(device, showing);

    const render::Bitmap& screen = renderer->draw(device).pixels;
    if (options.asViewed)
        return write(render::asViewed(screen, showing.orientation), options.outputFile);
    return write(screen, options.outputFile);
}

} // namespace panotra::sim
