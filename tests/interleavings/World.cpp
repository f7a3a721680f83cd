/// Playing, looking and ending.
#include "tests/interleavings/World.h"

#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "tests/interleavings/StateKey.h"

#include <nlohmann/json.hpp>

#include <cassert>
#include <map>
#include <span>

namespace panotra::testing {
namespace {

/// Longer than everything that is pending can take.
constexpr double longEnough = 1000;

/// What is played after `load`, which is not played once more. The same few lines come again and again.
std::span<const sim::Command> commandsIn(const std::string& lines)
{
    struct Lines {
        std::string text;
        sim::Scenario scenario;
    };
    static std::map<std::string, Lines> known;
    Lines& found = known[lines];
    if (found.text.empty()) {
        found.text = "load\n" + lines;
        found.scenario = sim::parseScenario(found.text);
        assert(found.scenario.mistakes.empty());
    }
    return std::span(found.scenario.commands).subspan(1);
}

const sim::Scenario& begun()
{
    static const sim::Scenario scenario = sim::parseScenario(beginning);
    return scenario;
}

} // namespace

World::World(Plant plant)
    : m_player(m_device, sim::loadedLibrary(), {})
{
    m_player.play(begun());
    if (plant != nullptr)
        plant(m_device);
}

void World::repeat(const std::string& lines)
{
    if (lines.starts_with("ringer ")) {
        m_isRingerMuted = !m_isRingerMuted;
        m_ringerWasMuted = true;
    }
    for (const sim::Command& command : commandsIn(lines))
        m_player.play(command);
    followDrag();
}

void World::play(const std::string& lines, const std::string& happening)
{
    const LevelsBefore before(course());
    repeat(lines);
    look();
    note(happening.c_str(), before.violationAfter(happening, course()));
}

void World::pass(double seconds)
{
    m_device.runLoop->wait(seconds);
    m_device.classes->drainAutoreleasePool();
    followDrag();
    look();
}

std::vector<std::size_t> World::end()
{
    repeat("touch up\nrelease up\nrelease down\n");
    m_device.runLoop->wait(longEnough);
    m_device.classes->drainAutoreleasePool();
    look();
    for (const Rule& rule : rulesAtRest())
        note(rule.name, rule.violation(course()));
    std::vector<std::size_t> seen;
    for (std::size_t i = 0; i < allowances().size(); ++i) {
        if (allowances()[i].isSeen(course()))
            seen.push_back(i);
    }
    PNOController::sharedInstance().destroyHUDWindow();
    m_device.runLoop->wait(longEnough);
    m_device.classes->drainAutoreleasePool();
    look();
    note("a dismissal at rest leaves nothing behind", leftOver(m_device));
    return seen;
}

std::string World::state() const
{
    return stateText(m_device) + (m_isRingerMuted ? 'm' : '-') + (m_ringerWasMuted ? 'w' : '-')
        + (m_isDragLost ? 'l' : '-');
}

Course World::course()
{
    return { { m_device, m_ringerWasMuted }, m_isDragLost };
}

void World::note(const char* rule, const std::optional<std::string>& violation)
{
    if (violation && !m_violation)
        m_violation = std::string(rule) + ": " + *violation;
}

void World::look()
{
    for (const Invariant& invariant : invariants())
        note(invariant.name, invariant.violation(course().moment));
    for (const Rule& rule : rules())
        note(rule.name, rule.violation(course()));
}

/// A slider that goes while it is dragged takes the end of the drag with it; the next drag has an end again.
void World::followDrag()
{
    const bool isDragging = m_device.touches->isDraggingSomething();
    if (m_wasDragging && !isDragging && processValues.isPanning)
        m_isDragLost = true;
    if (!processValues.isPanning || isDragging)
        m_isDragLost = false;
    m_wasDragging = isDragging;
}

} // namespace panotra::testing
