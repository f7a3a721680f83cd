/// The pictures of the resource bundle.
#include "simulator/device/BundlePictures.h"

#include "simulator/device/Screen.h"

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace panotra::sim {

namespace {

struct PictureScale {
    double pixelsPerPoint;
    const char* suffix;
};

/// Where two are equally near, the larger one: it loses nothing when it is shrunk.
constexpr std::array pictureScales { PictureScale { 3, "@3x.png" }, PictureScale { 2, "@2x.png" },
    PictureScale { 1, ".png" } };

/// A PNG file of one transparent pixel, grey with alpha at 8 bits.
constexpr unsigned char singlePixel[] = {
    // clang-format off
    0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a,
    0x00, 0x00, 0x00, 0x0d, 0x49, 0x48, 0x44, 0x52, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01,
    0x08, 0x04, 0x00, 0x00, 0x00, 0xb5, 0x1c, 0x0c, 0x02,
    0x00, 0x00, 0x00, 0x0b, 0x49, 0x44, 0x41, 0x54,
    0x78, 0xda, 0x63, 0x60, 0x60, 0x00, 0x00, 0x00, 0x03, 0x00, 0x01, 0x2b, 0x09, 0x4d, 0x84,
    0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4e, 0x44, 0xae, 0x42, 0x60, 0x82,
    // clang-format on
};

} // namespace

std::string pictureFile(const Device& device, const std::string& name)
{
    if (device.resourceFolder.empty())
        return {};
    std::string nearest;
    double nearestDistance = 0;
    for (const PictureScale& scale : pictureScales) {
        const std::filesystem::path path = std::filesystem::path(device.resourceFolder) / (name + scale.suffix);
        const double distance = std::abs(scale.pixelsPerPoint - device.screen->scale);
        std::error_code error;
        if ((nearest.empty() || distance < nearestDistance) && std::filesystem::is_regular_file(path, error)) {
            nearest = path.string();
            nearestDistance = distance;
        }
    }
    return nearest;
}

std::string pngOf(const Image& image)
{
    if (!image.file.empty()) {
        std::ifstream file(image.file, std::ios::binary);
        std::string bytes { std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>() };
        if (!bytes.empty())
            return bytes;
    }
    return { std::begin(singlePixel), std::end(singlePixel) };
}

} // namespace panotra::sim
