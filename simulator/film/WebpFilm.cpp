/// The encoder of libwebp, which finds out by itself what has changed.
#include "simulator/film/MovingPicture.h"

#include <webp/encode.h>
#include <webp/mux.h>

#include <algorithm>
#include <cstdint>

namespace panotra::sim {

namespace {

struct DeleteEncoder {
    void operator()(WebPAnimEncoder* encoder) const { WebPAnimEncoderDelete(encoder); }
};

/// The library's picture, which frees its own pixels.
struct Picture {
    Picture()
        : isWell(WebPPictureInit(&picture) != 0)
    {
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    ~Picture() { WebPPictureFree(&picture); }

    WebPPicture picture {};
    bool isWell;
};

class WebpFilm : public MovingPicture {
public:
    explicit WebpFilm(FilmSize size)
        : m_size(size)
    {
        WebPAnimEncoderOptions options;
        m_isWell = WebPAnimEncoderOptionsInit(&options) != 0 && WebPConfigInit(&m_config) != 0;
        if (!m_isWell)
            return;
        // Every frame goes on from the one before: nobody looks for a place in the middle of so short a film.
        options.kmax = 0;
        options.anim_params.loop_count = 0; // for ever
        m_config.quality = 94;
        m_config.method = 4;
        m_encoder.reset(WebPAnimEncoderNew(size.width, size.height, &options));
        m_isWell = m_encoder != nullptr;
    }

    std::optional<std::string> add(
        const render::Bitmap& frame, const std::vector<render::PixelRect>&, std::chrono::milliseconds begin) override
    {
        Picture copy;
        copy.picture.use_argb = 1;
        copy.picture.width = m_size.width;
        copy.picture.height = m_size.height;
        if (!m_isWell || !copy.isWell || WebPPictureAlloc(&copy.picture) == 0)
            return "no memory for the film";
        constexpr std::uint32_t opaque = 0xff000000;
        for (int y = 0; y < m_size.height; ++y) {
            std::ranges::transform(frame.row(y), copy.picture.argb + std::ptrdiff_t { y } * copy.picture.argb_stride,
                [](std::uint32_t pixel) { return pixel | opaque; });
        }
        if (WebPAnimEncoderAdd(m_encoder.get(), &copy.picture, static_cast<int>(begin.count()), &m_config) == 0)
            return error();
        return std::nullopt;
    }

    std::string finish(std::chrono::milliseconds end, std::string& failure) override
    {
        WebPData data;
        WebPDataInit(&data);
        std::string bytes;
        if (!m_isWell)
            failure = "no memory for the film";
        else if (WebPAnimEncoderAdd(m_encoder.get(), nullptr, static_cast<int>(end.count()), nullptr) == 0
            || WebPAnimEncoderAssemble(m_encoder.get(), &data) == 0)
            failure = error();
        else
            bytes.assign(reinterpret_cast<const char*>(data.bytes), data.size);
        WebPDataClear(&data);
        return bytes;
    }

private:
    std::string error() const { return WebPAnimEncoderGetError(m_encoder.get()); }

    const FilmSize m_size;
    WebPConfig m_config {};
    std::unique_ptr<WebPAnimEncoder, DeleteEncoder> m_encoder;
    bool m_isWell = false;
};

} // namespace

std::unique_ptr<MovingPicture> makeWebp(FilmSize size)
{
    return std::make_unique<WebpFilm>(size);
}

std::unique_ptr<MovingPicture> makeMovingPicture(std::string_view fileName, FilmSize size)
{
    if (fileName.ends_with(".webp"))
        return makeWebp(size);
    return fileName.ends_with(".gif") ? makeGif(size) : nullptr;
}

} // namespace panotra::sim
