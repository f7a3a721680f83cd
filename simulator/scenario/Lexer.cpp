/// One pass over a line's characters.
#include "simulator/scenario/Lexer.h"

#include "simulator/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace panotra::sim {

namespace {

constexpr std::string_view blanks = " \t";

std::string describeBadByte(std::string_view source, std::size_t position)
{
    std::array<char, 96> message {};
    std::snprintf(message.data(), message.size(),
        "found the byte 0x%02x at column %zu, expected UTF-8 text without NUL",
        static_cast<unsigned>(static_cast<unsigned char>(source[position])), position + 1);
    return message.data();
}

/// Reads the word at `position`, which is no blank and no comment, and moves past it. Answers whether every
/// quote was closed.
bool readWord(std::string_view source, std::size_t& position, Word& word)
{
    bool isOpen = false;
    for (; position < source.size(); ++position) {
        const char character = source[position];
        if (character == '"') {
            isOpen = !isOpen;
            word.quoted = true;
        } else if (isOpen && character == '\\' && position + 1 < source.size()
            && (source[position + 1] == '"' || source[position + 1] == '\\')) {
            word.text += source[++position];
        } else if (!isOpen && (character == '#' || blanks.find(character) != blanks.npos)) {
            break;
        } else {
            word.text += character;
        }
    }
    return !isOpen;
}

/// Answers where the words end: at a comment, or at the end of the line.
std::size_t readWords(Line& line, std::string_view source)
{
    std::size_t position = 0;
    while (true) {
        position = std::min(source.find_first_not_of(blanks, position), source.size());
        if (position == source.size() || source[position] == '#')
            return position;
        if (!readWord(source, position, line.words.emplace_back()) && !line.mistake)
            line.mistake = "found a quote that is not closed, expected \" before the end of the line";
    }
}

std::string_view withoutBlanksAround(std::string_view source)
{
    const auto first = source.find_first_not_of(blanks);
    if (first == source.npos)
        return {};
    return source.substr(first, source.find_last_not_of(blanks) - first + 1);
}

} // namespace

std::vector<Line> readLines(std::string_view text)
{
    std::vector<Line> lines;
    std::vector<std::string_view> remarks;
    std::size_t number = 0;
    // Editors elsewhere begin a file with a byte-order mark.
    if (constexpr std::string_view mark = "\xEF\xBB\xBF"; text.starts_with(mark))
        text.remove_prefix(mark.size());
    while (!text.empty()) {
        const auto end = text.find('\n');
        auto source = text.substr(0, end);
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
        // Files from elsewhere end their lines with a carriage return as well.
        if (source.ends_with('\r'))
            source.remove_suffix(1);

        Line line {
            .number = ++number, .source = withoutBlanksAround(source), .words = {}, .remarks = {}, .mistake = {}
        };
        if (const auto bad = std::min(firstMalformedByte(source).value_or(source.npos), source.find('\0'));
            bad != source.npos)
            line.mistake = describeBadByte(source, bad);
        readWords(line, source);
        if (line.words.empty() && !line.mistake) {
            if (!line.source.empty() || !remarks.empty())
                remarks.push_back(line.source);
            continue;
        }
        while (!remarks.empty() && remarks.back().empty())
            remarks.pop_back();
        line.remarks = std::exchange(remarks, {});
        lines.push_back(std::move(line));
    }
    return lines;
}

std::string_view commentIn(std::string_view source)
{
    Line line {};
    return source.substr(readWords(line, source));
}

std::string asWord(std::string_view text)
{
    constexpr auto plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-+_/";
    const bool isPlain = !text.empty() && text != "nil" && text.find_first_not_of(plain) == text.npos;
    return isPlain ? std::string(text) : asQuotedWord(text);
}

std::string asQuotedWord(std::string_view text)
{
    std::string result = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\')
            result += '\\';
        result += character;
    }
    return result + '"';
}

} // namespace panotra::sim
