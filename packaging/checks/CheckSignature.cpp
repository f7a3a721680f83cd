/// Recomputes the ad-hoc code signature of a 64-bit Mach-O library: what a phone does page by page as it loads one.
///
///     check-signature LIBRARY
///
/// Prints one line and answers 0 if every page's hash is the recorded one; one line of complaint and 1 if not; 2 for a
/// wrong command line or a file that cannot be read.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <openssl/sha.h>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Bytes = std::span<const unsigned char>;

// What a Mach-O file and the signature inside it are made of: only the fields that are read here.
constexpr std::uint32_t machHeader64Magic = 0xfeedfacf;
constexpr std::size_t commandCountOffset = 16;
constexpr std::size_t firstCommandOffset = 32;
constexpr std::uint32_t codeSignatureCommand = 0x1d;

constexpr std::uint32_t signatureMagic = 0xfade0cc0;
constexpr std::size_t signatureIndexOffset = 12;
constexpr std::size_t signatureIndexStride = 8;
constexpr std::uint32_t codeDirectorySlot = 0;

constexpr std::uint32_t codeDirectoryMagic = 0xfade0c02;
constexpr std::uint32_t adHocFlag = 0x2;
constexpr unsigned sha256HashType = 2;

struct Mistake : std::runtime_error {
    using std::runtime_error::runtime_error;
};

Bytes part(Bytes bytes, std::size_t offset, std::size_t size)
{
    if (offset > bytes.size() || size > bytes.size() - offset)
        throw Mistake("ends in the middle of something");
    return bytes.subspan(offset, size);
}

/// Code signatures are written the most significant byte first.
std::uint32_t bigEndian(Bytes bytes, std::size_t offset)
{
    std::uint32_t number = 0;
    for (const unsigned char byte : part(bytes, offset, 4))
        number = number << 8 | byte;
    return number;
}

/// The rest of the file the other way round.
std::uint32_t littleEndian(Bytes bytes, std::size_t offset)
{
    return __builtin_bswap32(bigEndian(bytes, offset));
}

struct Signature {
    std::size_t offset; ///< in the file: everything before it is signed
    Bytes blob;
};

Signature findSignature(Bytes file)
{
    if (littleEndian(file, 0) != machHeader64Magic)
        throw Mistake("is no 64-bit Mach-O file");
    std::size_t command = firstCommandOffset;
    for (std::uint32_t left = littleEndian(file, commandCountOffset); left > 0; --left) {
        if (littleEndian(file, command) == codeSignatureCommand) {
            const std::size_t offset = littleEndian(file, command + 8);
            return { offset, part(file, offset, littleEndian(file, command + 12)) };
        }
        const std::size_t size = littleEndian(file, command + 4);
        if (size == 0)
            throw Mistake("has a load command of no size");
        command += size;
    }
    throw Mistake("is not signed");
}

Bytes findCodeDirectory(Bytes signature)
{
    if (bigEndian(signature, 0) != signatureMagic)
        throw Mistake("has a signature of an unknown kind");
    std::size_t entry = signatureIndexOffset;
    for (std::uint32_t left = bigEndian(signature, 8); left > 0; --left, entry += signatureIndexStride) {
        if (bigEndian(signature, entry) != codeDirectorySlot)
            continue;
        const std::size_t offset = bigEndian(signature, entry + 4);
        if (bigEndian(signature, offset) != codeDirectoryMagic)
            throw Mistake("has a code directory of an unknown kind");
        return part(signature, offset, bigEndian(signature, offset + 4));
    }
    throw Mistake("has a signature without a code directory");
}

/// The number of pages whose hashes are right, which are all.
std::size_t checkPages(Bytes file, std::size_t signedBytes, Bytes directory)
{
    const std::size_t hashes = bigEndian(directory, 16);
    const std::size_t pageCount = bigEndian(directory, 28);
    const std::size_t codeLimit = bigEndian(directory, 32);
    const Bytes types = part(directory, 36, 4); // hash size, hash type, platform, binary logarithm of the page size
    if ((bigEndian(directory, 12) & adHocFlag) == 0)
        throw Mistake("is not signed ad hoc");
    if (types[0] != SHA256_DIGEST_LENGTH || types[1] != sha256HashType || types[3] > 24)
        throw Mistake("is signed with hashes of another kind than SHA-256");
    if (codeLimit != signedBytes)
        throw Mistake("is signed up to another place than where the signature begins");
    const std::size_t pageSize = std::size_t { 1 } << types[3];
    if (pageCount != (codeLimit + pageSize - 1) / pageSize)
        throw Mistake("has hashes for another number of pages");

    for (std::size_t page = 0; page < pageCount; ++page) {
        const std::size_t start = page * pageSize;
        const Bytes contents = part(file, start, std::min(pageSize, codeLimit - start));
        const Bytes recorded = part(directory, hashes + page * SHA256_DIGEST_LENGTH, SHA256_DIGEST_LENGTH);
        unsigned char computed[SHA256_DIGEST_LENGTH];
        SHA256(contents.data(), contents.size(), computed);
        if (!std::equal(recorded.begin(), recorded.end(), computed))
            throw Mistake("differs from its signature in page " + std::to_string(page));
    }
    return pageCount;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: check-signature LIBRARY\n", stderr);
        return 2;
    }
    std::ifstream stream(argv[1], std::ios::binary);
    const std::vector<unsigned char> file { std::istreambuf_iterator<char>(stream), {} };
    if (!stream.is_open() || stream.bad()) {
        std::fprintf(stderr, "%s: cannot be read\n", argv[1]);
        return 2;
    }
    try {
        const Signature signature = findSignature(file);
        const std::size_t pages = checkPages(file, signature.offset, findCodeDirectory(signature.blob));
        std::printf("signature: %zu pages hash as recorded\n", pages);
        return 0;
    } catch (const Mistake& mistake) {
        std::fprintf(stderr, "%s: %s\n", argv[1], mistake.what());
        return 1;
    }
}
