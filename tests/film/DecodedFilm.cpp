/// libwebp's and giflib's own decoders.
#include "tests/film/DecodedFilm.h"

#include <gif_lib.h>
#include <webp/demux.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace panotra::testing {

namespace {

using std::chrono::milliseconds;

struct CloseGif {
    void operator()(GifFileType* file) const
    {
        int ignored = 0;
        DGifCloseFile(file, &ignored);
    }
};

struct Reading {
    const std::string& bytes;
    std::size_t place = 0;
};

int readGif(GifFileType* file, GifByteType* into, int count)
{
    auto& reading = *static_cast<Reading*>(file->UserData);
    const std::size_t length = std::min(static_cast<std::size_t>(count), reading.bytes.size() - reading.place);
    std::memcpy(into, reading.bytes.data() + reading.place, length);
    reading.place += length;
    return static_cast<int>(length);
}

render::Bitmap copyOf(const std::vector<std::uint32_t>& pixels, int width, int height)
{
    render::Bitmap bitmap(width, height, render::PixelFormat::Opaque);
    for (int y = 0; y < height; ++y)
        std::copy_n(pixels.begin() + std::ptrdiff_t { y } * width, width, bitmap.row(y).begin());
    bitmap.markChanged();
    return bitmap;
}

std::uint32_t pixelOf(unsigned red, unsigned green, unsigned blue)
{
    return 0xff000000U | red << 16 | green << 8 | blue;
}

} // namespace

std::vector<DecodedFrame> decodedWebp(const std::string& bytes)
{
    const WebPData data { reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size() };
    const std::unique_ptr<WebPAnimDecoder, decltype(&WebPAnimDecoderDelete)> decoder(
        WebPAnimDecoderNew(&data, nullptr), WebPAnimDecoderDelete);
    WebPAnimInfo info {};
    std::vector<DecodedFrame> frames;
    if (decoder == nullptr || WebPAnimDecoderGetInfo(decoder.get(), &info) == 0)
        return frames;
    const int width = static_cast<int>(info.canvas_width);
    const int height = static_cast<int>(info.canvas_height);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    milliseconds begin { 0 };
    while (WebPAnimDecoderHasMoreFrames(decoder.get()) != 0) {
        std::uint8_t* rgba = nullptr;
        int end = 0;
        if (WebPAnimDecoderGetNext(decoder.get(), &rgba, &end) == 0)
            return {};
        for (std::size_t index = 0; index < pixels.size(); ++index)
            pixels[index] = pixelOf(rgba[4 * index], rgba[4 * index + 1], rgba[4 * index + 2]);
        frames.push_back({ copyOf(pixels, width, height), begin, milliseconds(end), { 0, 0, width, height } });
        begin = milliseconds(end);
    }
    return frames;
}

std::vector<DecodedFrame> decodedGif(const std::string& bytes)
{
    Reading reading { bytes };
    int error = 0;
    const std::unique_ptr<GifFileType, CloseGif> file(DGifOpen(&reading, readGif, &error));
    std::vector<DecodedFrame> frames;
    if (file == nullptr || DGifSlurp(file.get()) != GIF_OK)
        return frames;
    const int width = file->SWidth;
    const int height = file->SHeight;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    milliseconds begin { 0 };
    for (int number = 0; number < file->ImageCount; ++number) {
        const SavedImage& image = file->SavedImages[number];
        GraphicsControlBlock control {};
        if (DGifSavedExtensionToGCB(file.get(), number, &control) != GIF_OK)
            return {};
        const GifImageDesc& place = image.ImageDesc;
        for (int y = 0; y < place.Height; ++y) {
            for (int x = 0; x < place.Width; ++x) {
                const int color = image.RasterBits[y * place.Width + x];
                const GifColorType& entry = file->SColorMap->Colors[color];
                if (color != control.TransparentColor)
                    pixels[static_cast<std::size_t>((place.Top + y) * width + place.Left + x)]
                        = pixelOf(entry.Red, entry.Green, entry.Blue);
            }
        }
        const milliseconds end = begin + milliseconds(10 * control.DelayTime);
        frames.push_back(
            { copyOf(pixels, width, height), begin, end, { place.Left, place.Top, place.Width, place.Height } });
        begin = end;
    }
    return frames;
}

double meanDifference(const render::Bitmap& one, const render::Bitmap& other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        const auto first = one.row(y);
        const auto second = other.row(y);
        for (std::size_t x = 0; x < first.size(); ++x) {
            for (const unsigned shift : { 0U, 8U, 16U })
                sum += std::abs(
                    static_cast<int>(first[x] >> shift & 0xffU) - static_cast<int>(second[x] >> shift & 0xffU));
        }
    }
    return sum / (3.0 * one.width() * one.height());
}

} // namespace panotra::testing
