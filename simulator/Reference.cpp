/// Tables out of tables.
#include "simulator/Reference.h"

#include "simulator/Globals.h"
#include "simulator/device/TraceEvents.h"
#include "simulator/scenario/Forms.h"
#include "simulator/scenario/StateReport.h"
#include "simulator/scenario/TreeReport.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>
#include <string_view>
#include <vector>

namespace panotra::sim {

namespace {

struct PhaseWords {
    Phase phase;
    std::string_view title; ///< of the commands that may stand then
    std::string_view word; ///< in a column of a table
};

constexpr std::array phaseWords {
    PhaseWords { Phase::BeforeLoad, "Before load", "before `load`" },
    PhaseWords { Phase::Always, "At any time", "always" },
    PhaseWords { Phase::Load, "Once", "once" },
    PhaseWords { Phase::AfterLoad, "After load", "after `load`" },
};

/// A row of a Markdown table. A bar inside a cell does not end it.
std::string row(std::initializer_list<std::string> cells)
{
    std::string line = "|";
    for (const auto& cell : cells) {
        line += ' ';
        for (const char letter : cell) {
            if (letter == '|')
                line += '\\';
            line += letter;
        }
        line += cell.empty() ? "|" : " |";
    }
    return line + '\n';
}

std::string table(std::initializer_list<std::string> titles)
{
    std::string rule = "|";
    for (std::size_t column = 0; column < titles.size(); ++column)
        rule += "---|";
    return row(titles) + rule + '\n';
}

std::string code(std::string_view text)
{
    return text.empty() ? std::string() : '`' + std::string(text) + '`';
}

std::string heading(std::string_view title, std::string_view text)
{
    return "\n## " + std::string(title) + "\n\n" + std::string(text) + "\n\n";
}

std::string commandTable()
{
    auto text = heading("Commands",
        "Words in capitals stand for values, see below; a bar stands between words of which one is written.");
    text += table({ "command", "may stand", "what it does", "example" });
    for (const auto& form : allForms()) {
        const auto* const words = std::ranges::find(phaseWords, form.phase, &PhaseWords::phase);
        text += row(
            { code(form.syntax.text()), std::string(words->word), std::string(form.meaning), code(form.example) });
    }
    return text;
}

std::string valueTable()
{
    auto text = heading("Values", "What the words in capitals stand for.") + table({ "value", "what it is" });
    for (const auto& placeholder : placeholders)
        text += row({ code(placeholder.name), std::string(placeholder.expected) });
    return text;
}

std::string stateTable()
{
    auto text = heading("State",
        "The `state` event, and the paths of `expect`. The examples are true at the end of the scenario above.");
    text += table({ "path", "what it tells", "example" });
    auto notes = globalsNotes();
    std::ranges::copy(stateNotes(), std::back_inserter(notes));
    for (const auto& note : notes)
        text += row({ code(note.path), note.meaning, code(exampleOf(note)) });
    return text;
}

std::string treeTable()
{
    auto text = heading("Tree",
        "The `tree` event has one field, `root`: null without a window, or the window's node. The examples are from "
        "the "
        "end of the scenario above.");
    text += table({ "whose", "field", "what it tells", "example" });
    for (const auto& [of, fields] : treeNotes()) {
        for (const auto& note : fields)
            text += row({ std::string(of), code(note.path), note.meaning,
                note.example.empty() ? "" : code('"' + note.path + "\":" + std::string(note.example)) });
    }
    return text;
}

std::string eventTable()
{
    auto text = heading("Events",
        "Every event has `t`, the time in seconds, and `event`, its name, in front of its own fields. A field with a "
        "question mark is left out where it does not apply. An object is named by the field that holds it.");
    text += table({ "event", "fields", "when", "example" });
    for (const auto& event : traceEvents) {
        text += row({ code(event.name), code(event.fields), std::string(event.when),
            code(R"({"t":0.0,"event":")" + std::string(event.name) + '"' + (event.example.empty() ? "" : ",")
                + std::string(event.example) + '}') });
    }
    return text;
}

/// `text` in a column of that width, or on a line of its own where it is too long.
std::string inColumn(std::string_view text, std::size_t width)
{
    const std::string indent = "  ";
    auto line = indent + std::string(text);
    if (text.size() < width)
        return line + std::string(width - text.size(), ' ');
    return line + '\n' + indent + std::string(width, ' ');
}

} // namespace

std::string commandReference()
{
    constexpr std::size_t syntaxWidth = 32;
    constexpr std::size_t valueWidth = 12;
    std::string text = "A line of a scenario is one of these commands. Words in capitals stand for values.\n";
    for (const auto& [phase, title, word] : phaseWords) {
        text += '\n' + std::string(title) + ":\n";
        for (const auto& form : allForms()) {
            if (form.phase == phase)
                text += inColumn(form.syntax.text(), syntaxWidth) + std::string(form.meaning) + '\n';
        }
    }
    text += "\nValues:\n";
    for (const auto& placeholder : placeholders)
        text += inColumn(placeholder.name, valueWidth) + std::string(placeholder.expected) + '\n';
    return text + "\nA word in double quotes may hold blanks, # starts a comment. docs/scenario.md tells the rest.\n";
}

std::string wholeReference()
{
    return commandTable() + valueTable() + stateTable() + treeTable() + eventTable();
}

std::vector<std::string> namesOfEvents()
{
    std::vector<std::string> names;
    for (const auto& event : traceEvents)
        names.emplace_back(event.name);
    return names;
}

} // namespace panotra::sim
