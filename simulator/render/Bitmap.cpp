/// Pictures in memory, and as PNG files.
#include "simulator/render/Bitmap.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace panotra::render {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

cairo_format_t cairoFormat(PixelFormat format)
{
    constexpr std::array formats { CAIRO_FORMAT_RGB24, CAIRO_FORMAT_ARGB32, CAIRO_FORMAT_A8 };
    return formats[static_cast<std::size_t>(format)];
}

cairo_status_t writeToFile(void* file, const unsigned char* bytes, unsigned int length)
{
    const bool wrote = std::fwrite(bytes, 1, length, static_cast<std::FILE*>(file)) == length;
    return wrote ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

cairo_status_t readFromFile(void* file, unsigned char* bytes, unsigned int length)
{
    const bool read = std::fread(bytes, 1, length, static_cast<std::FILE*>(file)) == length;
    return read ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_READ_ERROR;
}

std::string systemReason()
{
    return std::strerror(errno);
}

} // namespace

Bitmap::Bitmap(int width, int height, PixelFormat format)
    : Bitmap(Handle<cairo_surface_t>(cairo_image_surface_create(cairoFormat(format), width, height)))
{
}

Bitmap Bitmap::uncleared(int width, int height, PixelFormat format)
{
    static const cairo_user_data_key_t pixelsKey {};
    const int stride = cairo_format_stride_for_width(cairoFormat(format), width);
    if (stride <= 0)
        return {};
    auto* const pixels
        = static_cast<unsigned char*>(std::malloc(static_cast<std::size_t>(stride) * static_cast<std::size_t>(height)));
    if (pixels == nullptr)
        return {};
    Handle<cairo_surface_t> surface(
        cairo_image_surface_create_for_data(pixels, cairoFormat(format), width, height, stride));
    if (cairo_surface_set_user_data(surface.get(), &pixelsKey, pixels, std::free) != CAIRO_STATUS_SUCCESS)
        std::free(pixels);
    return Bitmap(std::move(surface));
}

Bitmap::Bitmap(Handle<cairo_surface_t> surface)
{
    if (surface != nullptr && cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS)
        m_surface = std::move(surface);
}

std::span<const std::uint32_t> Bitmap::row(int y) const
{
    cairo_surface_flush(m_surface.get());
    const auto* const bytes = cairo_image_surface_get_data(m_surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(m_surface.get()));
    return { reinterpret_cast<const std::uint32_t*>(bytes + static_cast<std::size_t>(y) * stride),
        static_cast<std::size_t>(width()) };
}

std::span<std::uint32_t> Bitmap::row(int y)
{
    const auto pixels = std::as_const(*this).row(y);
    return { const_cast<std::uint32_t*>(pixels.data()), pixels.size() };
}

std::optional<std::string> writePng(const Bitmap& bitmap, const std::string& path)
{
    errno = 0;
    File file(std::fopen(path.c_str(), "wb"));
    if (file == nullptr)
        return systemReason();
    auto failure = writePng(bitmap, *file);
    // A file system may keep its complaint until the very end.
    const bool closed = std::fclose(file.release()) == 0;
    return failure || closed ? failure : systemReason();
}

std::optional<std::string> writePng(const Bitmap& bitmap, std::FILE& stream)
{
    errno = 0;
    const cairo_status_t status = cairo_surface_write_to_png_stream(bitmap.surface(), writeToFile, &stream);
    if (status == CAIRO_STATUS_SUCCESS && std::fflush(&stream) == 0)
        return std::nullopt;
    return errno != 0 ? systemReason() : cairo_status_to_string(status);
}

Bitmap readPng(const std::string& path, std::string& failure)
{
    // A pipe would be waited for.
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored) && !std::filesystem::is_regular_file(path, ignored)) {
        failure = "no regular file";
        return {};
    }
    errno = 0;
    const File file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) {
        failure = systemReason();
        return {};
    }
    Bitmap bitmap(Handle<cairo_surface_t>(cairo_image_surface_create_from_png_stream(readFromFile, file.get())));
    if (bitmap.isEmpty())
        failure = "no readable PNG picture";
    return bitmap;
}

} // namespace panotra::render
