/// Plays the scenario of one folder in this process and compares the picture that it takes with the one expected.
///
///     picture_tests FOLDER
///
/// FOLDER holds `scenario`, which takes the shot `picture`, and `picture.png`. When they differ, the folder of that
/// name in the current one keeps `expected.png`, `picture.png` (what was drawn) and `difference.png`.
#include "simulator/LinkedLibrary.h"
#include "simulator/Play.h"
#include "simulator/picture/PictureFolder.h"
#include "tests/support/PictureComparison.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

using namespace panotra;

/// The picture; the test fails without it.
render::Bitmap pictureIn(const std::filesystem::path& file)
{
    std::string failure;
    render::Bitmap picture = render::readPng(file.string(), failure);
    if (picture.isEmpty()) {
        std::fprintf(stderr, "%s: %s\n", file.c_str(), failure.c_str());
        std::exit(EXIT_FAILURE);
    }
    return picture;
}

void keep(const render::Bitmap& picture, const std::filesystem::path& file)
{
    if (const auto failure = writePng(picture, file.string()))
        std::fprintf(stderr, "%s: %s\n", file.c_str(), failure->c_str());
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: picture_tests FOLDER\n");
        return EXIT_FAILURE;
    }
    const std::filesystem::path folder = arguments[1];
    // Never the case itself, wherever the program is started.
    const auto found = std::filesystem::absolute("found-" + folder.filename().string());
    std::filesystem::remove_all(found);

    sim::PictureFolder pictures(found.string(), sim::complain);
    const sim::PlayOptions options {
        .scenarioFile = (folder / "scenario").string(),
        .preferencesFolder = {},
        .traceFile = "/dev/null",
        .resourceFolder = PANOTRA_BUNDLE,
    };
    const auto status = sim::play(options, sim::loadedLibrary(), &pictures);
    if (status != sim::ExitStatus::AllWell) {
        std::fprintf(stderr, "the play ended with status %d\n", static_cast<int>(status));
        return EXIT_FAILURE;
    }
    const render::Bitmap expected = pictureIn(folder / "picture.png");
    const render::Bitmap drawn = pictureIn(found / "picture.png");
    const auto difference = testing::firstDifference(expected, drawn);
    if (!difference) {
        std::filesystem::remove_all(found);
        return EXIT_SUCCESS;
    }
    keep(expected, found / "expected.png");
    if (expected.extent() == drawn.extent())
        keep(testing::differencePicture(expected, drawn), found / "difference.png");
    std::fprintf(
        stderr, "%s\nexpected.png, picture.png and difference.png are in %s\n", difference->c_str(), found.c_str());
    return EXIT_FAILURE;
}
