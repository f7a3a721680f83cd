/// A property list in memory: a dictionary of which only some values are settings, and all are kept.
#include "simulator/preferences/PropertyListTree.h"

#include "simulator/preferences/PropertyListGuard.h"
#include "simulator/preferences/Utf8.h"

#include <plist/plist.h>

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace panotra::preferences {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Memory that the property list library hands over.
struct FreeMemory {
    void operator()(char* memory) const { std::free(memory); }
};
using Memory = std::unique_ptr<char, FreeMemory>;

std::string serialized(plist_t node, void (*serializer)(plist_t, char**, std::uint32_t*))
{
    char* bytes = nullptr;
    std::uint32_t length = 0;
    serializer(node, &bytes, &length);
    const Memory owned(bytes);
    return bytes == nullptr ? std::string() : std::string(bytes, length);
}

/// The library knows whether an integer is signed, and tells only in writing.
bool isNegative(plist_t integer)
{
    return serialized(integer, plist_to_xml).find(">-") != std::string::npos;
}

Json integerOf(plist_t node)
{
    std::uint64_t bits = 0;
    plist_get_uint_val(node, &bits);
    const bool fitsSigned = bits <= std::uint64_t { std::numeric_limits<std::int64_t>::max() };
    return fitsSigned || isNegative(node) ? Json(static_cast<std::int64_t>(bits)) : Json(bits);
}

Json stringOf(plist_t node)
{
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    const std::string_view string(text == nullptr ? "" : text, text == nullptr ? 0 : length);
    return isUtf8(string) ? Json(string) : Json();
}

Json valueOf(plist_t node)
{
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
        return plist_bool_val_is_true(node) != 0;
    case PLIST_UINT:
        return integerOf(node);
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING:
        return stringOf(node);
    default:
        return nullptr;
    }
}

/// XML has no way to write most control characters, and readers take a carriage return for a line feed.
bool hasUnwritableCharacter(std::string_view xml)
{
    return std::ranges::any_of(xml, [](unsigned char byte) { return byte < 0x20 && byte != '\t' && byte != '\n'; });
}

} // namespace

void PropertyListTree::Free::operator()(void* node) const
{
    plist_free(node);
}

PropertyListTree::PropertyListTree()
    : m_root(plist_new_dict())
{
}

PropertyListTree::PropertyListTree(Node root, Format format)
    : m_root(std::move(root))
    , m_format(format)
{
}

PropertyListTree::Parsed PropertyListTree::parse(std::string_view bytes)
{
    if (bytes.starts_with(byteOrderMark))
        bytes.remove_prefix(byteOrderMark.size());
    if (auto objection = objectionTo(bytes))
        return { std::nullopt, std::move(*objection) };
    const Format format = bytes.starts_with(binaryMark) ? Format::Binary : Format::Xml;
    const auto parser = format == Format::Binary ? plist_from_bin : plist_from_xml;
    plist_t parsed = nullptr;
    parser(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &parsed);
    Node root(parsed);
    if (root == nullptr)
        return { std::nullopt, "is no property list" };
    if (plist_get_node_type(root.get()) != PLIST_DICT)
        return { std::nullopt, "is a property list but no dictionary" };
    return { PropertyListTree(std::move(root), format), {} };
}

Settings PropertyListTree::settings() const
{
    Settings settings;
    plist_dict_iter created = nullptr;
    plist_dict_new_iter(m_root.get(), &created);
    const std::unique_ptr<void, decltype(&std::free)> iterator(created, &std::free);
    for (;;) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(m_root.get(), iterator.get(), &key, &value);
        const Memory ownedKey(key);
        if (value == nullptr)
            return settings;
        if (isUtf8(key))
            settings.append(key, valueOf(value));
    }
}

bool PropertyListTree::apply(const Change& change)
{
    const char* key = change.key.c_str();
    const plist_t present = plist_dict_get_item(m_root.get(), key);
    if (!change.value) {
        if (present != nullptr)
            plist_dict_remove_item(m_root.get(), key);
        return present != nullptr;
    }
    assert(isStorable(*change.value));
    if (present != nullptr && isIdentical(valueOf(present), *change.value))
        return false;
    plist_dict_set_item(m_root.get(), key, nodeOf(*change.value).release());
    return true;
}

PropertyListTree::Node PropertyListTree::nodeOf(const Json& value)
{
    if (value.is_boolean())
        return Node(plist_new_bool(value.get<bool>()));
    if (value.is_string())
        return Node(plist_new_string(value.get_ref<const std::string&>().c_str()));
    if (value.is_number_float())
        return Node(plist_new_real(value.get<double>()));
    // The constructor takes every integer above the signed range for a negative one; reading tells them apart.
    const std::string text = "<plist version=\"1.0\"><integer>" + value.dump() + "</integer></plist>";
    plist_t integer = nullptr;
    plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &integer);
    return Node(integer);
}

std::optional<std::string> PropertyListTree::serialize() const
{
    if (m_format == Format::Xml) {
        std::string text = xml();
        if (!hasUnwritableCharacter(text) && isReadBackFrom(text))
            return text;
    }
    std::string bytes = binary();
    if (isReadBackFrom(bytes))
        return bytes;
    return std::nullopt;
}

std::string PropertyListTree::binary() const
{
    return serialized(m_root.get(), plist_to_bin);
}

std::string PropertyListTree::xml() const
{
    return serialized(m_root.get(), plist_to_xml);
}

bool PropertyListTree::isReadBackFrom(std::string_view bytes) const
{
    const Parsed back = parse(bytes);
    return back.tree && back.tree->binary() == binary();
}

} // namespace panotra::preferences
