/// Feeds a fuzzer's function the files that are named, and copies of them that are damaged the same way every time; of
/// a folder, which is a corpus, each file as it is. What does not hold ends the process.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int copiesOfAFile = 100;

void feed(const std::string& bytes)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

/// Some bytes changed, and perhaps the end lost or the beginning said twice.
std::string damaged(std::string bytes, std::mt19937& numbers)
{
    for (auto changes = 1 + numbers() % 4; changes > 0 && !bytes.empty(); --changes)
        bytes[numbers() % bytes.size()] = static_cast<char>(numbers());
    switch (numbers() % 3) {
    case 0:
        bytes.resize(numbers() % (bytes.size() + 1));
        break;
    case 1:
        bytes.insert(0, bytes.substr(0, numbers() % (bytes.size() + 1)));
        break;
    default:
        break;
    }
    return bytes;
}

std::string bytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes { std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>() };
    if (bytes.empty()) {
        std::fprintf(stderr, "%s: cannot be read, or is empty\n", path.c_str());
        std::exit(EXIT_FAILURE);
    }
    return bytes;
}

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::ranges::sort(files); // the order of the file system is not the same everywhere
    return files;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    std::mt19937 numbers(1);
    std::size_t asTheyAre = 0;
    int seeds = 0;
    feed("");
    for (int i = 1; i < argumentCount; ++i) {
        if (std::filesystem::is_directory(arguments[i])) {
            for (const auto& path : filesIn(arguments[i])) {
                feed(bytesOf(path));
                ++asTheyAre;
            }
            continue;
        }
        const std::string bytes = bytesOf(arguments[i]);
        ++seeds;
        feed(bytes);
        for (int copy = 0; copy < copiesOfAFile; ++copy)
            feed(damaged(bytes, numbers));
    }
    std::printf("%zu files of a corpus, %d seeds and %d damaged copies of each\n", asTheyAre, seeds, copiesOfAFile);
    return asTheyAre > 0 || seeds > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
