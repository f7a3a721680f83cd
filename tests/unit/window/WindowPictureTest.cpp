/// The pixels of the window: drawn where something changed, and nowhere else.
#include "simulator/window/WindowPicture.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/window/Board.h"
#include "simulator/window/Controls.h"
#include "tests/unit/window/SessionFixture.h"

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::IsEmpty;

class WindowPictureTest : public testing::SessionFixture {
protected:
    WindowPictureTest()
        : phone(start().device())
    {
    }

    void SetUp() override
    {
        std::string failure;
        renderer = makeRenderer(
            render::Wallpaper::dusk(), [](const std::string&) {}, failure);
        ASSERT_NE(renderer, nullptr) << failure;
        picture.emplace(*renderer);
    }

    WindowPicture::Frame draw()
    {
        layout = layOut(size, {}, session->device().screen->orientation);
        return picture->draw(session->device(), makeSheet({ *session, phone, layout, attention }), layout, size);
    }
    /// The pixels, drawn by somebody who has seen nothing before.
    bool isAsDrawnAfresh(const render::Bitmap& pixels)
    {
        WindowPicture other(*renderer);
        const auto fresh
            = other.draw(session->device(), makeSheet({ *session, phone, layout, attention }), layout, size);
        for (int y = 0; y < size.height; ++y) {
            if (!std::ranges::equal(pixels.row(y), fresh.pixels.row(y)))
                return false;
        }
        return true;
    }

    std::unique_ptr<render::Renderer> renderer;
    std::optional<WindowPicture> picture;
    Phone phone;
    PixelSize size { 900, 600 };
    Layout layout;
    Attention attention;
};

TEST_F(WindowPictureTest, NothingIsDrawnTwice)
{
    EXPECT_FALSE(draw().changed.empty());
    EXPECT_THAT(draw().changed, IsEmpty());
    session->advance(1s);
    EXPECT_THAT(draw().changed, IsEmpty());
}

TEST_F(WindowPictureTest, AButtonUnderThePointerIsAllThatIsDrawn)
{
    draw();
    const Sheet sheet = makeSheet({ *session, phone, layout, attention });
    const auto shake = static_cast<std::size_t>(findControl("S") - allControls().data());
    const auto button = std::ranges::find_if(sheet.spots, [&](const Spot& spot) {
        return spot.isSameAs({ {}, Spot::Purpose::Control, shake });
    });
    ASSERT_NE(button, sheet.spots.end());
    attention.hovered = *button;
    const auto frame = draw();
    ASSERT_FALSE(frame.changed.empty());
    for (const render::PixelRect& rect : frame.changed) {
        EXPECT_GE(rect.x, button->area.x * layout.unit - 2);
        EXPECT_LE(rect.y + rect.height, button->area.bottom() * layout.unit + 2);
    }
}

TEST_F(WindowPictureTest, WhatIsDrawnInPartsIsAsIfDrawnAtOnce)
{
    draw();
    const auto expectWhole = [this](const char* what) {
        EXPECT_TRUE(isAsDrawnAfresh(draw().pixels)) << what;
        // The renderer has drawn for another since: what it then calls changed is the other's.
        attention.overlay = attention.overlay == Overlaid::Help ? Overlaid::Nothing : Overlaid::Help;
        draw();
        attention.overlay = attention.overlay == Overlaid::Help ? Overlaid::Nothing : Overlaid::Help;
        draw();
    };
    session->play("press up");
    session->advance(100ms);
    expectWhole("fading in");
    session->advance(400ms);
    expectWhole("shown");
    session->playAll(phone.switchScreen());
    expectWhole("off");
    session->playAll(phone.switchScreen());
    expectWhole("on again");
    session->playAll(phone.turn());
    session->advance(400ms);
    expectWhole("turned");
}

TEST_F(WindowPictureTest, TheDevicesOwnScaleIsLeftAsItWas)
{
    draw();
    EXPECT_EQ(session->device().screen->scale, 2);
}

TEST_F(WindowPictureTest, AWindowOfAnyOtherSizeIsDrawnWhole)
{
    draw();
    size = { 701, 433 };
    const auto frame = draw();
    EXPECT_EQ(frame.pixels.width(), 701);
    ASSERT_EQ(frame.changed.size(), 1U);
    EXPECT_EQ(frame.changed.front(), frame.pixels.extent());
}

} // namespace
} // namespace panotra::sim
