/// Settings by their labels, levels by their sliders, views by what they show.
#include "simulator/scenario/StoryReports.h"

#include "facts/MixerSettings.h"
#include "simulator/scenario/StoryWords.h"
#include "simulator/scenario/TextFormat.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace panotra::sim {

namespace {

constexpr std::size_t reportTitleWidth = 12;

/// The value at a key, null where there is none.
const Json& fieldAt(const Json& object, const std::string& key)
{
    static const Json absent;
    const auto found = object.is_object() ? object.find(key) : object.end();
    return object.is_object() && found != object.end() ? *found : absent;
}

/// Phrases with commas between.
class List {
public:
    void add(std::string words) { add(std::vector<Phrase> { { std::move(words) } }); }
    void add(std::vector<Phrase> words)
    {
        if (!m_phrases.empty())
            m_phrases.push_back({ ", " });
        m_phrases.insert(m_phrases.end(), std::make_move_iterator(words.begin()), std::make_move_iterator(words.end()));
    }
    void addLevel(const std::string& name, const Json& level)
    {
        if (level.is_number())
            add({ { name + ' ' }, levelPhrase(level.get<double>()) });
    }
    bool isEmpty() const { return m_phrases.empty(); }
    const std::vector<Phrase>& phrases() const { return m_phrases; }

private:
    std::vector<Phrase> m_phrases;
};

class Block {
public:
    Block(std::size_t indent, const TextLook& look)
        : m_indent(indent, ' ')
        , m_look(look)
    {
    }

    void add(std::string title, const List& list)
    {
        title.resize(reportTitleWidth, ' ');
        const Margin margin { m_indent + title, m_indent + std::string(reportTitleWidth, ' '), Ink::Time };
        m_text += paragraph(margin, list.isEmpty() ? std::vector<Phrase> { { "nothing" } } : list.phrases(), m_look);
    }

    std::string take() { return std::move(m_text); }

private:
    std::string m_indent;
    const TextLook& m_look;
    std::string m_text;
};

std::string settingText(const MixerSetting& setting, const Json& value)
{
    const std::string name = setting.label + std::string(" ");
    if (setting.kind == SettingKind::Choice && value.is_number_integer() && value.get<std::int64_t>() >= 0
        && value.get<std::uint64_t>() < setting.choices.size())
        return name + setting.choices[value.get<std::size_t>()];
    return name + (value.is_boolean() ? (value.get<bool>() ? "on" : "off") : shortValue(value));
}

List settingsOf(const Json& globals)
{
    List settings;
    for (const MixerSetting& setting : mixerSettings) {
        if (const auto& value = fieldAt(globals, setting.valueName); !value.is_null())
            settings.add(settingText(setting, value));
    }
    return settings;
}

List slidersOf(const Json& sliders)
{
    List list;
    for (SlotNumber number = 0; number < volumeSlotCount; ++number)
        list.addLevel(nameOfSlot(volumeSlot(number)), fieldAt(fieldAt(sliders, std::to_string(number)), "volume"));
    return list;
}

List rememberedIn(const Json& domain)
{
    List list;
    for (SlotNumber number = 0; number < volumeSlotCount; ++number)
        list.addLevel(nameOfSlot(volumeSlot(number)), fieldAt(domain, volumeSlot(number).preferenceKey));
    return list;
}

List pendingOf(const Json& pending)
{
    List list;
    for (const auto& call : pending) {
        const auto& object = fieldAt(call, "object");
        list.add(shortValue(fieldAt(call, "selector"))
            + (object.is_string() ? " of " + nameOfView(object.get_ref<const std::string&>()) : "") + " at "
            + shortValue(fieldAt(call, "due")) + " s");
    }
    if (const auto count = pending.size(); count == 0)
        list.add("nothing");
    return list;
}

void describe(const Json& node, std::size_t indent, std::size_t depth, const TextLook& look, std::string& text)
{
    // Deep trees in narrow windows would have no room left.
    const auto column = std::min(indent + 2 * depth, look.width / 2);
    const Margin margin { std::string(column, ' '), std::string(column + 2, ' ') };
    std::vector<Phrase> words { { nameOfView(shortValue(fieldAt(node, "name"))), Ink::Command },
        { ' ' + shortValue(fieldAt(node, "class")) + ' ' + shortValue(fieldAt(node, "frame")) } };
    if (const auto& volume = fieldAt(node, "volume"); volume.is_number()) {
        words.push_back({ ", " });
        words.push_back(levelPhrase(volume.get<double>()));
    }
    for (const char* const field : { "text", "image" }) {
        if (const auto& value = fieldAt(node, field); value.is_string())
            words.push_back({ std::string(", ") + field + ' ' + shortValue(value) });
    }
    if (const auto& alpha = fieldAt(node, "alpha"); alpha.is_number() && alpha.get<double>() != 1)
        words.push_back({ ", alpha " + shortValue(alpha) });
    if (fieldAt(node, "hidden") == true)
        words.push_back({ ", hidden" });
    text += paragraph(margin, words, look);
    for (const auto& subview : fieldAt(node, "subviews"))
        describe(subview, indent, depth + 1, look, text);
}

} // namespace

std::string stateReportForPeople(const Json& event, std::size_t indent, const TextLook& look)
{
    Block block(indent, look);
    block.add("settings", settingsOf(fieldAt(event, "globals")));
    List mixer;
    const auto& controller = fieldAt(event, "controller");
    const bool hasWindow = fieldAt(controller, "window") == true;
    mixer.add(hasWindow ? "there, alpha " + shortValue(fieldAt(controller, "containerAlpha")) : "not there");
    block.add("mixer", mixer);
    if (hasWindow)
        block.add("sliders", slidersOf(fieldAt(event, "sliders")));
    block.add("remembered", rememberedIn(fieldAt(fieldAt(event, "prefs"), ownDomain)));
    List system;
    for (const auto& [category, level] : fieldAt(event, "system").items())
        system.addLevel(shortValue(Json(category)), level);
    block.add("system", system);
    block.add("to come", pendingOf(fieldAt(event, "pending")));
    return block.take();
}

std::string treeReportForPeople(const Json& event, std::size_t indent, const TextLook& look)
{
    std::string text;
    const auto& root = fieldAt(event, "root");
    if (root.is_null())
        return paragraph({ std::string(indent, ' '), std::string(indent, ' ') }, { { "no window" } }, look);
    describe(root, indent, 0, look, text);
    return text;
}

} // namespace panotra::sim
