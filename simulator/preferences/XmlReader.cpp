/// XML property lists read: Expat finds the elements, and what they may hold is decided here.
#include "simulator/preferences/ElementText.h"
#include "simulator/preferences/PropertyListFormats.h"
#include "simulator/text/Printable.h"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <type_traits>
#include <vector>

namespace panotra::preferences {

namespace {

enum class Element { PropertyList, Dictionary, Array, Key, Text, Integer, Real, Date, Data, True, False };

struct ElementName {
    std::string_view name;
    Element element;
};

constexpr ElementName elementNames[] = {
    { "plist", Element::PropertyList },
    { "dict", Element::Dictionary },
    { "array", Element::Array },
    { "key", Element::Key },
    { "string", Element::Text },
    { "integer", Element::Integer },
    { "real", Element::Real },
    { "date", Element::Date },
    { "data", Element::Data },
    { "true", Element::True },
    { "false", Element::False },
};

bool isCollection(Element element)
{
    return element == Element::Dictionary || element == Element::Array;
}

/// An element whose end has not come yet.
struct OpenElement {
    explicit OpenElement(const ElementName& row)
        : element(row.element)
        , name(row.name)
    {
    }

    Element element;
    std::string_view name;
    std::string text {}; ///< of what is no collection
    Array values {}; ///< of an array; of a property list, its one value
    Dictionary entries {};
    std::optional<std::string> key {}; ///< waits for its value
};

std::optional<Value> asValue(std::optional<Integer> integer)
{
    if (!integer)
        return std::nullopt;
    return std::visit([](auto number) { return Value { number }; }, *integer);
}

/// All versions that begin with 1 are read alike.
bool isKnownVersion(std::string_view version)
{
    return version.starts_with("1.") && version.size() > 2
        && version.find_first_not_of("0123456789", 2) == version.npos;
}

template <typename Kind> std::optional<Value> asValue(std::optional<Kind> content)
{
    return content ? std::optional(Value { std::move(*content) }) : std::nullopt;
}

/// The value that the text of an element stands for.
std::optional<Value> valueOfText(OpenElement& leaf)
{
    switch (leaf.element) {
    case Element::Text:
        return Value { std::move(leaf.text) };
    case Element::Integer:
        return asValue(integerOf(leaf.text));
    case Element::Real:
        return asValue(realOf(leaf.text));
    case Element::Date:
        return asValue(dateOf(leaf.text));
    case Element::Data:
        return asValue(dataOf(leaf.text));
    case Element::True:
    case Element::False:
        return leaf.text.empty() ? std::optional(Value { leaf.element == Element::True }) : std::nullopt;
    default:
        return std::nullopt;
    }
}

class XmlReader {
public:
    XmlReader()
        : m_parser(XML_ParserCreate(nullptr))
    {
        XML_SetUserData(m_parser.get(), this);
        XML_SetElementHandler(
            m_parser.get(),
            [](void* self, const XML_Char* name, const XML_Char**) { static_cast<XmlReader*>(self)->begin(name); },
            [](void* self, const XML_Char*) { static_cast<XmlReader*>(self)->end(); });
        XML_SetCharacterDataHandler(m_parser.get(), [](void* self, const XML_Char* text, int length) {
            static_cast<XmlReader*>(self)->addText({ text, static_cast<std::size_t>(length) });
        });
        XML_SetStartDoctypeDeclHandler(
            m_parser.get(), [](void* self, const XML_Char*, const XML_Char*, const XML_Char*, int hasDeclarations) {
                if (hasDeclarations != 0)
                    static_cast<XmlReader*>(self)->refuse("a document type with declarations of its own");
            });
        // Expat takes any version for the one it knows.
        XML_SetXmlDeclHandler(m_parser.get(), [](void* self, const XML_Char* version, const XML_Char*, int) {
            if (version != nullptr && !isKnownVersion(version))
                static_cast<XmlReader*>(self)->refuse("XML of version " + inQuotes(version));
        });
        // With a document type that is described elsewhere, any name could be an entity: Expat goes on without it.
        XML_SetSkippedEntityHandler(m_parser.get(), [](void* self, const XML_Char* name, int) {
            static_cast<XmlReader*>(self)->refuse("the entity " + inQuotes(name) + " is not known");
        });
    }

    ReadValue read(std::string_view bytes)
    {
        const auto status = XML_Parse(m_parser.get(), bytes.data(), static_cast<int>(bytes.size()), XML_TRUE);
        if (!m_objection.empty())
            return { std::nullopt, m_objection };
        if (status != XML_STATUS_OK) {
            const std::string reason = XML_ErrorString(XML_GetErrorCode(m_parser.get()));
            return { std::nullopt, "is no property list (" + line() + ": " + reason + ")" };
        }
        if (!m_root)
            return { std::nullopt, "is an empty property list" };
        return { std::move(m_root) };
    }

private:
    struct Free {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    void begin(std::string_view name)
    {
        if (!m_objection.empty())
            return;
        const auto row = std::ranges::find(elementNames, name, &ElementName::name);
        if (row == std::end(elementNames))
            return refuse("the element " + inQuotes(name) + " is not known");
        if (!mayStandHere(row->element))
            return refuse("no place for the element " + inQuotes(name));
        if (isCollection(row->element) && ++m_depth > deepestNesting)
            return object("nests its values too deeply");
        if (row->element != Element::PropertyList && row->element != Element::Key)
            object(m_extent.addValues(1));
        m_open.emplace_back(*row);
    }

    bool mayStandHere(Element element) const
    {
        if (m_open.empty())
            return !m_root && element != Element::Key;
        const OpenElement& parent = m_open.back();
        switch (parent.element) {
        case Element::PropertyList:
            return parent.values.empty() && element != Element::PropertyList && element != Element::Key;
        case Element::Array:
            return element != Element::PropertyList && element != Element::Key;
        case Element::Dictionary:
            return element != Element::PropertyList && (element == Element::Key) != parent.key.has_value();
        default:
            return false;
        }
    }

    void addText(std::string_view text)
    {
        if (!m_objection.empty())
            return;
        OpenElement& parent = m_open.back(); // Expat hands over no text outside the outermost element
        const bool isLeaf = !isCollection(parent.element) && parent.element != Element::PropertyList;
        if (isLeaf)
            parent.text += text;
        else if (text.find_first_not_of(" \t\r\n") != text.npos)
            refuse("text between elements");
    }

    void end()
    {
        if (!m_objection.empty())
            return;
        OpenElement element = std::move(m_open.back());
        m_open.pop_back();
        m_depth -= isCollection(element.element);
        switch (element.element) {
        case Element::PropertyList:
            if (!element.values.empty())
                m_root = std::move(element.values.front());
            return;
        case Element::Key:
            m_open.back().key = std::move(element.text);
            return;
        case Element::Array:
            return add({ std::move(element.values) });
        case Element::Dictionary:
            if (element.key)
                return refuse("the key " + inQuotes(*element.key) + " has no value");
            mergeEqualKeys(element.entries);
            return add({ std::move(element.entries) });
        default:
            return endLeaf(element);
        }
    }

    /// As much as fits on a line, in whole characters.
    static std::string_view excerpt(std::string_view text)
    {
        constexpr std::size_t most = 40;
        if (text.size() <= most)
            return text;
        std::size_t length = most;
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
            --length;
        return text.substr(0, length);
    }

    void endLeaf(OpenElement& leaf)
    {
        // Only a text is taken out of the element, and that is always a value.
        if (auto value = valueOfText(leaf))
            return add(std::move(*value));
        object("holds the " + std::string(leaf.name) + " " + inQuotes(excerpt(leaf.text)) + " (" + line()
            + "), which cannot be kept as it is");
    }

    void add(Value value)
    {
        if (m_open.empty()) {
            m_root = std::move(value);
            return;
        }
        OpenElement& parent = m_open.back();
        if (parent.element != Element::Dictionary) {
            parent.values.push_back(std::move(value));
            return;
        }
        parent.entries.push_back({ std::move(*parent.key), std::move(value) });
        parent.key.reset();
    }

    std::string line() const { return "line " + std::to_string(XML_GetCurrentLineNumber(m_parser.get())); }

    void refuse(const std::string& reason) { object("is no property list (" + line() + ": " + reason + ")"); }

    void object(std::optional<std::string> objection)
    {
        if (!objection || !m_objection.empty())
            return;
        m_objection = std::move(*objection);
        XML_StopParser(m_parser.get(), XML_FALSE);
    }

    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> m_parser;
    std::vector<OpenElement> m_open;
    std::size_t m_depth = 0; ///< of collections that are open
    Extent m_extent;
    std::optional<Value> m_root;
    std::string m_objection;
};

} // namespace

ReadValue readXml(std::string_view bytes)
{
    return XmlReader().read(bytes);
}

} // namespace panotra::preferences
