/// The window is made when the mixer appears and goes with it: what nobody sees costs nothing.
#include "simulator/desktop/Overlay.h"

#include "simulator/desktop/OverlayPointer.h"
#include "simulator/desktop/OverlayWindow.h"
#include "simulator/desktop/X11Server.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Screen.h"
#include "simulator/device/View.h"
#include "simulator/picture/PictureFolder.h"

#include <cmath>
#include <optional>
#include <utility>

namespace panotra::sim {

using render::Bitmap;
using render::PixelRect;

namespace {

constexpr std::chrono::milliseconds frameInterval { 16 };

PixelRect translated(PixelRect rect, int x, int y)
{
    rect.x += x;
    rect.y += y;
    return rect;
}

/// The middle of a unit of the pointer.
constexpr double middle = 0.5;

} // namespace

struct Overlay::Stage {
    std::unique_ptr<OverlayDisplay> display;
    std::unique_ptr<OverlayWindow> window;
    PhoneOnDesktop phone;
    std::optional<OverlayPicture> picture;
    std::optional<OverlayPointer> pointer;
    PressesOutside outside {};
    std::unique_ptr<X11Server> server; ///< null elsewhere
    bool isExposed = true;
    bool hasMoved = true;
};

std::unique_ptr<render::Renderer> Overlay::prepare(
    const std::function<void(const std::string&)>& warn, std::string& failure)
{
    if (OverlayDisplay::open(failure) == nullptr)
        return nullptr;
    return makeRenderer(render::Wallpaper::dusk(), warn, failure);
}

Overlay::Overlay(DesktopPhone& phone, std::unique_ptr<render::Renderer> renderer,
    std::function<void(const std::string& line)> complain)
    : m_phone(phone)
    , m_renderer(std::move(renderer))
    , m_complain(std::move(complain))
{
}

Overlay::~Overlay() = default;

DesktopLoop::Pause Overlay::turn()
{
    const View* const mixer = viewToShow(m_phone.device());
    if (mixer == nullptr) {
        m_stage.reset();
        m_hasFailed = false;
        return {};
    }
    std::string failure;
    if (m_stage == nullptr && !m_hasFailed && (m_stage = appear(*mixer, failure)) == nullptr)
        giveUp(failure);
    if (m_stage == nullptr)
        return {};
    const auto sinceFrame = Clock::now() - m_lastFrame;
    if (sinceFrame < frameInterval)
        return { static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(frameInterval - sinceFrame).count()) };
    m_lastFrame = Clock::now();
    passOnPointer(*m_stage);
    if (const View* const stillThere = viewToShow(m_phone.device());
        stillThere != nullptr && !draw(*m_stage, *stillThere, failure))
        giveUp(failure);
    if (m_stage == nullptr)
        return {};
    const bool isMoving = m_stage->hasMoved || m_phone.device().runLoop->runningAnimations() > 0;
    const int descriptor = m_stage->window->descriptor();
    const bool isToBeLookedAt = isMoving || descriptor < 0 || m_stage->window->hasMore();
    return { isToBeLookedAt ? static_cast<int>(frameInterval.count()) : -1, descriptor };
}

void Overlay::giveUp(const std::string& failure)
{
    m_stage.reset();
    m_hasFailed = true;
    m_complain("the mixer cannot be shown: " + failure);
}

std::unique_ptr<Overlay::Stage> Overlay::appear(const View& mixer, std::string& failure)
{
    Device& device = m_phone.device();
    auto stage = std::make_unique<Stage>();
    stage->display = OverlayDisplay::open(failure);
    if (stage->display == nullptr)
        return nullptr;
    if (stage->display->isX11())
        stage->server = X11Server::connect();
    const X11Server* const server = stage->server.get();
    const auto pointer = server == nullptr ? std::nullopt : server->pointer();
    stage->phone = placePhone(stage->display->usableMonitorAt(pointer), mixer.frame());
    const int left = static_cast<int>(stage->phone.x);
    const int top = static_cast<int>(stage->phone.y);
    device.screen->scale = stage->phone.unitsPerPoint;
    PixelRect crop = intersection(render::presenceOf(device, mixer).shape.extent(), render::screenPixels(device));
    Bitmap behind;
    std::string visual;
    std::uint32_t focus = 0;
    if (server != nullptr) {
        behind = server->read(translated(render::screenPixels(device), left, top));
        visual = server->translucentVisual();
        focus = server->focus();
    }
    stage->window = OverlayWindow::open(*stage->display, translated(crop, left, top), visual, failure);
    if (stage->window == nullptr)
        return nullptr;
    if (server != nullptr)
        server->restoreFocus(focus);
    const PixelSize size = stage->window->size();
    const double pixelsPerUnit = static_cast<double>(size.width) / crop.width;
    device.screen->scale *= pixelsPerUnit;
    crop = { static_cast<int>(std::floor(crop.x * pixelsPerUnit)), static_cast<int>(std::floor(crop.y * pixelsPerUnit)),
        size.width, size.height };
    if (behind.extent() != render::screenPixels(device))
        behind = {};
    stage->picture.emplace(*m_renderer, device, std::move(behind), crop,
        visual.empty() ? OverlayPicture::Kind::Opaque : OverlayPicture::Kind::Translucent);
    stage->pointer.emplace(*device.touches);
    return stage;
}

void Overlay::passOnPointer(Stage& stage)
{
    using Act = OverlayWindow::Act;
    const PixelRect& place = stage.window->place();
    const auto onPhone = [&](int x, int y) {
        return stage.phone.onPhone(place.x + x + middle, place.y + y + middle);
    };
    for (const OverlayWindow::Happening& each : stage.window->take()) {
        switch (each.act) {
        case Act::Press:
            stage.pointer->press(onPhone(each.x, each.y));
            break;
        case Act::Move:
            stage.pointer->move(onPhone(each.x, each.y));
            break;
        case Act::Release:
            stage.pointer->move(onPhone(each.x, each.y));
            stage.pointer->release();
            break;
        case Act::Uncover:
            stage.isExposed = true;
            break;
        }
    }
    if (const auto at = stage.server == nullptr ? std::nullopt : stage.server->pointer()) {
        if (stage.outside.see(at->buttons, at->x, at->y, place))
            stage.pointer->pressOutside();
        // Beyond its edges a window is told neither of every move nor of every release.
        stage.pointer->move(onPhone(at->x - place.x, at->y - place.y));
        if ((at->buttons & X11Server::leftButton) == 0)
            stage.pointer->release();
    }
    stage.pointer->settle();
    m_phone.device().runLoop->turn();
}

bool Overlay::draw(Stage& stage, const View& mixer, std::string& failure)
{
    OverlayPicture::Frame frame = stage.picture->draw(m_phone.device(), mixer);
    stage.hasMoved = !frame.changed.empty();
    if (std::exchange(stage.isExposed, false))
        frame.changed = { frame.pixels.extent() };
    return frame.changed.empty() || stage.window->show(frame.pixels, frame.changed, failure);
}

} // namespace panotra::sim
