/// XML property lists read with libxml2.
#include "tests/faults/IndependentReader.h"
#include "tests/faults/Meaning.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <bit>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <memory>

namespace panotra::preferences::testing {

namespace {

using Meaning = std::optional<std::string>;

std::string nameOf(const xmlNode* node)
{
    return reinterpret_cast<const char*>(node->name);
}

bool isBlank(const std::string& text)
{
    return text.find_first_not_of(" \t\r\n") == text.npos;
}

std::string trimmedText(const std::string& text)
{
    if (isBlank(text))
        return "";
    const auto first = text.find_first_not_of(" \t\r\n");
    return text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

/// The elements inside; none if there is text between them, or a reference to something.
std::optional<std::vector<xmlNode*>> elementsIn(xmlNode* parent)
{
    std::vector<xmlNode*> elements;
    for (xmlNode* node = parent->children; node != nullptr; node = node->next) {
        const bool isText = node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
        if (node->type == XML_ELEMENT_NODE)
            elements.push_back(node);
        else if (node->type == XML_ENTITY_REF_NODE
            || (isText && !isBlank(reinterpret_cast<const char*>(node->content))))
            return std::nullopt;
    }
    return elements;
}

/// The text inside; none if there is an element, or a reference to something.
Meaning textIn(xmlNode* parent)
{
    std::string text;
    for (xmlNode* node = parent->children; node != nullptr; node = node->next) {
        if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE)
            text += reinterpret_cast<const char*>(node->content);
        else if (node->type != XML_COMMENT_NODE && node->type != XML_PI_NODE)
            return std::nullopt;
    }
    return text;
}

Meaning integerIn(const std::string& whole)
{
    std::string text = trimmedText(whole);
    const bool isNegative = !text.empty() && text[0] == '-';
    if (!text.empty() && (text[0] == '-' || text[0] == '+'))
        text.erase(0, 1);
    unsigned base = 10;
    if (text.size() > 1 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.erase(0, 2);
    }
    if (text.empty())
        return std::nullopt;
    const std::string digits = "0123456789abcdef";
    std::uint64_t magnitude = 0;
    for (const char character : text) {
        const auto digit = digits.find(static_cast<char>(std::tolower(static_cast<unsigned char>(character))));
        if (digit == digits.npos || digit >= base)
            return std::nullopt;
        if (magnitude > (std::numeric_limits<std::uint64_t>::max() - digit) / base)
            return std::nullopt;
        magnitude = magnitude * base + digit;
    }
    if (isNegative && magnitude > std::uint64_t { 1 } << 63)
        return std::nullopt;
    return meaningOfInteger(isNegative, magnitude);
}

Meaning realIn(const std::string& whole)
{
    std::string text = trimmedText(whole);
    for (char& character : text)
        character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<const char*, double> words[]
        = { { "nan", std::numeric_limits<double>::quiet_NaN() }, { "inf", infinity }, { "+inf", infinity },
              { "-inf", -infinity }, { "infinity", infinity }, { "+infinity", infinity }, { "-infinity", -infinity } };
    for (const auto& [word, value] : words) {
        if (text == word)
            return meaningOfDouble('r', std::bit_cast<std::uint64_t>(value));
    }
    // What strtod takes beyond decimal numbers has letters other than e in it, or blanks before it.
    if (text.empty() || text.find_first_not_of("0123456789.+-e") != text.npos)
        return std::nullopt;
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (*end != '\0' || std::isinf(value))
        return std::nullopt;
    return meaningOfDouble('r', std::bit_cast<std::uint64_t>(value));
}

Meaning dateIn(const std::string& whole)
{
    const std::string text = trimmedText(whole);
    const std::string shape = "dddd-dd-ddTdd:dd:ddZ";
    if (text.size() != shape.size())
        return std::nullopt;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (shape[i] == 'd' ? !isDigit : text[i] != shape[i])
            return std::nullopt;
    }
    std::tm time {};
    time.tm_year = std::stoi(text.substr(0, 4)) - 1900;
    time.tm_mon = std::stoi(text.substr(5, 2)) - 1;
    time.tm_mday = std::stoi(text.substr(8, 2));
    time.tm_hour = std::stoi(text.substr(11, 2));
    time.tm_min = std::stoi(text.substr(14, 2));
    time.tm_sec = std::stoi(text.substr(17, 2));
    const std::tm asked = time;
    // It makes another date of one that the calendar does not have.
    const std::time_t seconds = ::timegm(&time);
    if (time.tm_mon != asked.tm_mon || time.tm_mday != asked.tm_mday || time.tm_hour != asked.tm_hour
        || time.tm_min != asked.tm_min || time.tm_sec != asked.tm_sec)
        return std::nullopt;
    constexpr std::time_t beginOf2001 = 978307200;
    return meaningOfDouble('t', std::bit_cast<std::uint64_t>(static_cast<double>(seconds - beginOf2001)));
}

Meaning dataIn(const std::string& text)
{
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::vector<bool> bits;
    std::size_t characters = 0, fillers = 0;
    for (const char character : text) {
        if (isBlank(std::string(1, character)))
            continue;
        ++characters;
        if (character == '=') {
            ++fillers;
            continue;
        }
        const auto value = alphabet.find(character);
        if (value == alphabet.npos || fillers > 0)
            return std::nullopt;
        for (int bit = 5; bit >= 0; --bit)
            bits.push_back((value >> bit & 1) != 0);
    }
    // One filler stands for two bits that are left, two for four; they are zero.
    if (characters % 4 != 0 || fillers > 2 || bits.size() % 8 != 2 * fillers)
        return std::nullopt;
    for (std::size_t i = 0; i < 2 * fillers; ++i) {
        if (bits.back())
            return std::nullopt;
        bits.pop_back();
    }
    std::string bytes;
    for (std::size_t at = 0; at < bits.size(); at += 8) {
        unsigned byte = 0;
        for (std::size_t bit = 0; bit < 8; ++bit)
            byte = byte << 1 | bits[at + bit];
        bytes.push_back(static_cast<char>(byte));
    }
    return meaningOfBytes('d', bytes);
}

Meaning meaningIn(xmlNode* element);

Meaning arrayIn(xmlNode* element)
{
    const auto elements = elementsIn(element);
    if (!elements)
        return std::nullopt;
    std::vector<std::string> meanings;
    for (xmlNode* child : *elements) {
        const Meaning meaning = meaningIn(child);
        if (!meaning)
            return std::nullopt;
        meanings.push_back(*meaning);
    }
    return meaningOfArray(meanings);
}

Meaning dictionaryIn(xmlNode* element)
{
    const auto elements = elementsIn(element);
    if (!elements || elements->size() % 2 != 0)
        return std::nullopt;
    std::vector<std::pair<std::string, std::string>> entries;
    for (std::size_t i = 0; i < elements->size(); i += 2) {
        const Meaning key = nameOf((*elements)[i]) == "key" ? textIn((*elements)[i]) : std::nullopt;
        const Meaning value = meaningIn((*elements)[i + 1]);
        if (!key || !value)
            return std::nullopt;
        entries.emplace_back(*key, *value);
    }
    return meaningOfDictionary(entries);
}

Meaning meaningIn(xmlNode* element)
{
    const std::string name = nameOf(element);
    if (name == "dict")
        return dictionaryIn(element);
    if (name == "array")
        return arrayIn(element);
    const Meaning text = textIn(element);
    if (!text)
        return std::nullopt;
    if (name == "string")
        return meaningOfBytes('s', *text);
    if (name == "integer")
        return integerIn(*text);
    if (name == "real")
        return realIn(*text);
    if (name == "date")
        return dateIn(*text);
    if (name == "data")
        return dataIn(*text);
    if ((name == "true" || name == "false") && text->empty())
        return meaningOfBoolean(name == "true");
    return std::nullopt;
}

} // namespace

std::optional<std::string> meaningOfXml(const std::string& bytes)
{
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), "bytes", nullptr, options), xmlFreeDoc);
    // It takes a NUL behind the root for the end of the file.
    if (document == nullptr || bytes.find('\0') != bytes.npos)
        return std::nullopt;
    if (document->intSubset != nullptr && document->intSubset->children != nullptr)
        return std::nullopt;
    xmlNode* root = xmlDocGetRootElement(document.get());
    if (root == nullptr)
        return std::nullopt;
    if (nameOf(root) != "plist")
        return meaningIn(root);
    const auto elements = elementsIn(root);
    if (!elements || elements->size() != 1)
        return std::nullopt;
    return meaningIn(elements->front());
}

} // namespace panotra::preferences::testing
