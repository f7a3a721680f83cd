/// What is well-formed UTF-8 and what is not.
#include "simulator/preferences/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace panotra::preferences {

namespace {

struct Form {
    unsigned char mask; ///< the bits of the first byte that tell the form
    unsigned char pattern; ///< what they are
    std::size_t length; ///< bytes
    std::uint32_t lowest; ///< below it, a shorter form would have done
};

constexpr Form forms[] = {
    { 0x80, 0x00, 1, 0 },
    { 0xE0, 0xC0, 2, 0x80 },
    { 0xF0, 0xE0, 3, 0x800 },
    { 0xF8, 0xF0, 4, 0x10000 },
};

const Form* formOf(unsigned char first)
{
    for (const Form& form : forms) {
        if ((first & form.mask) == form.pattern)
            return &form;
    }
    return nullptr;
}

} // namespace

bool isUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto first = static_cast<unsigned char>(text[at]);
        const Form* form = formOf(first);
        if (form == nullptr || text.size() - at < form->length)
            return false;
        std::uint32_t character = first & static_cast<unsigned char>(~form->mask);
        for (std::size_t i = 1; i < form->length; ++i) {
            const auto next = static_cast<unsigned char>(text[at + i]);
            if ((next & 0xC0) != 0x80)
                return false;
            character = character << 6 | (next & 0x3F);
        }
        const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
        if (character < form->lowest || character > 0x10FFFF || isSurrogate)
            return false;
        at += form->length;
    }
    return true;
}

} // namespace panotra::preferences
