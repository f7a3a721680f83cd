/// Recomputes the ad-hoc code signature of a 64-bit Mach-O library: what a phone does page by page as it loads one.
///
///     check-signature LIBRARY
///
/// The signature must be of the shape that every system served accepts: a code directory of SHA-1 and one of SHA-256,
/// requirements that require nothing, an envelope without certificates, and every hash as recorded.
///
/// Prints one line and answers 0 if all is so; one line for each violation and 1 if not; 2 for a wrong command line or
/// a file that cannot be read.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
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
constexpr std::uint32_t segmentCommand = 0x19;
constexpr std::uint32_t codeSignatureCommand = 0x1d;

constexpr std::uint32_t signatureMagic = 0xfade0cc0;
constexpr std::uint32_t codeDirectoryMagic = 0xfade0c02;
constexpr std::uint32_t adHocFlags = 0x2;
constexpr std::size_t pageSize = 0x1000;
constexpr std::uint64_t memoryPageSize = 0x4000;

using HashFunction = unsigned char* (*)(const unsigned char*, std::size_t, unsigned char*);
struct Hash {
    const char* name;
    std::uint32_t slot;
    unsigned type;
    std::size_t size;
    HashFunction function;
};
constexpr Hash hashes[] = {
    { "SHA-1", 0, 1, SHA_DIGEST_LENGTH, SHA1 },
    { "SHA-256", 0x1000, 2, SHA256_DIGEST_LENGTH, SHA256 },
};

/// Parts of the signature that are the same in every library.
struct EmptyBlob {
    const char* name;
    std::uint32_t slot;
    std::vector<unsigned char> contents;
};
const EmptyBlob requirements { "requirements", 2, { 0xfa, 0xde, 0x0c, 0x01, 0, 0, 0, 12, 0, 0, 0, 0 } };
const EmptyBlob envelope { "envelope", 0x10000, { 0xfa, 0xde, 0x0b, 0x01, 0, 0, 0, 8 } };

/// Nothing more can be read.
struct Mistake : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::vector<std::string> complaints;
void require(bool isSo, const std::string& complaint)
{
    if (!isSo)
        complaints.push_back(complaint);
}

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

std::uint64_t bigEndian64(Bytes bytes, std::size_t offset)
{
    return std::uint64_t { bigEndian(bytes, offset) } << 32 | bigEndian(bytes, offset + 4);
}

/// The rest of the file the other way round.
std::uint32_t littleEndian(Bytes bytes, std::size_t offset)
{
    return __builtin_bswap32(bigEndian(bytes, offset));
}

std::uint64_t littleEndian64(Bytes bytes, std::size_t offset)
{
    return littleEndian(bytes, offset) | std::uint64_t { littleEndian(bytes, offset + 4) } << 32;
}

struct Segment {
    std::uint64_t memorySize = 0;
    std::uint64_t fileOffset = 0;
    std::uint64_t fileSize = 0;
};

struct Library {
    Bytes file;
    Segment text;
    Segment linkEdit;
    std::size_t signatureOffset = 0; ///< everything before it is signed
    std::size_t signatureSize = 0;
};

Library readCommands(Bytes file)
{
    if (littleEndian(file, 0) != machHeader64Magic)
        throw Mistake("is no 64-bit Mach-O file");
    Library library { file, {}, {}, 0, 0 };
    std::size_t command = firstCommandOffset;
    for (std::uint32_t left = littleEndian(file, commandCountOffset); left > 0; --left) {
        const std::uint32_t kind = littleEndian(file, command);
        if (kind == codeSignatureCommand) {
            library.signatureOffset = littleEndian(file, command + 8);
            library.signatureSize = littleEndian(file, command + 12);
        } else if (kind == segmentCommand) {
            const Bytes name = part(file, command + 8, 16);
            const Segment segment { littleEndian64(file, command + 32), littleEndian64(file, command + 40),
                littleEndian64(file, command + 48) };
            if (std::memcmp(name.data(), "__TEXT", sizeof "__TEXT") == 0)
                library.text = segment;
            if (std::memcmp(name.data(), "__LINKEDIT", sizeof "__LINKEDIT") == 0)
                library.linkEdit = segment;
        }
        const std::size_t size = littleEndian(file, command + 4);
        if (size == 0)
            throw Mistake("has a load command of no size");
        command += size;
    }
    if (library.signatureOffset == 0)
        throw Mistake("is not signed");
    return library;
}

/// The signature is the last thing in the file, inside a segment that was made large enough for it.
void checkPlace(const Library& library)
{
    const std::uint64_t end = library.signatureOffset + library.signatureSize;
    require(end == library.file.size(), "has its signature elsewhere than at its end");
    require(library.signatureOffset % 16 == 0, "has a signature at an odd place");
    require(library.linkEdit.fileOffset + library.linkEdit.fileSize == end,
        "has a segment __LINKEDIT that does not end with the signature");
    require(
        library.linkEdit.memorySize % memoryPageSize == 0 && library.linkEdit.memorySize >= library.linkEdit.fileSize,
        "has a segment __LINKEDIT of " + std::to_string(library.linkEdit.memorySize)
            + " bytes of memory, which are no pages of 16 KB or too few");
}

/// The signature's parts, in the order of their slots, and nothing else.
std::array<Bytes, 4> readSlots(Bytes signature)
{
    if (bigEndian(signature, 0) != signatureMagic)
        throw Mistake("has a signature of an unknown kind");
    constexpr std::uint32_t expected[] = { hashes[0].slot, 2, hashes[1].slot, 0x10000 };
    std::array<Bytes, 4> found;
    if (bigEndian(signature, 8) != found.size())
        throw Mistake("has a signature of " + std::to_string(bigEndian(signature, 8)) + " parts, not 4");
    std::size_t end = 12 + 8 * found.size();
    for (std::size_t index = 0; index < found.size(); ++index) {
        const std::uint32_t slot = bigEndian(signature, 12 + 8 * index);
        const std::size_t offset = bigEndian(signature, 16 + 8 * index);
        if (slot != expected[index])
            throw Mistake("has a signature whose part " + std::to_string(index + 1) + " is for slot "
                + std::to_string(slot) + ", not " + std::to_string(expected[index]));
        found[index] = part(signature, offset, bigEndian(signature, offset + 4));
        require(offset == end, "has a signature with a gap or an overlap before slot " + std::to_string(slot));
        end = offset + found[index].size();
    }
    require(bigEndian(signature, 4) == end, "has a signature whose length is not that of its parts");
    for (const unsigned char byte : signature.subspan(std::min(end, signature.size())))
        require(byte == 0, "has something behind its signature");
    return found;
}

void checkEmpty(Bytes blob, const EmptyBlob& expected)
{
    require(std::ranges::equal(blob, expected.contents),
        std::string("has a signature whose part for the ") + expected.name + " is not the empty one");
}

bool isHashOf(const Hash& hash, Bytes recorded, Bytes contents)
{
    unsigned char computed[SHA256_DIGEST_LENGTH];
    hash.function(contents.data(), contents.size(), computed);
    return std::equal(recorded.begin(), recorded.end(), computed);
}

/// The number of pages, all of whose hashes were looked at.
std::size_t checkDirectory(const Library& library, const Hash& hash, Bytes directory, const std::string& identifier)
{
    const std::string name = hash.name;
    if (bigEndian(directory, 0) != codeDirectoryMagic)
        throw Mistake("has a code directory of an unknown kind where " + name + " belongs");
    require(bigEndian(directory, 8) == 0x20400, "has a code directory of " + name + " of another version");
    require(bigEndian(directory, 12) == adHocFlags, "is not signed ad hoc, or not that alone, with " + name);

    const Bytes types = part(directory, 36, 4); // hash size, hash type, platform, binary logarithm of the page size
    if (types[0] != hash.size || types[1] != hash.type)
        throw Mistake("is signed with hashes of another kind where " + name + " belongs");
    if (types[3] != 12)
        throw Mistake("is signed with " + name + " in pages of another size than 4 KB");
    require(types[2] == 0, "is signed with " + name + " for a platform of its own");

    const std::size_t codeLimit = bigEndian(directory, 32);
    if (codeLimit != library.signatureOffset)
        throw Mistake("is signed with " + name + " up to another place than where the signature begins");
    const std::size_t pageCount = bigEndian(directory, 28);
    if (pageCount != (codeLimit + pageSize - 1) / pageSize)
        throw Mistake("has hashes of " + name + " for another number of pages");
    require(
        bigEndian64(directory, 64) == library.text.fileOffset && bigEndian64(directory, 72) == library.text.fileSize,
        "has a code directory of " + name + " that says another place of the code");

    const std::size_t identifierOffset = bigEndian(directory, 20);
    const Bytes written = part(directory, identifierOffset, identifier.size() + 1);
    require(std::equal(identifier.begin(), identifier.end(), written.begin()) && written.back() == 0,
        "is signed with " + name + " under another name than " + identifier);

    // The slots before the first page's count backwards.
    const std::size_t hashOffset = bigEndian(directory, 16);
    if (bigEndian(directory, 24) != 2 || hashOffset < 2 * hash.size)
        throw Mistake("has another number of special slots of " + name + " than 2");
    require(isHashOf(hash, part(directory, hashOffset - 2 * hash.size, hash.size), requirements.contents),
        "has requirements that do not hash as recorded with " + name);
    require(
        std::ranges::all_of(part(directory, hashOffset - hash.size, hash.size), [](auto byte) { return byte == 0; }),
        "has a hash of " + name + " for a property list that it does not have");
    for (std::size_t page = 0; page < pageCount; ++page) {
        const std::size_t start = page * pageSize;
        require(isHashOf(hash, part(directory, hashOffset + page * hash.size, hash.size),
                    part(library.file, start, std::min(pageSize, codeLimit - start))),
            "differs from its signature of " + name + " in page " + std::to_string(page));
    }
    require(hashOffset + pageCount * hash.size == directory.size(),
        "has a code directory of " + name + " that is too long");
    return pageCount;
}

std::size_t check(Bytes file, const std::string& identifier)
{
    const Library library = readCommands(file);
    checkPlace(library);
    const auto [first, second, third, fourth] = readSlots(part(file, library.signatureOffset, library.signatureSize));
    checkEmpty(second, requirements);
    checkEmpty(fourth, envelope);
    const std::size_t pageCount = checkDirectory(library, hashes[0], first, identifier);
    checkDirectory(library, hashes[1], third, identifier);
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
    std::size_t pages = 0;
    try {
        pages = check(file, std::filesystem::path(argv[1]).filename().string());
    } catch (const Mistake& mistake) {
        complaints.push_back(mistake.what());
    }
    for (const std::string& complaint : complaints)
        std::fprintf(stderr, "%s: %s\n", argv[1], complaint.c_str());
    if (!complaints.empty())
        return 1;
    std::printf("signature: %zu pages hash as recorded, with SHA-1 and with SHA-256\n", pages);
    return 0;
}
