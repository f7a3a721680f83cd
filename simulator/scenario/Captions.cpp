/// Paragraphs without their hash marks.
#include "simulator/scenario/Captions.h"

#include <utility>

namespace panotra::sim {

namespace {

std::string_view wordsOfComment(std::string_view comment)
{
    constexpr std::string_view marks = "# \t";
    const auto first = comment.find_first_not_of(marks);
    if (first == comment.npos)
        return {};
    return comment.substr(first, comment.find_last_not_of(" \t") - first + 1);
}

void append(std::string& text, std::string_view words)
{
    if (!text.empty() && !words.empty())
        text += ' ';
    text += words;
}

std::string lastParagraphOf(const std::vector<std::string_view>& remarks)
{
    std::string paragraph;
    bool isAtStart = true;
    for (const std::string_view remark : remarks) {
        const std::string_view words = wordsOfComment(remark);
        if (words.empty()) {
            isAtStart = true;
            continue;
        }
        if (std::exchange(isAtStart, false))
            paragraph.clear();
        append(paragraph, words);
    }
    return paragraph;
}

} // namespace

std::vector<Caption> captionsOf(const Scenario& scenario)
{
    std::vector<Caption> captions;
    for (std::size_t index = 0; index < scenario.commands.size(); ++index) {
        const Command& command = scenario.commands[index];
        std::string text = lastParagraphOf(command.remarks);
        append(text, wordsOfComment(commentIn(command.source)));
        if (!text.empty())
            captions.push_back({ index, command.line, std::move(text) });
    }
    return captions;
}

} // namespace panotra::sim
