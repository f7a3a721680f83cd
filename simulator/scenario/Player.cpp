/// The loop over the commands, and the commands that watch instead of act.
#include "simulator/scenario/Player.h"

#include "simulator/device/EventFields.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/scenario/Expectation.h"
#include "simulator/scenario/Forms.h"
#include "simulator/scenario/StateReport.h"
#include "simulator/scenario/TreeReport.h"
#include "simulator/text/Printable.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace panotra::sim {

namespace {

void addAll(EventFields& fields, const Json& report)
{
    for (const auto& [name, value] : report.items())
        fields.add(name, value);
}

} // namespace

Player::Player(Device& device, Library library, Audience audience, Pictures* pictures)
    : m_device(device)
    , m_library(std::move(library))
    , m_audience(std::move(audience))
    , m_pictures(pictures)
{
}

void Player::play(const Scenario& scenario)
{
    for (const auto& command : scenario.commands)
        play(command);
}

void Player::play(const Command& command)
{
    m_line = command.line;
    if (m_audience.commandBegins)
        m_audience.commandBegins(command);
    command.form->play(*this, command.arguments);
    m_device.runLoop->turn();
    m_device.classes->drainAutoreleasePool();
    passOnWarnings();
}

void Player::reportState()
{
    m_device.trace("state", [this](EventFields& fields) { addAll(fields, stateReport(m_device, m_library)); });
}

void Player::reportTree()
{
    m_device.trace("tree", [this](EventFields& fields) { addAll(fields, treeReport(m_device)); });
}

void Player::shoot(const std::string& name)
{
    const auto fileName = name + ".png";
    const auto failure = m_pictures != nullptr ? m_pictures->write(m_device, fileName)
                                               : std::optional(fileName + ": this build draws no pictures");
    if (failure) {
        failFile(*failure);
        return;
    }
    m_device.trace("shot", [&](EventFields& fields) { fields.add("file", fileName); });
}

void Player::expect(const std::string& path, const std::optional<std::string>& value)
{
    const auto state = stateReport(m_device, m_library);
    const auto* const found = valueAt(state, path);
    if (found != nullptr && matches(*found, value))
        return;
    m_expectationsHeld = false;
    if (!m_audience.expectationFailed)
        return;
    const auto meant = found == nullptr ? nearestPath(state, path) : std::nullopt;
    m_audience.expectationFailed(m_line,
        "found " + (found != nullptr ? inScenarioWords(*found) : "nothing") + " at " + printable(path) + ", expected "
            + (value ? printable(*value) : "nil") + (meant ? " (did you mean " + printable(*meant) + "?)" : ""));
}

void Player::failFile(const std::string& message)
{
    m_filesWorked = false;
    if (m_audience.fileFailed)
        m_audience.fileFailed(message);
}

void Player::passOnWarnings()
{
    const auto& warnings = m_device.preferences->warnings();
    while (m_warningsPassedOn < warnings.size())
        failFile(warnings[m_warningsPassedOn++]);
}

} // namespace panotra::sim
