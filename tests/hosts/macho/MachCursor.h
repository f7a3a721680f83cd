/// Reads numbers and names out of bytes that nobody vouches for.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>

namespace panotra::hosts {

/// A file that cannot be loaded; the message says why.
struct MachError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

using Bytes = std::span<const std::byte>;

/// Goes through bytes from front to back. Every step past the end throws MachError.
class MachCursor {
public:
    explicit MachCursor(Bytes bytes)
        : m_rest(bytes)
    {
    }

    bool isAtEnd() const { return m_rest.empty(); }

    Bytes take(std::uint64_t count)
    {
        if (count > m_rest.size())
            throw MachError("ends in the middle of something");
        const Bytes taken = m_rest.first(count);
        m_rest = m_rest.subspan(count);
        return taken;
    }

    /// A number of the file's byte order, which is that of the machines this runs on.
    template <std::integral Number> Number number()
    {
        Number value;
        std::memcpy(&value, take(sizeof value).data(), sizeof value);
        return value;
    }

    /// Seven bits a byte, the lowest first.
    std::uint64_t uleb()
    {
        std::uint64_t value = 0;
        for (unsigned shift = 0;; shift += 7) {
            const auto byte = number<std::uint8_t>();
            const std::uint64_t bits = byte & 0x7f;
            if (shift > 63 || (bits << shift) >> shift != bits)
                throw MachError("holds a number of more than 64 bits");
            value |= bits << shift;
            if ((byte & 0x80) == 0)
                return value;
        }
    }

    /// The same, with a sign.
    std::int64_t sleb()
    {
        std::uint64_t value = 0;
        for (unsigned shift = 0;; shift += 7) {
            const auto byte = number<std::uint8_t>();
            if (shift > 63)
                throw MachError("holds a number of more than 64 bits");
            value |= std::uint64_t { byte & 0x7fu } << shift;
            if ((byte & 0x80) != 0)
                continue;
            if ((byte & 0x40) != 0 && shift + 7 < 64)
                value |= ~std::uint64_t { 0 } << (shift + 7);
            return static_cast<std::int64_t>(value);
        }
    }

    /// Up to its end, which is a zero.
    std::string text()
    {
        std::string value;
        while (const auto character = number<char>())
            value += character;
        return value;
    }

    /// Of a field of a fixed length, which a shorter name fills with zeros.
    std::string name(std::size_t length)
    {
        const Bytes field = take(length);
        std::string value(reinterpret_cast<const char*>(field.data()), field.size());
        return value.substr(0, value.find('\0'));
    }

private:
    Bytes m_rest;
};

} // namespace panotra::hosts
