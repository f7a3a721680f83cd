/// Files of pictures that move: frames go in, the bytes of a file come out.
#pragma once

#include "simulator/film/FilmLook.h"
#include "simulator/render/Bitmap.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panotra::sim {

class MovingPicture {
public:
    virtual ~MovingPicture() = default;

    /// Whether it wants to see some of the frames, from all parts of the film, before the first is added.
    virtual bool wantsSamples() const { return false; }
    virtual void sample(const render::Bitmap&) { }

    /// The frame that is shown from `begin` on, which is later than that of the one before; an Opaque bitmap of the
    /// film's size. `changed`: where it differs from the one before. Answers why it cannot be, or nothing.
    virtual std::optional<std::string> add(
        const render::Bitmap& frame, const std::vector<render::PixelRect>& changed, std::chrono::milliseconds begin)
        = 0;
    /// The whole file, whose last frame is shown until `end`; then it begins again. Empty and the reason in `failure`
    /// if it cannot be.
    virtual std::string finish(std::chrono::milliseconds end, std::string& failure) = 0;
};

/// Lossy, with as little of each frame as differs from the one before.
std::unique_ptr<MovingPicture> makeWebp(FilmSize size);
/// 255 colours for the whole film, the rest dithered.
std::unique_ptr<MovingPicture> makeGif(FilmSize size);
/// By the ending of a file's name, ".webp" or ".gif"; null for any other.
std::unique_ptr<MovingPicture> makeMovingPicture(std::string_view fileName, FilmSize size);

} // namespace panotra::sim
