/// Reading, checking, and looking at its screens.
#include "simulator/picture/DrawnScenario.h"

#include "simulator/Files.h"
#include "simulator/render/Renderer.h"
#include "simulator/scenario/Forms.h"
#include "simulator/text/Printable.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace panotra::sim {

namespace {

/// What is wrong with the screen that a command gives the phone, or nothing.
std::optional<std::string> whyNotDrawn(const Command& command)
{
    if (command.form->syntax.command() != "screen")
        return std::nullopt;
    constexpr double referenceScale = 2;
    const Arguments& words = command.arguments;
    const bool isReference = command.form->syntax.text().starts_with("screen reference");
    const double scale = isReference ? referenceScale : words.number(2);
    return render::whyTooLargeOrSmall({ words.number(0), words.number(1) }, scale);
}

} // namespace

DrawnScenario::DrawnScenario(std::string fileName, std::string fileText)
    : name(std::move(fileName))
    , text(std::move(fileText))
    , scenario(parseScenario(text))
{
    for (const Command& command : scenario.commands) {
        if (auto reason = whyNotDrawn(command)) {
            const auto later = std::ranges::upper_bound(scenario.mistakes, command.line, {}, &Mistake::line);
            scenario.mistakes.insert(later, { command.line, std::move(*reason) });
        }
    }
}

std::variant<std::unique_ptr<const DrawnScenario>, ScenarioTrouble> readDrawnScenario(const std::string& name)
{
    auto text = readFile(name);
    if (const auto* const error = std::get_if<FileError>(&text))
        return ScenarioTrouble { ExitStatus::FileFailed, { "panotra: " + error->message } };
    auto file = std::make_unique<const DrawnScenario>(name, std::move(std::get<std::string>(text)));
    if (file->scenario.mistakes.empty())
        return file;
    ScenarioTrouble trouble { ExitStatus::WrongInput, {} };
    for (const Mistake& mistake : file->scenario.mistakes)
        trouble.lines.push_back(aboutLine(name, mistake.line, mistake.message));
    return trouble;
}

std::string aboutLine(const std::string& name, std::size_t line, const std::string& message)
{
    return printable(name) + ':' + std::to_string(line) + ": " + message;
}

} // namespace panotra::sim
