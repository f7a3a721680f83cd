/// The gallery as `make gallery` makes it.
#include "simulator/gallery/Gallery.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/gallery/GalleryPage.h"
#include "tests/support/PictureComparison.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

namespace panotra::sim {
namespace {

class Gallery : public ::testing::Test {
protected:
    Gallery()
    {
        std::string name = (std::filesystem::temp_directory_path() / "panotra-XXXXXX").string();
        folder = mkdtemp(name.data());
    }
    ~Gallery() override { std::filesystem::remove_all(folder); }

    std::filesystem::path folder;
};

std::set<std::string> filesIn(const std::filesystem::path& folder)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

/// Everything that the page refers to, but for places on itself.
std::set<std::string> filesNamedIn(const std::filesystem::path& page)
{
    std::ifstream file(page);
    const std::string html { std::istreambuf_iterator<char>(file), {} };
    const std::regex reference("(?:href|src)=\"([^#\"][^\"]*)\"");
    std::set<std::string> names;
    for (std::sregex_iterator match(html.begin(), html.end(), reference), end; match != end; ++match)
        names.insert((*match)[1]);
    return names;
}

render::Bitmap picture(const std::filesystem::path& file)
{
    std::string failure;
    render::Bitmap bitmap = render::readPng(file.string(), failure);
    EXPECT_FALSE(bitmap.isEmpty()) << file << ": " << failure;
    return bitmap;
}

/// How many there are in a film; 0 if it is none.
std::size_t framesOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes { std::istreambuf_iterator<char>(stream), {} };
    std::size_t frames = 0;
    if (!bytes.starts_with("RIFF"))
        return 0;
    // Each frame is a chunk of that name.
    for (auto place = bytes.find("ANMF"); place != bytes.npos; place = bytes.find("ANMF", place + 1))
        ++frames;
    return frames;
}

TEST_F(Gallery, ThePageNamesEveryPictureAndNothingElseAndTheReadMeShowsTheFirst)
{
    const auto inside = folder / "a" / "gallery";
    ASSERT_EQ(makeGallery(inside.string(), loadedLibrary(), PANOTRA_BUNDLE), ExitStatus::AllWell);
    auto named = filesNamedIn(inside / "index.html");
    const auto films = std::ranges::count_if(gallerySheets(), [](const GallerySheet& sheet) { return sheet.film; });
    EXPECT_EQ(films, 4) << "one for each movement";
    EXPECT_EQ(named.size(), gallerySheets().size() + static_cast<std::size_t>(films) + 1);
    named.insert("index.html");
    EXPECT_EQ(filesIn(inside), named);
    for (const std::string& name : named) {
        if (name.ends_with(".png")) {
            EXPECT_GT(picture(inside / name).width(), 1000) << name;
        } else if (name.ends_with(".webp")) {
            EXPECT_GT(framesOf(inside / name), 10U) << name;
            EXPECT_LT(file_size(inside / name), 1'000'000U) << name;
        }
    }
    const std::string first = std::string(introduction) + ".png";
    EXPECT_EQ(testing::firstDifference(picture(std::filesystem::path(PANOTRA_DOCS) / first), picture(inside / first)),
        std::nullopt)
        << "make gallery draws docs/" << first << " anew";
    EXPECT_LT(file_size(std::filesystem::path(PANOTRA_DOCS) / first), 400'000U);
}

TEST_F(Gallery, AFolderThatCannotBeMadeIsOneLineAndNothingIsDrawn)
{
    std::ofstream(folder / "file") << "in the way";
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    const auto status = makeGallery((folder / "file" / "gallery").string(), loadedLibrary(), PANOTRA_BUNDLE);
    EXPECT_EQ(status, ExitStatus::FileFailed);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
        "panotra: " + (folder / "file" / "gallery").string() + ": Not a directory\n");
}

} // namespace
} // namespace panotra::sim
