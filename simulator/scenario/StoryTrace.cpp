/// Moments laid out under the commands that brought them about.
#include "simulator/scenario/StoryTrace.h"

#include "simulator/scenario/StoryReports.h"
#include "simulator/text/Columns.h"
#include "simulator/text/Printable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace panotra::sim {

namespace {

/// "  0.350  ", and as many blanks.
constexpr std::size_t timeWidth = 9;

Margin marginOf(const Json& event)
{
    std::array<char, 400> time {};
    std::snprintf(time.data(), time.size(), "%7.3f  ", event.at("t").get<double>());
    return { time.data(), std::string(timeWidth, ' '), Ink::Time };
}

/// The sign of a comment and the blanks after it: what each of its lines begins with.
std::string signOf(std::string_view remark)
{
    return std::string(remark.substr(0, std::min(remark.find_first_not_of("# "), remark.size())));
}

/// The command, and the comment behind it.
std::vector<Phrase> commandWords(std::string_view source)
{
    bool isQuoted = false;
    std::size_t end = 0;
    for (; end < source.size() && (isQuoted || source[end] != '#'); ++end) {
        if (isQuoted && source[end] == '\\')
            ++end;
        else if (source[end] == '"')
            isQuoted = !isQuoted;
    }
    end = std::min(end, source.size());
    return { { printable(source.substr(0, end)), Ink::Command }, { printable(source.substr(end)), Ink::Remark } };
}

/// Comments that are too wide flow into each other as one text; all others stay as they are.
std::string flowing(const std::vector<std::string_view>& remarks, const TextLook& look)
{
    std::string text;
    for (std::size_t first = 0; first < remarks.size();) {
        const auto sign = signOf(remarks[first]);
        const bool isText = sign.size() < remarks[first].size();
        std::size_t end = first + 1;
        bool fits = columnsOf(printable(remarks[first])) <= look.width;
        while (isText && end < remarks.size() && signOf(remarks[end]) == sign && remarks[end].size() > sign.size())
            fits &= columnsOf(printable(remarks[end++])) <= look.width;
        const Margin margin { sign, sign, Ink::Remark };
        std::vector<Phrase> words;
        for (; first < end; ++first) {
            const Phrase line { printable(remarks[first].substr(sign.size())), Ink::Remark };
            if (fits)
                text += writtenLine(margin, { line }, look);
            else
                words.insert(words.end(), { line, { " " } });
        }
        if (!fits)
            text += paragraph(margin, words, look);
    }
    return text;
}

} // namespace

StoryTrace::StoryTrace(Sink sink, TextLook look)
    : m_sink(std::move(sink))
    , m_look(std::move(look))
{
    m_look.width = std::clamp(m_look.width, narrowestText, widestText);
}

void StoryTrace::command(const Command& command)
{
    tellMoment();
    m_story.learn(command);
    // What a command has brought about stands as a paragraph under it, what the scenario has to say above it.
    const bool isApart = m_wroteEvents || (m_wroteHeading && !command.remarks.empty());
    m_heading = (isApart ? "\n" : "") + flowing(command.remarks, m_look)
        + writtenLine({ "", "    " }, commandWords(command.source), m_look);
    if (m_look.only.takesAll()) {
        m_sink(std::exchange(m_heading, {}));
        m_wroteHeading = true;
        m_wroteEvents = false;
    }
}

void StoryTrace::event(const Json& event)
{
    const auto kind = event.value("event", std::string());
    if (!m_moment.empty() && m_moment.back().at("t") != event.at("t"))
        tellMoment();
    if (kind != "state" && kind != "tree") {
        m_moment.push_back(event);
        return;
    }
    tellMoment();
    if (m_look.only.takes(kind))
        tellReport(event);
}

void StoryTrace::finish()
{
    tellMoment();
}

void StoryTrace::tellMoment()
{
    if (m_moment.empty())
        return;
    std::vector<Phrase> words;
    for (const auto& clause : m_story.tell(m_moment)) {
        if (!m_look.only.takesOneOf(clause.events))
            continue;
        if (!words.empty())
            words.push_back({ ", " });
        words.insert(words.end(), clause.words.begin(), clause.words.end());
    }
    if (!words.empty())
        write(paragraph(marginOf(m_moment.front()), words, m_look));
    m_moment.clear();
}

void StoryTrace::tellReport(const Json& event)
{
    const bool isState = event.at("event") == "state";
    write(paragraph(marginOf(event), { { isState ? "what there is now" : "what is on the screen" } }, m_look)
        + (isState ? stateReportForPeople(event, timeWidth, m_look) : treeReportForPeople(event, timeWidth, m_look)));
}

void StoryTrace::write(const std::string& text)
{
    if (!m_heading.empty()) {
        m_sink(std::exchange(m_heading, {}));
        m_wroteHeading = true;
    }
    m_sink(text);
    m_wroteEvents = true;
}

} // namespace panotra::sim
