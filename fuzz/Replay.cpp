/// Feeds a fuzzer's function the files that are named, and copies of them that are damaged the same way every time.
/// What does not hold ends the process.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

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

} // namespace

int main(int argumentCount, char** arguments)
{
    std::mt19937 numbers(1);
    feed("");
    for (int i = 1; i < argumentCount; ++i) {
        std::ifstream file(arguments[i], std::ios::binary);
        const std::string bytes { std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>() };
        if (bytes.empty()) {
            std::fprintf(stderr, "%s: cannot be read, or is empty\n", arguments[i]);
            return EXIT_FAILURE;
        }
        feed(bytes);
        for (int copy = 0; copy < copiesOfAFile; ++copy)
            feed(damaged(bytes, numbers));
    }
    std::printf("%d files and %d damaged copies of each\n", argumentCount - 1, copiesOfAFile);
    return argumentCount > 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}
