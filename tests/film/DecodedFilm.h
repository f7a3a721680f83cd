/// The frames of a film, as whoever looks at it sees them.
#pragma once

#include "simulator/render/Bitmap.h"

#include <chrono>
#include <string>
#include <vector>

namespace panotra::testing {

struct DecodedFrame {
    render::Bitmap pixels; ///< Opaque, the whole film
    std::chrono::milliseconds begin;
    std::chrono::milliseconds end;
    render::PixelRect changed; ///< of the file's own frame; whole where the decoder does not tell
};

/// Empty if it cannot be read.
std::vector<DecodedFrame> decodedWebp(const std::string& bytes);
std::vector<DecodedFrame> decodedGif(const std::string& bytes);

/// How much the pictures, which are of one size, differ: the mean over all pixels and colours, of 255.
double meanDifference(const render::Bitmap& one, const render::Bitmap& other);

} // namespace panotra::testing
