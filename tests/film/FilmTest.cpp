/// What a film shows, and when.
#include "simulator/film/Film.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/film/FilmSet.h"
#include "simulator/picture/PictureFolder.h"
#include "tests/film/DecodedFilm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using testing::DecodedFrame;
using testing::meanDifference;

constexpr const char* press = "pref net.qorvath.panotra replaceHUD bool yes\nload\nlaunch\n# A press.\nwait 0.25\n"
                              "press up\nwait 0.5\nrelease up\ntouch down 20 20\nwait 0.25\n";

class FilmTest : public ::testing::Test {
protected:
    FilmTest()
    {
        look.size = { 96, 192 };
        look.framesPerSecond = 20;
    }

    static std::unique_ptr<render::Renderer> renderer()
    {
        std::string failure;
        return makeRenderer(
            render::Wallpaper::dusk(), [](const std::string&) {}, failure);
    }
    std::string filmOf(const std::string& lines, std::unique_ptr<MovingPicture> film)
    {
        const DrawnScenario scenario("test", lines);
        EXPECT_THAT(scenario.scenario.mistakes, ::testing::IsEmpty());
        if (film->wantsSamples()) {
            const auto drawing = renderer();
            FilmSet samples(scenario, look, loadedLibrary(), PANOTRA_BUNDLE, *drawing);
            takeSamples(samples, *film);
        }
        const auto drawing = renderer();
        FilmSet set(scenario, look, loadedLibrary(), PANOTRA_BUNDLE, *drawing);
        std::string failure;
        const std::string bytes = shoot(set, *film, failure, {});
        EXPECT_EQ(failure, "");
        return bytes;
    }
    /// That what is seen at the beginning of each `step`th frame is what the set shows then.
    void expectScenario(const std::vector<DecodedFrame>& frames, const DrawnScenario& scenario, std::size_t step,
        double tolerance) const
    {
        const auto drawing = renderer();
        FilmSet set(scenario, look, loadedLibrary(), PANOTRA_BUNDLE, *drawing);
        for (std::size_t index = 0; index < frames.size(); index += step) {
            const double seconds = std::chrono::duration<double>(frames[index].begin).count();
            set.goTo(static_cast<std::size_t>(std::lround(seconds * look.framesPerSecond)));
            const render::Bitmap& drawn = set.take().pixels;
            ASSERT_EQ(drawn.extent(), frames[index].pixels.extent());
            EXPECT_LT(meanDifference(drawn, frames[index].pixels), tolerance) << "at " << seconds << " s";
        }
    }

    FilmLook look;
};

TEST_F(FilmTest, AWebpShowsWhatHappensWhenItDoes)
{
    const auto frames = testing::decodedWebp(filmOf(press, makeWebp(look.size)));
    ASSERT_GT(frames.size(), 8U);
    EXPECT_EQ(frames.front().end, 250ms) << "nothing moves until the press";
    EXPECT_EQ(frames.back().end, 1050ms) << "the last moment lasts a frame";
    expectScenario(frames, DrawnScenario("test", press), 1, 5);
    EXPECT_GT(meanDifference(frames.front().pixels, frames.back().pixels), 8) << "the mixer is there";
}

TEST_F(FilmTest, AGifDoesTooAndHoldsWhatHasChangedOnly)
{
    const auto frames = testing::decodedGif(filmOf(press, makeGif(look.size)));
    ASSERT_GT(frames.size(), 8U);
    EXPECT_EQ(frames.front().end, 250ms);
    EXPECT_EQ(frames.back().end, 1050ms);
    expectScenario(frames, DrawnScenario("test", press), 1, 8);
    EXPECT_EQ(frames.front().changed, frames.front().pixels.extent());
    EXPECT_LT(frames.back().changed.height, look.size.height / 4) << "a finger changes little";
}

TEST_F(FilmTest, IsTheSameToTheByte)
{
    EXPECT_EQ(filmOf(press, makeWebp(look.size)), filmOf(press, makeWebp(look.size)));
    EXPECT_EQ(filmOf(press, makeGif(look.size)), filmOf(press, makeGif(look.size)));
}

TEST_F(FilmTest, TwiceTheSpeedIsHalfTheTime)
{
    look.speed = 2;
    const auto frames = testing::decodedWebp(filmOf(press, makeWebp(look.size)));
    ASSERT_FALSE(frames.empty());
    EXPECT_EQ(frames.back().end, 550ms);
    expectScenario(frames, DrawnScenario("test", press), 1, 5);
}

TEST_F(FilmTest, CaptionsStandBelowThePhoneIfTheyAreAskedFor)
{
    const auto stripOf = [this] {
        const DrawnScenario scenario("test", press);
        const auto drawing = renderer();
        FilmSet set(scenario, look, loadedLibrary(), PANOTRA_BUNDLE, *drawing);
        set.goTo(1);
        const render::Bitmap& frame = set.take().pixels;
        const auto row = frame.row(frame.height() - 16);
        return std::vector<std::uint32_t>(row.begin(), row.end());
    };
    look.captions = Captions::Shown;
    const auto shown = stripOf();
    EXPECT_FALSE(std::ranges::all_of(shown, [&shown](std::uint32_t pixel) { return pixel == shown.front(); }));
}

TEST_F(FilmTest, AScenarioWithoutTimeIsOnePicture)
{
    EXPECT_EQ(testing::decodedWebp(filmOf("load\nlaunch\n", makeWebp(look.size))).size(), 1U);
    EXPECT_EQ(testing::decodedGif(filmOf("load\nlaunch\n", makeGif(look.size))).size(), 1U);
}

// `make film` makes it anew.
TEST_F(FilmTest, TheFilmOfTheReadMeShowsItsScenario)
{
    std::ifstream file(PANOTRA_SOURCE "/docs/tour.webp", std::ios::binary);
    const std::string bytes { std::istreambuf_iterator<char>(file), {} };
    EXPECT_LT(bytes.size(), 2'000'000U);
    const auto frames = testing::decodedWebp(bytes);
    ASSERT_GT(frames.size(), 100U);
    const auto read = readDrawnScenario(PANOTRA_SOURCE "/examples/tour.scenario");
    const auto* const scenario = std::get_if<std::unique_ptr<const DrawnScenario>>(&read);
    ASSERT_NE(scenario, nullptr);
    look = { .size = { frames.front().pixels.width(), frames.front().pixels.height() }, .captions = Captions::Shown };
    EXPECT_NEAR(
        std::chrono::duration<double>(frames.back().end).count(), lengthOfFilm((*scenario)->scenario, look), 0.05);
    expectScenario(frames, **scenario, 23, 4);
}

} // namespace
} // namespace panotra::sim
