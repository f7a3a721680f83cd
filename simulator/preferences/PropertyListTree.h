/// A property list in memory: a dictionary of which only some values are settings, and all are kept.
#pragma once

#include "simulator/preferences/PropertyListValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace panotra::preferences {

class Settings;
struct Change;

class PropertyListTree {
public:
    /// An empty dictionary, to be written as XML.
    PropertyListTree() = default;

    struct Parsed;
    /// XML or binary. What is no dictionary is refused, and so is what could not be written back as it was.
    static Parsed parse(std::string_view bytes);

    /// Every key in the order of the file.
    Settings settings() const;

    /// Whether the change would make anything different.
    bool isChangedBy(const Change& change) const;
    /// Whether anything is different now. Values must be storable, keys and texts UTF-8, perhaps with NUL in them.
    bool apply(const Change& change);

    struct Serialized;
    /// The bytes of a file that reads back as this very tree: in the format in which it came, or binary where XML
    /// cannot hold it.
    Serialized serialize() const;

private:
    enum class Format { Xml, Binary };

    const Dictionary& entries() const { return *std::get_if<Dictionary>(&m_root.content); }
    Dictionary& entries() { return *std::get_if<Dictionary>(&m_root.content); }

    Value m_root { Dictionary() };
    Format m_format = Format::Xml;
};

struct PropertyListTree::Parsed {
    std::optional<PropertyListTree> tree;
    /// Without a tree, why: the end of a sentence that begins with the file's name.
    std::string objection {};
};

struct PropertyListTree::Serialized {
    std::optional<std::string> bytes;
    /// Without bytes, why: the end of a sentence that begins with "it".
    std::string objection {};
};

} // namespace panotra::preferences
