/// A line is filled word by word; a word keeps the inks of its parts.
#include "simulator/scenario/Paragraph.h"

#include "simulator/text/Columns.h"

#include <algorithm>
#include <utility>

namespace panotra::sim {

namespace {

/// Below this there would be more lines than words.
constexpr std::size_t leastRoom = 12;

const char* colourOf(Ink ink)
{
    switch (ink) {
    case Ink::Plain:
    case Ink::Measure:
        break;
    case Ink::Time:
    case Ink::Remark:
        return "\x1b[2m"; // faint
    case Ink::Command:
        return "\x1b[1m"; // bold
    case Ink::Level:
        return "\x1b[36m"; // cyan, to be read on black and on white
    }
    return "";
}

std::string inked(std::string_view text, Ink ink, const TextLook& look)
{
    const std::string_view colour = look.hasColours ? colourOf(ink) : "";
    if (colour.empty() || text.find_first_not_of(' ') == text.npos)
        return std::string(text);
    return std::string(colour) + std::string(text) + "\x1b[0m";
}

/// What is not broken: parts that touch each other.
using Unbroken = std::vector<Phrase>;

void addTo(Unbroken& word, std::string_view text, Ink ink)
{
    if (!text.empty())
        word.push_back({ std::string(text), ink });
}

std::vector<Unbroken> wordsOf(const std::vector<Phrase>& phrases)
{
    std::vector<Unbroken> words(1);
    for (const auto& [whole, ink] : phrases) {
        std::string_view text = whole;
        if (ink == Ink::Level || ink == Ink::Measure) {
            addTo(words.back(), text, ink);
            continue;
        }
        for (auto blank = text.find(' '); blank != text.npos; blank = text.find(' ')) {
            addTo(words.back(), text.substr(0, blank), ink);
            if (!words.back().empty())
                words.emplace_back();
            text.remove_prefix(blank + 1);
        }
        addTo(words.back(), text, ink);
    }
    if (words.back().empty())
        words.pop_back();
    return words;
}

std::size_t columnsOfWord(const Unbroken& word)
{
    std::size_t columns = 0;
    for (const auto& part : word)
        columns += columnsOf(part.text);
    return columns;
}

class Lines {
public:
    Lines(const Margin& margin, const TextLook& look)
        : m_look(look)
        , m_margin(margin)
        , m_others(fitting(margin.others))
    {
        begin(fitting(m_margin.first));
    }

    void add(const Unbroken& word)
    {
        const auto columns = columnsOfWord(word);
        if (!m_isEmpty) {
            if (m_column + 1 + columns <= m_look.width) {
                put(" ", isOneInk(word) ? word.front().ink : Ink::Plain);
                ++m_column;
            } else {
                next();
            }
        }
        for (const auto& part : word)
            addPart(part);
    }

    std::string take()
    {
        endLine();
        return std::move(m_text);
    }

private:
    /// What a margin may have of the line.
    std::string fitting(std::string_view text) const
    {
        const auto most = m_look.width - std::min(m_look.width, leastRoom);
        return columnsOf(text) <= most ? std::string(text) : std::string(text.substr(0, bytesThatFit(text, most)));
    }

    /// Whether a word goes on in the ink of the one before it, so that they share it and what is between them.
    bool isOneInk(const Unbroken& word) const { return m_line.back().ink == word.front().ink; }

    void put(std::string_view text, Ink ink)
    {
        if (m_line.empty() || m_line.back().ink != ink)
            m_line.push_back({ {}, ink });
        m_line.back().text += text;
    }

    void endLine()
    {
        for (const auto& part : m_line)
            m_text += inked(part.text, part.ink, m_look);
        m_line.clear();
        m_text += '\n';
    }

    void begin(const std::string& margin)
    {
        put(margin, m_margin.ink);
        m_column = columnsOf(margin);
        m_isEmpty = true;
    }

    void next()
    {
        endLine();
        begin(m_others);
    }

    void addPart(const Phrase& part)
    {
        std::string_view text = part.text;
        while (!text.empty()) {
            if (m_column >= m_look.width)
                next();
            const auto bytes = bytesThatFit(text, m_look.width - m_column);
            // A wide character at the edge stands on the next line.
            const auto columns = columnsOf(text.substr(0, bytes));
            if (columns > m_look.width - m_column && !m_isEmpty) {
                next();
                continue;
            }
            put(text.substr(0, bytes), part.ink);
            m_column += columns;
            m_isEmpty = false;
            text.remove_prefix(bytes);
        }
    }

    const TextLook& m_look;
    const Margin& m_margin;
    std::string m_others;
    std::string m_text; ///< of the lines that are full
    std::vector<Phrase> m_line;
    std::size_t m_column = 0;
    bool m_isEmpty = true; ///< nothing but the margin stands on the line
};

} // namespace

std::string paragraph(const Margin& margin, const std::vector<Phrase>& phrases, const TextLook& look)
{
    Lines lines(margin, look);
    for (const auto& word : wordsOf(phrases))
        lines.add(word);
    return lines.take();
}

std::string writtenLine(const Margin& margin, const std::vector<Phrase>& line, const TextLook& look)
{
    auto columns = columnsOf(margin.first);
    for (const auto& part : line)
        columns += columnsOf(part.text);
    if (columns > look.width)
        return paragraph(margin, line, look);
    auto text = inked(margin.first, margin.ink, look);
    for (const auto& part : line)
        text += inked(part.text, part.ink, look);
    return text + '\n';
}

} // namespace panotra::sim
