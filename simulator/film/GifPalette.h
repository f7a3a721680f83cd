/// The colours of a film that has only 255 of them.
#pragma once

#include "simulator/render/Bitmap.h"

#include <gif_lib.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace panotra::sim {

class GifPalette {
public:
    static constexpr std::size_t colors = 255;

    /// Pixels that the film shows somewhere; what is drawn later is made of colours near them.
    void see(const render::Bitmap& frame);
    /// To be called once, when all has been seen, before any colour is asked for. Answers whether it went well.
    bool choose();
    const std::array<GifColorType, colors>& table() const { return m_table; }

    /// The colour that stands for a pixel in its place: neighbours are a little lighter and darker in turn, and
    /// together look like what none of them is. The same pixel in the same place always gets the same colour.
    std::uint8_t colorOf(std::uint32_t pixel, int x, int y);

private:
    std::vector<std::uint32_t> m_seen; ///< how often, by five bits of red, green and blue; empty: nothing was
    std::array<GifColorType, colors> m_table {};
    std::vector<std::int16_t> m_nearest; ///< by five bits of red, green and blue; -1: not looked for yet
};

} // namespace panotra::sim
