/// A desktop with a known picture on it, the mixer's phone, and its overlay.
#pragma once

#include "simulator/desktop/DesktopPhone.h"
#include "simulator/desktop/Overlay.h"
#include "simulator/desktop/X11Server.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace panotra::testing {

/// A window over the whole desktop, as any program's: it shows a known picture, and is told what is pressed on it.
class KnownBackground {
public:
    KnownBackground();
    ~KnownBackground();
    KnownBackground(const KnownBackground&) = delete;
    KnownBackground& operator=(const KnownBackground&) = delete;

    /// The picture at that place, without alpha.
    static std::uint32_t pixelAt(int x, int y);
    /// How many presses it was told of since the last call.
    int presses();
    void focus() const;
    std::uint32_t window() const { return m_window; }

private:
    xcb_connection_t* m_connection;
    std::uint32_t m_window;
};

class OverlayDesk : public ::testing::Test {
protected:
    static constexpr int width = 800;
    static constexpr int height = 600;

    OverlayDesk();

    void set(const char* key, const sim::Json& value);
    void present();
    /// Goes on until it is so. What never becomes so ends the test.
    void goOnUntil(const char* what, const std::function<bool()>& isSo);
    void goOn();
    bool isAtRest();
    bool isShown();

    render::Bitmap screen() const;
    /// The smallest rectangle around all that is not as the background is.
    static render::PixelRect changedPart(const render::Bitmap& screen);
    /// As compared with the picture of that name beside the tests, whatever stands around it.
    void expectPicture(const char* name, const render::Bitmap& screen, const render::PixelRect& part) const;
    static void mouse(const std::string& acts);
    float levelOf(const char* category) const;

    KnownBackground background;
    std::string folder = ::testing::TempDir() + "overlay-preferences";
    std::optional<sim::DesktopPhone> phone;
    std::optional<sim::Overlay> overlay;
    std::optional<sim::DesktopLoop::Pause> pause;
    std::unique_ptr<sim::X11Server> server = sim::X11Server::connect();
    std::vector<std::string> complaints;
};

} // namespace panotra::testing
