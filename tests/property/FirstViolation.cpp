/// Plays a scenario under the invariants' eyes, and watches what no moment shows: which keys are saved together.
#include "tests/property/Invariants.h"

#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/scenario/Player.h"

#include <nlohmann/json.hpp>

#include <utility>
#include <vector>

namespace panotra::testing {
namespace {

class Watch {
public:
    explicit Watch(sim::Device& device)
        : m_device(device)
    {
        device.traceSink = [this](const sim::Json& event) {
            see(event);
        };
    }

    /// Between two commands.
    void look(const std::string& when)
    {
        if (m_complaint)
            return;
        for (const Invariant& invariant : invariants()) {
            if (const auto violation = invariant.violation({ m_device, m_ringerWasMuted })) {
                m_complaint = when + ": " + *violation;
                return;
            }
        }
        closeSave();
        if (m_brokenSave)
            m_complaint = when + ": " + *m_brokenSave;
    }

    /// After the last command: everything ends, and nothing may be left.
    void end()
    {
        m_device.touches->up();
        constexpr double longEnough = 1000;
        m_device.runLoop->wait(longEnough);
        if (processValues.sharedController)
            PNOController::sharedInstance().destroyHUDWindow();
        m_device.runLoop->wait(longEnough);
        m_device.classes->drainAutoreleasePool();
        look("at the end");
        if (m_complaint)
            return;
        if (const auto left = leftOver(m_device))
            m_complaint = "at the end: " + *left;
    }

    const std::optional<std::string>& complaint() const { return m_complaint; }

private:
    void see(const sim::Json& event)
    {
        const std::string& name = event["event"].get_ref<const std::string&>();
        if (name == "write") {
            m_written.push_back(event["key"]);
            return;
        }
        closeSave();
        if (name == "ringer" && event["muted"] == true)
            m_ringerWasMuted = true;
    }

    /// Keys written with nothing between them are one save: all twelve in order, or the one of a pair whose slider
    /// is not there.
    void closeSave()
    {
        if (m_written.empty())
            return;
        const auto keys = std::exchange(m_written, {});
        const bool isBuilt = processValues.sharedController && PNOController::sharedInstance().volumeView(0);
        if (keys.size() == 1 && !isBuilt)
            return;
        bool isWhole = keys.size() % volumeSlotCount == 0;
        for (std::size_t i = 0; isWhole && i < keys.size(); ++i)
            isWhole = keys[i] == "volume" + std::to_string(i % volumeSlotCount);
        if (!isWhole)
            m_brokenSave = "a save of " + std::to_string(keys.size()) + " keys from " + keys.front() + " on";
    }

    sim::Device& m_device;
    std::optional<std::string> m_complaint;
    std::optional<std::string> m_brokenSave;
    std::vector<std::string> m_written;
    bool m_ringerWasMuted = false;
};

} // namespace

std::optional<std::string> firstViolation(std::string_view text)
{
    const sim::Scenario scenario = sim::parseScenario(text);
    if (!scenario.mistakes.empty())
        return "line " + std::to_string(scenario.mistakes[0].line) + ": " + scenario.mistakes[0].message;
    sim::Device device;
    const sim::Library library = sim::loadedLibrary();
    Watch watch(device);
    sim::Audience audience;
    audience.commandBegins = [&watch](const sim::Command& command) {
        watch.look("before line " + std::to_string(command.line));
    };
    sim::Player(device, library, audience).play(scenario);
    watch.end();
    return watch.complaint();
}

} // namespace panotra::testing
