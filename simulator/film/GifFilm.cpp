/// giflib writes the blocks; a frame is the rectangle that changed, in which what stayed is left out.
#include "simulator/film/GifPalette.h"
#include "simulator/film/MovingPicture.h"

#include <gif_lib.h>

#include <algorithm>

namespace panotra::sim {

namespace {

constexpr int leftOut = GifPalette::colors; ///< the index that means: as before

int append(GifFileType* file, const GifByteType* bytes, int count)
{
    static_cast<std::string*>(file->UserData)
        ->append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
    return count;
}

struct CloseFile {
    void operator()(GifFileType* file) const
    {
        int ignored = 0;
        EGifCloseFile(file, &ignored);
    }
};

struct FreeColors {
    void operator()(ColorMapObject* colors) const { GifFreeMapObject(colors); }
};

/// Time is counted in hundredths of a second, from the film's start on, so that no rounding adds up.
int hundredths(std::chrono::milliseconds time)
{
    return static_cast<int>((time.count() + 5) / 10);
}

class GifFilm : public MovingPicture {
public:
    explicit GifFilm(FilmSize size)
        : m_size(size)
        , m_shown(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height), leftOut)
    {
    }

    bool wantsSamples() const override { return true; }
    void sample(const render::Bitmap& frame) override { m_palette.see(frame); }

    std::optional<std::string> add(const render::Bitmap& frame, const std::vector<render::PixelRect>& changed,
        std::chrono::milliseconds begin) override
    {
        if (m_file == nullptr) {
            m_palette.see(frame);
            if (!m_palette.choose() || !writeHeader())
                return "the colours of the film cannot be chosen";
        } else if (!writePending(begin)) {
            return "no memory for the film";
        }
        m_pending = {};
        for (const render::PixelRect& rect : changed)
            m_pending = render::united(m_pending, rect);
        m_pending = render::intersection(m_pending, frame.extent());
        m_begin = begin;
        takePixels(frame);
        return std::nullopt;
    }

    std::string finish(std::chrono::milliseconds end, std::string& failure) override
    {
        if (m_file == nullptr || !writePending(end)) {
            failure = "no memory for the film";
            return {};
        }
        m_file.reset(); // which writes the end
        return std::move(m_bytes);
    }

private:
    bool writeHeader()
    {
        int error = 0;
        m_file.reset(EGifOpen(&m_bytes, append, &error));
        if (m_file == nullptr)
            return false;
        EGifSetGifVersion(m_file.get(), true);
        std::array<GifColorType, GifPalette::colors + 1> all {};
        std::ranges::copy(m_palette.table(), all.begin());
        const std::unique_ptr<ColorMapObject, FreeColors> colors(
            GifMakeMapObject(static_cast<int>(all.size()), all.data()));
        constexpr int bitsOfColor = 8;
        constexpr const char* again = "NETSCAPE2.0";
        constexpr std::array<GifByteType, 3> forEver { 1, 0, 0 };
        return colors != nullptr
            && EGifPutScreenDesc(m_file.get(), m_size.width, m_size.height, bitsOfColor, 0, colors.get()) == GIF_OK
            && EGifPutExtensionLeader(m_file.get(), APPLICATION_EXT_FUNC_CODE) == GIF_OK
            && EGifPutExtensionBlock(m_file.get(), 11, again) == GIF_OK
            && EGifPutExtensionBlock(m_file.get(), static_cast<int>(forEver.size()), forEver.data()) == GIF_OK
            && EGifPutExtensionTrailer(m_file.get()) == GIF_OK;
    }

    /// The colours of what has changed; those that are as before are left out.
    void takePixels(const render::Bitmap& frame)
    {
        m_pixels.clear();
        for (int y = m_pending.y; y < m_pending.y + m_pending.height; ++y) {
            const auto row = frame.row(y);
            for (int x = m_pending.x; x < m_pending.x + m_pending.width; ++x) {
                const auto place = static_cast<std::size_t>(y) * row.size() + static_cast<std::size_t>(x);
                const std::uint8_t color = m_palette.colorOf(row[static_cast<std::size_t>(x)], x, y);
                m_pixels.push_back(m_shown[place] == color ? static_cast<GifByteType>(leftOut) : color);
                m_shown[place] = color;
            }
        }
    }

    /// The frame that was added last: how long it is shown is known only now.
    bool writePending(std::chrono::milliseconds end)
    {
        if (m_pending.isEmpty())
            return true;
        const GraphicsControlBlock control { .DisposalMode = DISPOSE_DO_NOT,
            .UserInputFlag = false,
            .DelayTime = hundredths(end) - hundredths(m_begin),
            .TransparentColor = leftOut };
        std::array<GifByteType, 4> extension {};
        EGifGCBToExtension(&control, extension.data());
        if (EGifPutExtension(m_file.get(), GRAPHICS_EXT_FUNC_CODE, static_cast<int>(extension.size()), extension.data())
                != GIF_OK
            || EGifPutImageDesc(
                   m_file.get(), m_pending.x, m_pending.y, m_pending.width, m_pending.height, false, nullptr)
                != GIF_OK)
            return false;
        for (int y = 0; y < m_pending.height; ++y) {
            if (EGifPutLine(m_file.get(), m_pixels.data() + std::ptrdiff_t { y } * m_pending.width, m_pending.width)
                != GIF_OK)
                return false;
        }
        return true;
    }

    const FilmSize m_size;
    GifPalette m_palette;
    std::vector<int> m_shown; ///< the colour of each pixel, as the film has it so far
    std::string m_bytes;
    std::unique_ptr<GifFileType, CloseFile> m_file; ///< writes into the bytes
    render::PixelRect m_pending; ///< where the frame that was added last has changed
    std::vector<GifByteType> m_pixels; ///< its colours
    std::chrono::milliseconds m_begin { 0 };
};

} // namespace

std::unique_ptr<MovingPicture> makeGif(FilmSize size)
{
    return std::make_unique<GifFilm>(size);
}

} // namespace panotra::sim
