/// A phone whose screen is drawn, and what tests ask of pictures.
#pragma once

#include "simulator/LinkedLibrary.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"
#include "simulator/picture/ShownMixer.h"
#include "simulator/render/Orientation.h"
#include "simulator/render/Renderer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>

namespace panotra::testing {

using render::Bitmap;
using render::PixelRect;

std::unique_ptr<render::Renderer> makeRenderer(render::Wallpaper wallpaper = render::Wallpaper::dusk());

/// Red, green, blue of 8 bits each, from the highest byte to the lowest.
std::uint32_t pixel(const Bitmap& picture, int x, int y);
/// To the bit: most rows are, and going through them pixel by pixel is what takes a test long.
bool areRowsSame(const Bitmap& one, const Bitmap& other, int y);
/// The smallest rectangle around all pixels in which two pictures of one size differ; empty if they are the same.
PixelRect differenceBetween(const Bitmap& one, const Bitmap& other);

class PictureTest : public ::testing::Test {
protected:
    PictureTest();

    /// Builds the mixer and lets it come to rest.
    void show(const sim::MixerShowing& showing = {});
    /// The screen as it is built, drawn by a renderer that is used for nothing else.
    Bitmap drawn(render::Wallpaper wallpaper = render::Wallpaper::dusk()) const;
    /// The same as the viewer holds the phone, by a renderer that is used again.
    Bitmap viewed();
    /// Where, as the viewer sees it, something is changed by a change.
    PixelRect changedBy(const std::function<void()>& change);

    /// What the mixer holds in a field.
    template <typename Kind = sim::View> Kind& held(const char* field)
    {
        auto* const view = dynamic_cast<Kind*>(device.classes->heldInField(field));
        if (view == nullptr)
            throw std::runtime_error(field);
        return *view;
    }
    /// What is hidden from now on, so that nothing but a test's own views is over the home screen.
    void hideMixer();
    /// A view of the test's own, on the mixer's window.
    template <typename Kind = sim::View> Kind& add(const char* className, sim::Rect frame, sim::View* to = nullptr)
    {
        Kind& view = *device.classes->make<Kind>(className);
        view.setFrame(frame);
        (to == nullptr ? held("_window") : *to).addSubview(view);
        return view;
    }
    sim::View& addFilled(sim::Rect frame, const sim::Rgba& color, sim::View* to = nullptr)
    {
        sim::View& view = add("UIView", frame, to);
        view.setBackground(color);
        return view;
    }

    sim::Device device;
    sim::Library library = sim::loadedLibrary();

private:
    std::unique_ptr<render::Renderer> m_renderer = makeRenderer();
};

} // namespace panotra::testing
