/// The pictures of the resource bundle.
#include "simulator/device/BundlePictures.h"
#include "tests/unit/device/DeviceTest.h"

#include <filesystem>
#include <fstream>

namespace panotra::sim {
namespace {

class PicturesTest : public DeviceTest {
protected:
    PicturesTest()
    {
        folder = std::filesystem::path(::testing::TempDir())
            / ("pictures-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::create_directories(folder);
        device.resourceFolder = folder.string();
    }
    ~PicturesTest() override { std::filesystem::remove_all(folder); }

    void write(const std::string& name) const { std::ofstream(folder / name) << "contents of " << name; }
    std::string nameFound() const { return std::filesystem::path(pictureFile(device, "speaker")).filename().string(); }

    std::filesystem::path folder;
};

TEST_F(PicturesTest, ThePictureNearestToTheScreensScaleIsTaken)
{
    write("speaker.png");
    EXPECT_EQ(nameFound(), "speaker.png");
    write("speaker@3x.png");
    EXPECT_EQ(nameFound(), "speaker@3x.png");
    write("speaker@2x.png");
    EXPECT_EQ(nameFound(), "speaker@2x.png");
    device.screen->scale = 3;
    EXPECT_EQ(nameFound(), "speaker@3x.png");
    device.screen->scale = 1;
    EXPECT_EQ(nameFound(), "speaker.png");
}

TEST_F(PicturesTest, WithoutAFileThereIsNone)
{
    EXPECT_EQ(nameFound(), "");
    device.resourceFolder.clear();
    EXPECT_EQ(nameFound(), "");
}

TEST_F(PicturesTest, AnImageWithAFileIsItsBytes)
{
    write("speaker@2x.png");
    const Image& image = make<Image>("UIImage", "speaker", pictureFile(device, "speaker"));
    EXPECT_EQ(pngOf(image), "contents of speaker@2x.png");
}

TEST_F(PicturesTest, AnImageWithoutAReadableFileIsASinglePixel)
{
    const std::string signature("\x89PNG\r\n\x1a\n", 8);
    for (const char* const path : { "", "/nowhere/speaker.png" }) {
        const std::string png = pngOf(make<Image>("UIImage", "speaker", path));
        EXPECT_EQ(png.substr(0, 8), signature);
        EXPECT_EQ(png.substr(12, 4), "IHDR");
        EXPECT_EQ(png.substr(png.size() - 8, 4), "IEND");
    }
}

} // namespace
} // namespace panotra::sim
