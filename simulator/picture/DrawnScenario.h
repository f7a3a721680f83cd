/// A scenario read from its file by those who show it: played bit by bit, on a screen that can be drawn.
#pragma once

#include "simulator/ExitStatus.h"
#include "simulator/scenario/Grammar.h"

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace panotra::sim {

/// Free of mistakes. The scenario points into the text.
struct DrawnScenario {
    DrawnScenario(std::string fileName, std::string fileText);
    DrawnScenario(const DrawnScenario&) = delete;
    DrawnScenario& operator=(const DrawnScenario&) = delete;

    const std::string name;
    const std::string text;
    Scenario scenario;
};

/// Why a file is not played, each a whole line of standard error.
struct ScenarioTrouble {
    ExitStatus status;
    std::vector<std::string> lines;
};

/// "-" is standard input.
std::variant<std::unique_ptr<const DrawnScenario>, ScenarioTrouble> readDrawnScenario(const std::string& name);

/// "NAME:LINE: message", as mistakes and expectations that failed are told.
std::string aboutLine(const std::string& name, std::size_t line, const std::string& message);

} // namespace panotra::sim
