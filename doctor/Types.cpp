/// Type codes, letter by letter.
#include "doctor/Types.h"

namespace panotra::doctor {

namespace {

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

/// Whether a value may be an object, a class, a selector, a block or an address: all of them travel alike.
bool isWordOfAddress(char letter)
{
    return std::string_view("@#:^*").find(letter) != std::string_view::npos;
}

/// The end of the first value's code; what it points to and holds included.
std::size_t endOfValue(std::string_view code)
{
    std::size_t end = 0;
    while (end < code.size() && code[end] == '^')
        ++end;
    if (end == code.size())
        return end;
    if (code[end] != '{')
        return code.substr(end).starts_with("@?") ? end + 2 : end + 1;
    int depth = 0;
    do {
        depth += code[end] == '{' ? 1 : code[end] == '}' ? -1 : 0;
        ++end;
    } while (end < code.size() && depth > 0);
    return end;
}

/// The fields of a structure in their order, whatever structures of its own it keeps them in.
std::string fieldsOf(std::string_view structure)
{
    std::string fields;
    for (const char letter : structure) {
        if (letter != '{' && letter != '}')
            fields += letter;
    }
    return fields;
}

bool isValueServed(std::string_view ours, std::string_view found)
{
    if (ours.front() == '{' && found.front() == '{')
        return fieldsOf(ours) == fieldsOf(found);
    return ours == found || (isWordOfAddress(ours.front()) && isWordOfAddress(found.front()));
}

} // namespace

std::string essenceOfType(std::string_view code)
{
    constexpr std::string_view qualifiers = "rnNoORV";
    std::string essence;
    for (std::size_t place = 0; place < code.size(); ++place) {
        const char letter = code[place];
        if (isDigit(letter) || qualifiers.find(letter) != qualifiers.npos)
            continue;
        if (letter == '"') { // the name of a class
            place = code.find('"', place + 1);
            if (place == code.npos)
                break;
        } else if (letter == '{') { // the name of a structure
            essence += letter;
            const std::size_t end = code.find_first_of("=}", place);
            if (end == code.npos)
                break;
            place = code[end] == '=' ? end : end - 1;
        } else {
            essence += letter == 'c' || letter == 'C' ? 'B' : letter;
        }
    }
    return essence;
}

bool isTypeServed(std::string_view ours, std::string_view found)
{
    const std::string wanted = essenceOfType(ours);
    const std::string there = essenceOfType(found);
    std::string_view left = wanted;
    std::string_view right = there;
    if (left.starts_with('v') && !right.empty()) {
        left.remove_prefix(1);
        right.remove_prefix(endOfValue(right));
    }
    while (!left.empty() && !right.empty()) {
        const std::size_t leftEnd = endOfValue(left);
        const std::size_t rightEnd = endOfValue(right);
        if (!isValueServed(left.substr(0, leftEnd), right.substr(0, rightEnd)))
            return false;
        left.remove_prefix(leftEnd);
        right.remove_prefix(rightEnd);
    }
    return left.empty() && right.empty();
}

} // namespace panotra::doctor
