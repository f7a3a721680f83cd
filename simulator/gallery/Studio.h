/// Where the gallery's pictures are taken: phones with the mixer, and what draws them.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/gallery/ContactSheet.h"
#include "simulator/picture/ShownMixer.h"
#include "simulator/render/Renderer.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace panotra::sim {

enum class Light { Dusk, Dawn };

class Studio {
public:
    /// `warn` hears of a font that is not the one meant. Null and the reason in `failure` if nothing can be drawn.
    static std::unique_ptr<Studio> open(const Library& library, const std::string& resourceFolder,
        const std::function<void(const std::string&)>& warn, std::string& failure);

    /// The mixer at rest, as the viewer holds the phone.
    render::Bitmap mixer(const MixerShowing& showing, Light light);

    /// What a camera is for: the phone as it is now, as the viewer holds it.
    using Camera = std::function<void(const std::string& caption)>;
    /// A phone of its own whose mixer has just been asked to appear; `move` moves it and takes pictures.
    std::vector<CaptionedPicture> strip(
        const MixerShowing& showing, Light light, const std::function<void(Device&, const Camera&)>& move);

    const render::Typesetter& typesetter() const { return m_dusk->typesetter(); }

private:
    Studio(const Library& library, const std::string& resourceFolder)
        : m_library(library)
        , m_resourceFolder(resourceFolder)
    {
    }
    render::Bitmap view(const Device& device, Light light);

    Library m_library;
    std::string m_resourceFolder;
    std::unique_ptr<render::Renderer> m_dusk;
    std::unique_ptr<render::Renderer> m_dawn;
};

} // namespace panotra::sim
