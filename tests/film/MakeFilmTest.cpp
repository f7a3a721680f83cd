/// From a command line to a file: what is refused, in a line each, and that nothing is overwritten.
#include "simulator/LinkedLibrary.h"
#include "simulator/film/Film.h"
#include "simulator/film/FilmSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace panotra::sim {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class MakeFilm : public ::testing::Test {
protected:
    MakeFilm()
    {
        std::string name = (std::filesystem::temp_directory_path() / "panotra-XXXXXX").string();
        folder = mkdtemp(name.data());
        options.scenarioFile = written("scenario", "load\nlaunch\nwait 0.1\nshake\n");
        options.outputFile = (folder / "film.webp").string();
        options.look.size = { 64, 64 };
        options.look.framesPerSecond = 10;
    }
    ~MakeFilm() override { std::filesystem::remove_all(folder); }

    std::string written(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder / name) << text;
        return (folder / name).string();
    }
    std::string content() const
    {
        std::ifstream file(options.outputFile, std::ios::binary);
        return { std::istreambuf_iterator<char>(file), {} };
    }
    /// What it says on standard error.
    std::string complaintWith(ExitStatus status) const
    {
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(makeFilm(options, loadedLibrary()), status);
        return ::testing::internal::GetCapturedStderr();
    }

    std::filesystem::path folder;
    FilmOptions options;
};

TEST_F(MakeFilm, WritesTheKindThatTheNameSays)
{
    EXPECT_EQ(complaintWith(ExitStatus::AllWell), "");
    EXPECT_EQ(content().substr(0, 4), "RIFF");
    options.outputFile = (folder / "film.gif").string();
    EXPECT_EQ(complaintWith(ExitStatus::AllWell), "");
    EXPECT_THAT(content(), StartsWith("GIF89a"));
    options.outputFile = (folder / "film.png").string();
    EXPECT_THAT(complaintWith(ExitStatus::WrongInput), HasSubstr("expected a name that ends with .webp or .gif\n"));
    EXPECT_FALSE(std::filesystem::exists(options.outputFile));
}

TEST_F(MakeFilm, OverwritesNothingUnlessItIsForcedTo)
{
    written("film.webp", "kept");
    EXPECT_THAT(
        complaintWith(ExitStatus::WrongInput), EndsWith("film.webp is there already (--force overwrites it)\n"));
    EXPECT_EQ(content(), "kept");
    options.mayOverwrite = true;
    EXPECT_EQ(complaintWith(ExitStatus::AllWell), "");
    EXPECT_EQ(content().substr(0, 4), "RIFF");
    options.outputFile = options.scenarioFile;
    std::filesystem::rename(options.scenarioFile, folder / "same.webp");
    options.scenarioFile = options.outputFile = (folder / "same.webp").string();
    EXPECT_THAT(complaintWith(ExitStatus::WrongInput), HasSubstr("would overwrite"));
}

TEST_F(MakeFilm, AMistakeInTheScenarioIsALineAndNothingIsWritten)
{
    options.scenarioFile = written("wrong", "load\nlunch\n");
    EXPECT_EQ(complaintWith(ExitStatus::WrongInput),
        options.scenarioFile + ":2: found \"lunch\", expected a command (did you mean launch?)\n");
    options.scenarioFile = (folder / "unborn").string();
    EXPECT_EQ(
        complaintWith(ExitStatus::FileFailed), "panotra: " + options.scenarioFile + ": No such file or directory\n");
    EXPECT_FALSE(std::filesystem::exists(options.outputFile));
}

TEST_F(MakeFilm, AFilmThatNobodyWatchesToTheEndIsNotMade)
{
    options.scenarioFile = written("long", "load\nwait 601\n");
    EXPECT_THAT(
        complaintWith(ExitStatus::WrongInput), HasSubstr("the film would last 601 seconds, expected at most 600"));
    options.scenarioFile = written("long", "load\nwait 1e308\n");
    EXPECT_THAT(complaintWith(ExitStatus::WrongInput), HasSubstr("would last 1000000000 seconds"));
}

TEST_F(MakeFilm, AFolderThatIsNotThereIsSaidBeforeTheWork)
{
    options.outputFile = (folder / "unborn" / "film.webp").string();
    EXPECT_EQ(complaintWith(ExitStatus::FileFailed),
        "panotra: " + (folder / "unborn").string() + ": No such file or directory\n");
}

TEST_F(MakeFilm, AnExpectationThatFailsIsSaidAndTheFilmIsThere)
{
    options.scenarioFile = written("wrong", "load\nexpect globals.replaceHUD yes\n");
    EXPECT_EQ(complaintWith(ExitStatus::NotFulfilled),
        options.scenarioFile + ":2: found no at globals.replaceHUD, expected yes\n");
    EXPECT_EQ(content().substr(0, 4), "RIFF");
}

} // namespace
} // namespace panotra::sim
