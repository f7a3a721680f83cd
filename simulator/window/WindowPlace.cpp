/// Reads and writes the window's place and size, a line of four numbers in a file.
#include "simulator/window/WindowPlace.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace panotra::sim {

std::string textOf(const WindowPlace& place)
{
    return std::to_string(place.x) + ' ' + std::to_string(place.y) + ' ' + std::to_string(place.width) + ' '
        + std::to_string(place.height) + '\n';
}

std::optional<WindowPlace> placeIn(std::string_view text)
{
    constexpr int farthest = 100000;
    constexpr int largest = 16384;
    std::array<int, 4> numbers {};
    const char* next = text.data();
    const char* const end = next + text.size();
    for (int& number : numbers) {
        while (next != end && *next == ' ')
            ++next;
        const auto [rest, error] = std::from_chars(next, end, number);
        if (error != std::errc {} || number < -farthest || number > farthest)
            return std::nullopt;
        next = rest;
    }
    const WindowPlace place { numbers[0], numbers[1], numbers[2], numbers[3] };
    const bool isOne = place.width > 0 && place.height > 0 && place.width <= largest && place.height <= largest;
    const bool isWhole = next == end || (*next == '\n' && next + 1 == end);
    return isOne && isWhole ? std::optional(place) : std::nullopt;
}

std::optional<std::string> placeFile()
{
    const auto folderIn = [](const char* variable) -> std::optional<std::filesystem::path> {
        const char* const value = std::getenv(variable);
        // Relative ones do not count, wherever the process happens to be.
        return value != nullptr && *value == '/' ? std::optional<std::filesystem::path>(value) : std::nullopt;
    };
    auto folder = folderIn("XDG_STATE_HOME");
    if (!folder) {
        folder = folderIn("HOME");
        if (folder)
            *folder = *folder / ".local" / "state";
    }
    return folder ? std::optional((*folder / "panotra" / "window").string()) : std::nullopt;
}

std::optional<WindowPlace> rememberedPlace()
{
    const auto name = placeFile();
    std::error_code error;
    if (!name || !std::filesystem::is_regular_file(*name, error))
        return std::nullopt;
    std::ifstream file(*name);
    std::array<char, 64> text {};
    file.read(text.data(), text.size());
    return placeIn({ text.data(), static_cast<std::size_t>(file.gcount()) });
}

void rememberPlace(const WindowPlace& place)
{
    const auto name = placeFile();
    if (!name)
        return;
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(*name).parent_path(), ignored);
    const std::string fresh = *name + ".new";
    {
        std::ofstream file(fresh);
        file << textOf(place);
        if (!file.flush())
            return;
    }
    std::filesystem::rename(fresh, *name, ignored);
}

} // namespace panotra::sim
