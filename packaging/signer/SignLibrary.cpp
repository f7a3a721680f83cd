/// Signs a 64-bit Mach-O library ad hoc, in the shape that the signers on phones leave.
///
///     sign-library LIBRARY
///
/// The linker signs as well, but with SHA-256 alone, which systems before iOS 11 do not know. So its signature is
/// replaced by one that holds, in this order, a code directory of SHA-1, requirements that require nothing, a code
/// directory of SHA-256, and an envelope without certificates. LIBRARY is overwritten.
///
/// Says nothing and answers 0; one line of complaint and 1 for a file that cannot be signed, which stays as it was; 2
/// for a wrong command line or a file that cannot be read or written.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <openssl/evp.h>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;

struct Mistake : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What is hashed at a time. Every system that is served takes this size, whatever that of its own pages.
constexpr std::size_t pageSize = 4096;
constexpr unsigned char pageSizeLogarithm = 12;
/// The larger of the sizes of memory pages in use: segments end at a multiple of it.
constexpr std::uint64_t memoryPageSize = 0x4000;
constexpr std::size_t signatureAlignment = 16;

// The file: the least significant byte first.
constexpr std::uint32_t machHeader64Magic = 0xfeedfacf;
constexpr std::size_t firstCommandOffset = 32;
constexpr std::uint32_t segmentCommand = 0x19;
constexpr std::uint32_t codeSignatureCommand = 0x1d;

// The signature: the most significant byte first.
constexpr std::uint32_t superBlobMagic = 0xfade0cc0;
constexpr std::uint32_t codeDirectoryMagic = 0xfade0c02;
constexpr std::uint32_t requirementsMagic = 0xfade0c01;
constexpr std::uint32_t envelopeMagic = 0xfade0b01;
/// The first version that says where the code itself begins and ends.
constexpr std::uint32_t codeDirectoryVersion = 0x20400;
constexpr std::size_t codeDirectoryHeaderSize = 88;
constexpr std::uint32_t adHocFlag = 0x2;
/// The slots before the first page's: requirements, and the property list that a library has not got.
constexpr std::uint32_t specialSlotCount = 2;

struct HashKind {
    std::uint32_t slot; ///< of the directory, in the signature
    unsigned char number; ///< as the directory names it
    unsigned char size; ///< bytes
    const EVP_MD* (*algorithm)();
};
constexpr HashKind sha1 { 0, 1, 20, EVP_sha1 };
constexpr HashKind sha256 { 0x1000, 2, 32, EVP_sha256 };
constexpr std::uint32_t requirementsSlot = 2;
constexpr std::uint32_t envelopeSlot = 0x10000;

template <typename Number> Number readNumber(const Bytes& file, std::size_t offset)
{
    if (offset > file.size() || sizeof(Number) > file.size() - offset)
        throw Mistake("ends in the middle of something");
    Number number = 0;
    for (std::size_t byte = sizeof number; byte > 0; --byte)
        number = static_cast<Number>(number << 8 | file[offset + byte - 1]);
    return number;
}

template <typename Number> void writeNumber(Bytes& file, std::size_t offset, Number number)
{
    for (std::size_t byte = 0; byte < sizeof number; ++byte)
        file.at(offset + byte) = static_cast<unsigned char>(number >> (8 * byte));
}

template <typename Number> void append(Bytes& blob, Number number)
{
    for (std::size_t byte = sizeof number; byte > 0; --byte)
        blob.push_back(static_cast<unsigned char>(number >> (8 * (byte - 1))));
}

void append(Bytes& blob, const Bytes& other)
{
    blob.insert(blob.end(), other.begin(), other.end());
}

Bytes hash(const HashKind& kind, std::span<const unsigned char> contents)
{
    Bytes result(kind.size);
    unsigned size = 0;
    if (EVP_Digest(contents.data(), contents.size(), result.data(), &size, kind.algorithm(), nullptr) != 1
        || size != kind.size)
        throw Mistake("cannot be hashed: OpenSSL refuses");
    return result;
}

/// Where the load commands stand that a signature changes or quotes.
struct Layout {
    std::size_t signature = 0;
    std::size_t text = 0;
    std::size_t linkEdit = 0;
};

// Offsets inside the commands.
constexpr std::size_t dataOffset = 8;
constexpr std::size_t dataSize = 12;
constexpr std::size_t segmentMemorySize = 32;
constexpr std::size_t segmentFileOffset = 40;
constexpr std::size_t segmentFileSize = 48;

Layout findCommands(const Bytes& file)
{
    if (readNumber<std::uint32_t>(file, 0) != machHeader64Magic)
        throw Mistake("is no 64-bit Mach-O file");
    Layout layout;
    std::size_t command = firstCommandOffset;
    for (auto left = readNumber<std::uint32_t>(file, 16); left > 0; --left) {
        const auto kind = readNumber<std::uint32_t>(file, command);
        if (kind == codeSignatureCommand)
            layout.signature = command;
        if (kind == segmentCommand) {
            char name[17] = {};
            for (std::size_t letter = 0; letter < 16; ++letter)
                name[letter] = static_cast<char>(readNumber<unsigned char>(file, command + 8 + letter));
            if (name == std::string_view("__TEXT"))
                layout.text = command;
            if (name == std::string_view("__LINKEDIT"))
                layout.linkEdit = command;
        }
        const auto size = readNumber<std::uint32_t>(file, command + 4);
        if (size == 0)
            throw Mistake("has a load command of no size");
        command += size;
    }
    if (layout.signature == 0)
        throw Mistake("has no signature that could be replaced; the linker's -adhoc_codesign makes one");
    if (layout.text == 0 || layout.linkEdit == 0)
        throw Mistake("lacks the segment __TEXT or __LINKEDIT");
    return layout;
}

Bytes emptyRequirements()
{
    Bytes blob;
    append(blob, requirementsMagic);
    append(blob, std::uint32_t { 12 });
    append(blob, std::uint32_t { 0 });
    return blob;
}

Bytes emptyEnvelope()
{
    Bytes blob;
    append(blob, envelopeMagic);
    append(blob, std::uint32_t { 8 });
    return blob;
}

std::size_t pageCount(std::size_t codeLimit)
{
    return (codeLimit + pageSize - 1) / pageSize;
}

std::size_t directorySize(const HashKind& kind, const std::string& identifier, std::size_t codeLimit)
{
    return codeDirectoryHeaderSize + identifier.size() + 1 + (specialSlotCount + pageCount(codeLimit)) * kind.size;
}

/// `file` is what is signed: everything before the signature.
Bytes codeDirectory(const HashKind& kind, const std::string& identifier, const Bytes& file, const Layout& layout)
{
    const std::size_t identifierOffset = codeDirectoryHeaderSize;
    const std::size_t firstPage = identifierOffset + identifier.size() + 1 + specialSlotCount * kind.size;
    Bytes blob;
    const auto append32 = [&blob](std::size_t number) {
        append(blob, static_cast<std::uint32_t>(number));
    };
    append32(codeDirectoryMagic);
    append32(directorySize(kind, identifier, file.size()));
    append32(codeDirectoryVersion);
    append32(adHocFlag);
    append32(firstPage);
    append32(identifierOffset);
    append32(specialSlotCount);
    append32(pageCount(file.size()));
    append32(file.size());
    for (const unsigned char byte : { kind.size, kind.number, static_cast<unsigned char>(0), pageSizeLogarithm })
        blob.push_back(byte);
    for (int unused = 0; unused < 4; ++unused)
        append32(0); // nothing, no scattered pages, no team, nothing
    append(blob, std::uint64_t { 0 }); // files of more than 4 GB
    append(blob, readNumber<std::uint64_t>(file, layout.text + segmentFileOffset));
    append(blob, readNumber<std::uint64_t>(file, layout.text + segmentFileSize));
    append(blob, std::uint64_t { 0 }); // no program's main code
    blob.insert(blob.end(), identifier.begin(), identifier.end());
    blob.push_back(0);
    append(blob, hash(kind, emptyRequirements()));
    append(blob, Bytes(kind.size)); // no property list
    for (std::size_t start = 0; start < file.size(); start += pageSize)
        append(blob, hash(kind, std::span(file).subspan(start, std::min(pageSize, file.size() - start))));
    return blob;
}

std::uint64_t roundUp(std::uint64_t size, std::uint64_t multiple)
{
    return (size + multiple - 1) / multiple * multiple;
}

/// Makes room: the headers are signed, too, and have to be right before anything is hashed.
std::size_t setSizes(Bytes& file, const Layout& layout, std::size_t signatureSize)
{
    const auto offset = readNumber<std::uint32_t>(file, layout.signature + dataOffset);
    const auto start = readNumber<std::uint64_t>(file, layout.linkEdit + segmentFileOffset);
    const auto end = std::uint64_t { offset } + readNumber<std::uint32_t>(file, layout.signature + dataSize);
    if (end != file.size() || offset % signatureAlignment != 0 || start > offset)
        throw Mistake("does not end with its signature");
    file.resize(offset);
    const auto size = static_cast<std::uint32_t>(roundUp(signatureSize, signatureAlignment));
    const std::uint64_t segmentSize = offset + size - start;
    writeNumber(file, layout.signature + dataSize, size);
    writeNumber(file, layout.linkEdit + segmentFileSize, segmentSize);
    writeNumber(file, layout.linkEdit + segmentMemorySize, roundUp(segmentSize, memoryPageSize));
    return size;
}

void sign(Bytes& file, const std::string& identifier)
{
    const Layout layout = findCommands(file);
    const std::size_t codeLimit = readNumber<std::uint32_t>(file, layout.signature + dataOffset);
    struct Slot {
        std::uint32_t number;
        std::size_t size;
    };
    const Slot slots[] = {
        { sha1.slot, directorySize(sha1, identifier, codeLimit) },
        { requirementsSlot, emptyRequirements().size() },
        { sha256.slot, directorySize(sha256, identifier, codeLimit) },
        { envelopeSlot, emptyEnvelope().size() },
    };
    std::size_t size = 12 + 8 * std::size(slots);
    Bytes index;
    for (const Slot& slot : slots) {
        append(index, slot.number);
        append(index, static_cast<std::uint32_t>(size));
        size += slot.size;
    }
    const std::size_t room = setSizes(file, layout, size);

    Bytes signature;
    append(signature, superBlobMagic);
    append(signature, static_cast<std::uint32_t>(size));
    append(signature, static_cast<std::uint32_t>(std::size(slots)));
    append(signature, index);
    append(signature, codeDirectory(sha1, identifier, file, layout));
    append(signature, emptyRequirements());
    append(signature, codeDirectory(sha256, identifier, file, layout));
    append(signature, emptyEnvelope());
    signature.resize(room);
    append(file, signature);
}

/// Whole or not at all: a build that is interrupted must not find half a library later.
bool replaceFile(const std::filesystem::path& path, const Bytes& contents)
{
    std::filesystem::path whole = path;
    whole += ".signed";
    {
        std::ofstream stream(whole, std::ios::binary | std::ios::trunc);
        stream.write(reinterpret_cast<const char*>(contents.data()), static_cast<std::streamsize>(contents.size()));
        if (!stream.flush())
            return false;
    }
    std::error_code error;
    std::filesystem::permissions(whole, std::filesystem::status(path, error).permissions(), error);
    if (!error)
        std::filesystem::rename(whole, path, error);
    return !error;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: sign-library LIBRARY\n", stderr);
        return 2;
    }
    const std::filesystem::path path = argv[1];
    std::ifstream stream(path, std::ios::binary);
    Bytes file { std::istreambuf_iterator<char>(stream), {} };
    if (!stream.is_open() || stream.bad()) {
        std::fprintf(stderr, "%s: cannot be read\n", argv[1]);
        return 2;
    }
    stream.close();
    try {
        sign(file, path.filename().string());
    } catch (const Mistake& mistake) {
        std::fprintf(stderr, "%s: %s\n", argv[1], mistake.what());
        return 1;
    }
    if (!replaceFile(path, file)) {
        std::fprintf(stderr, "%s: cannot be written\n", argv[1]);
        return 2;
    }
    return 0;
}
