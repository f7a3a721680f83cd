/// Taking pictures.
#include "simulator/gallery/Studio.h"

#include "simulator/device/Services.h"
#include "simulator/picture/PictureFolder.h"
#include "simulator/render/Orientation.h"

#include <utility>

namespace panotra::sim {

std::unique_ptr<Studio> Studio::open(const Library& library, const std::string& resourceFolder,
    const std::function<void(const std::string&)>& warn, std::string& failure)
{
    std::unique_ptr<Studio> studio(new Studio(library, resourceFolder));
    studio->m_dusk = makeRenderer(render::Wallpaper::dusk(), warn, failure);
    const auto saidAlready = [](const std::string&) {
    };
    studio->m_dawn = makeRenderer(render::Wallpaper::dawn(), saidAlready, failure);
    if (studio->m_dusk == nullptr || studio->m_dawn == nullptr)
        return nullptr;
    return studio;
}

render::Bitmap Studio::view(const Device& device, Light light)
{
    render::Renderer& renderer = light == Light::Dusk ? *m_dusk : *m_dawn;
    return render::asViewed(renderer.draw(device).pixels, device.screen->orientation);
}

render::Bitmap Studio::mixer(const MixerShowing& showing, Light light)
{
    auto pictures = strip(showing, light, [&showing](Device& device, const Camera& take) {
        finishShowing(device, showing);
        take({});
    });
    return std::move(pictures.front().pixels);
}

std::vector<CaptionedPicture> Studio::strip(
    const MixerShowing& showing, Light light, const std::function<void(Device&, const Camera&)>& move)
{
    std::vector<CaptionedPicture> pictures;
    Device device;
    device.resourceFolder = m_resourceFolder;
    beginToShow(device, m_library, showing);
    move(device, [&](const std::string& caption) { pictures.push_back({ view(device, light), caption }); });
    return pictures;
}

} // namespace panotra::sim
