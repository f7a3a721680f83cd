/// A property list in memory: a dictionary of which only some values are settings, and all are kept.
#pragma once

#include "simulator/preferences/Settings.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace panotra::preferences {

class PropertyListTree {
public:
    /// An empty dictionary, to be written as XML.
    PropertyListTree();

    struct Parsed;
    /// XML or binary. What is no dictionary is refused, and so is what could not be written back as it was.
    static Parsed parse(std::string_view bytes);

    /// Every key in the order of the file. A key that is not UTF-8 is left out.
    Settings settings() const;

    /// Whether anything is different now. Values must be storable, keys hold no NUL.
    bool apply(const Change& change);

    /// The bytes of a file that reads back as this very tree: in the format in which it came, or binary where XML
    /// would bring something back different. None: neither format can hold it.
    std::optional<std::string> serialize() const;

private:
    struct Free {
        void operator()(void* node) const;
    };
    using Node = std::unique_ptr<void, Free>;
    enum class Format { Xml, Binary };

    PropertyListTree(Node root, Format format);
    static Node nodeOf(const Json& value);
    std::string binary() const;
    std::string xml() const;
    bool isReadBackFrom(std::string_view bytes) const;

    Node m_root;
    Format m_format = Format::Xml;
};

struct PropertyListTree::Parsed {
    std::optional<PropertyListTree> tree;
    /// Without a tree, why: the end of a sentence that begins with the file's name.
    std::string objection;
};

} // namespace panotra::preferences
