/// The pictures of a scenario, each a PNG file.
#pragma once

#include "simulator/render/Renderer.h"
#include "simulator/scenario/Pictures.h"

#include <functional>
#include <memory>
#include <string>

namespace panotra::sim {

/// A renderer, or the reason in `failure` why there can be none: no font is installed. Where the font is not the
/// one that pictures are meant to be set in, `warn` is told so once.
std::unique_ptr<render::Renderer> makeRenderer(
    render::Wallpaper wallpaper, const std::function<void(const std::string&)>& warn, std::string& failure);

class PictureFolder : public Pictures {
public:
    /// The folder, and those below it that a name asks for, are made when a picture is written.
    PictureFolder(std::string folder, std::function<void(const std::string&)> warn)
        : m_folder(std::move(folder))
        , m_warn(std::move(warn))
    {
    }

    std::optional<std::string> write(Device& device, const std::string& fileName) override;

private:
    std::string m_folder;
    std::function<void(const std::string&)> m_warn;
    std::unique_ptr<render::Renderer> m_renderer; ///< made when it is first needed
};

} // namespace panotra::sim
