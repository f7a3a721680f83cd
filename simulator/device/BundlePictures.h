/// The pictures of the resource bundle.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/View.h"

#include <string>

namespace panotra::sim {

/// The path of the picture called `name` in the device's resource folder, in the scale nearest to the screen's:
/// NAME@3x.png, NAME@2x.png or NAME.png. Empty where there is none.
std::string pictureFile(const Device& device, const std::string& name);

/// The image as PNG: the file's bytes, or a single transparent pixel for an image without a readable file.
std::string pngOf(const Image& image);

} // namespace panotra::sim
