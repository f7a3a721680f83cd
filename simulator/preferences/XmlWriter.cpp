/// XML property lists written, in the layout of the platform's own tools.
#include "simulator/preferences/ElementText.h"
#include "simulator/preferences/PropertyListFormats.h"
#include "simulator/text/Utf8.h"

#include <cmath>

namespace panotra::preferences {

namespace {

constexpr std::string_view headOfXml
    = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
      "<plist version=\"1.0\">\n";
constexpr std::string_view footOfXml = "</plist>\n";

/// Characters that XML cannot hold, even written as numbers, apart from controls.
constexpr std::string_view nonCharacters[] = { "\xEF\xBF\xBE", "\xEF\xBF\xBF" };

class XmlWriter {
public:
    std::optional<std::string> write(const Value& root)
    {
        m_text = headOfXml;
        writeValue(root);
        m_text += footOfXml;
        return m_isWhole ? std::optional(std::move(m_text)) : std::nullopt;
    }

private:
    void writeValue(const Value& value)
    {
        indent();
        std::visit([this](const auto& content) { writeContent(content); }, value.content);
        m_text += '\n';
    }

    void writeContent(bool boolean) { m_text += boolean ? "<true/>" : "<false/>"; }
    void writeContent(std::int64_t integer) { writeElement("integer", std::to_string(integer)); }
    void writeContent(std::uint64_t integer) { writeElement("integer", std::to_string(integer)); }
    void writeContent(const std::string& text) { writeText("string", text); }
    void writeContent(Uid) { m_isWhole = false; }

    void writeContent(double real)
    {
        // There is one word for all that is no number.
        m_isWhole &= !(std::isnan(real) && std::signbit(real));
        writeElement("real", textOfReal(real));
    }

    void writeContent(Date date)
    {
        const auto text = textOfDate(date);
        m_isWhole &= text.has_value();
        writeElement("date", text.value_or(""));
    }

    void writeContent(const Data& data)
    {
        constexpr std::size_t charactersOfLine = 68;
        const std::string text = textOfData(data);
        m_text += "<data>\n";
        for (std::size_t at = 0; at < text.size(); at += charactersOfLine) {
            indent();
            m_text.append(text, at, charactersOfLine);
            m_text += '\n';
        }
        indent();
        m_text += "</data>";
    }

    void writeContent(const Array& array)
    {
        if (array.empty()) {
            m_text += "<array/>";
            return;
        }
        m_text += "<array>\n";
        ++m_depth;
        for (const Value& element : array)
            writeValue(element);
        --m_depth;
        indent();
        m_text += "</array>";
    }

    void writeContent(const Dictionary& dictionary)
    {
        if (dictionary.empty()) {
            m_text += "<dict/>";
            return;
        }
        m_text += "<dict>\n";
        ++m_depth;
        for (const Entry& entry : dictionary) {
            indent();
            writeText("key", entry.key);
            m_text += '\n';
            writeValue(entry.value);
        }
        --m_depth;
        indent();
        m_text += "</dict>";
    }

    void writeText(std::string_view element, const std::string& text)
    {
        m_isWhole &= isUtf8(text);
        for (const std::string_view character : nonCharacters)
            m_isWhole &= text.find(character) == text.npos;
        std::string escaped;
        for (const char character : text)
            appendEscaped(escaped, character);
        writeElement(element, escaped);
    }

    void appendEscaped(std::string& escaped, char character)
    {
        switch (character) {
        case '&':
            escaped += "&amp;";
            return;
        case '<':
            escaped += "&lt;";
            return;
        case '>':
            escaped += "&gt;";
            return;
        case '\r': // readers take it for a line feed unless it is written as a number
            escaped += "&#13;";
            return;
        default:
            m_isWhole &= static_cast<unsigned char>(character) >= 0x20 || character == '\t' || character == '\n';
            escaped += character;
        }
    }

    void writeElement(std::string_view name, std::string_view text)
    {
        m_text.append("<").append(name).append(">").append(text).append("</").append(name).append(">");
    }

    void indent() { m_text.append(m_depth, '\t'); }

    std::string m_text;
    std::size_t m_depth = 0;
    bool m_isWhole = true; ///< nothing was met that XML cannot hold
};

} // namespace

std::optional<std::string> writeXml(const Value& value)
{
    return XmlWriter().write(value);
}

} // namespace panotra::preferences
