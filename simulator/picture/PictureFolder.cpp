/// Pictures into a folder.
#include "simulator/picture/PictureFolder.h"

#include "simulator/device/Screen.h"
#include "simulator/text/Printable.h"

#include <filesystem>

namespace panotra::sim {

std::unique_ptr<render::Renderer> makeRenderer(
    render::Wallpaper wallpaper, const std::function<void(const std::string&)>& warn, std::string& failure)
{
    auto typesetter = render::Typesetter::make();
    if (!typesetter) {
        failure = "no font is installed (Inter comes with the package fonts-inter)";
        return nullptr;
    }
    if (typesetter->usesFallback())
        warn("the font Inter is not installed (package fonts-inter); text is set in " + typesetter->family());
    return std::make_unique<render::Renderer>(std::move(wallpaper), std::move(*typesetter));
}

std::optional<std::string> PictureFolder::write(Device& device, const std::string& fileName)
{
    const std::filesystem::path path = std::filesystem::path(m_folder) / fileName;
    const auto named = [&path](const std::string& reason) {
        return path.string() + ": " + reason;
    };
    const Screen& screen = *device.screen;
    if (const auto reason = render::whyTooLargeOrSmall({ screen.width, screen.height }, screen.scale))
        return named(*reason);
    if (m_renderer == nullptr) {
        std::string failure;
        m_renderer = makeRenderer(render::Wallpaper::dusk(), m_warn, failure);
        if (m_renderer == nullptr)
            return named(failure);
    }
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error); // if it fails, so does writing
    const auto failure = writePng(m_renderer->draw(device).pixels, path.string());
    return failure ? std::optional(named(*failure)) : std::nullopt;
}

} // namespace panotra::sim
