/// One reader that walks over the wording.
#include "simulator/scenario/TextTemplate.h"

#include "simulator/scenario/TextFormat.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace panotra::sim {

namespace {

/// The field called `name`; null where it is absent.
const Json& fieldOf(const Json& fields, std::string_view name)
{
    static const Json absent;
    const auto found = fields.find(std::string(name));
    return found == fields.end() ? absent : *found;
}

/// Takes the text up to `end` off the front, and `end` with it.
std::string_view takeUntil(std::string_view& text, char end)
{
    const auto part = text.substr(0, text.find(end));
    text.remove_prefix(std::min(text.size(), part.size() + 1));
    return part;
}

/// What stands for a hole; sets `saysNothing` where the value is no reason to speak of it.
std::string fillHole(std::string_view hole, const Json& fields, bool& saysNothing)
{
    if (hole.find('?') != hole.npos) {
        const auto& value = fieldOf(fields, takeUntil(hole, '?'));
        const bool isYes = !value.is_null() && value != false;
        const auto yes = takeUntil(hole, ':');
        return std::string(isYes ? yes : hole);
    }
    const bool isLevel = hole.ends_with('%');
    if (isLevel)
        hole.remove_suffix(1);
    const auto& value = fieldOf(fields, takeUntil(hole, '!'));
    auto text = isLevel ? percent(value) : shortValue(value);
    if (value.is_null() || text == hole)
        saysNothing = true;
    return text;
}

std::string fillPart(std::string_view wording, const Json& fields, bool& saysNothing)
{
    std::string text;
    while (!wording.empty()) {
        const auto plain = wording.substr(0, wording.find('{'));
        text += plain;
        wording.remove_prefix(plain.size());
        if (!wording.empty()) {
            wording.remove_prefix(1);
            text += fillHole(takeUntil(wording, '}'), fields, saysNothing);
        }
    }
    return text;
}

} // namespace

std::string fillTemplate(std::string_view wording, const Json& fields)
{
    std::string text;
    while (!wording.empty()) {
        bool saysNothing = false;
        text += fillPart(takeUntil(wording, '['), fields, saysNothing);
        saysNothing = false;
        const auto group = fillPart(takeUntil(wording, ']'), fields, saysNothing);
        if (!saysNothing)
            text += group;
    }
    return text;
}

} // namespace panotra::sim
