/// Taking pictures and comparing them.
#include "tests/unit/render/PictureTest.h"

#include "simulator/picture/PictureFolder.h"

#include <cstring>

namespace panotra::testing {

std::unique_ptr<render::Renderer> makeRenderer(render::Wallpaper wallpaper)
{
    std::string failure;
    const auto refuse = [](const std::string& warning) {
        ADD_FAILURE() << warning;
    };
    auto renderer = sim::makeRenderer(std::move(wallpaper), refuse, failure);
    if (renderer == nullptr)
        throw std::runtime_error(failure);
    return renderer;
}

std::uint32_t pixel(const Bitmap& picture, int x, int y)
{
    return picture.row(y)[static_cast<std::size_t>(x)] & 0xffffff;
}

bool areRowsSame(const Bitmap& one, const Bitmap& other, int y)
{
    const auto rowOfOne = one.row(y);
    const auto rowOfOther = other.row(y);
    return rowOfOne.size() == rowOfOther.size()
        && std::memcmp(rowOfOne.data(), rowOfOther.data(), rowOfOne.size_bytes()) == 0;
}

PixelRect differenceBetween(const Bitmap& one, const Bitmap& other)
{
    EXPECT_EQ(one.extent(), other.extent());
    PixelRect difference;
    for (int y = 0; y < one.height(); ++y) {
        if (areRowsSame(one, other, y))
            continue;
        const auto rowOfOne = one.row(y);
        const auto rowOfOther = other.row(y);
        for (int x = 0; x < one.width(); ++x) {
            constexpr std::uint32_t colors = 0xffffff;
            if (((rowOfOne[static_cast<std::size_t>(x)] ^ rowOfOther[static_cast<std::size_t>(x)]) & colors) != 0)
                difference = united(difference, { x, y, 1, 1 });
        }
    }
    return difference;
}

PictureTest::PictureTest()
{
    device.resourceFolder = PANOTRA_BUNDLE;
}

void PictureTest::show(const sim::MixerShowing& showing)
{
    sim::beginToShow(device, library, showing);
    sim::finishShowing(device, showing);
}

Bitmap PictureTest::drawn(render::Wallpaper wallpaper) const
{
    constexpr std::int64_t asItIsBuilt = 1;
    return render::asViewed(makeRenderer(std::move(wallpaper))->draw(device).pixels, asItIsBuilt);
}

Bitmap PictureTest::viewed()
{
    return render::asViewed(m_renderer->draw(device).pixels, device.screen->orientation);
}

PixelRect PictureTest::changedBy(const std::function<void()>& change)
{
    const Bitmap before = viewed();
    change();
    return differenceBetween(before, viewed());
}

void PictureTest::hideMixer()
{
    for (sim::View* const view : held("_window").subviews)
        view->setHidden(true);
}

} // namespace panotra::testing
