/// The invariants, one function each; every one answers what is wrong, or nothing.
#include "tests/property/Invariants.h"

#include "controller/PNOController.h"
#include "model/ProcessValues.h"
#include "simulator/LinkedLibrary.h"
#include "simulator/device/Animation.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"
#include "simulator/scenario/Player.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace panotra::testing {
namespace {

using sim::Json;
using Complaint = std::optional<std::string>;

constexpr double fadeOutSeconds = 0.4; // nothing else lasts as long in these scenarios
constexpr double enlarged = 1.05;
constexpr SlotNumber ringerSlot = 7;

struct SliderParts {
    sim::View& view;
    sim::View& fill;
    const sim::Label& percentage;
    double volume;
};

std::string ofSlot(SlotNumber slot)
{
    return " of slider " + std::to_string(slot);
}

class Watch {
public:
    explicit Watch(sim::Device& device)
        : m_device(device)
    {
        device.traceSink = [this](const Json& event) {
            see(event);
        };
    }

    /// Between two commands.
    void look(const std::string& when)
    {
        if (m_complaint)
            return;
        using Invariant = Complaint (Watch::*)();
        for (const Invariant invariant :
            { &Watch::windowAndOverlayComeAndGoTogether, &Watch::aTouchKillsOnlyWhileItFades,
                &Watch::levelsShownAreLevelsHeld, &Watch::fillsFollowLevels, &Watch::twelveKeysAreSavedOrNone,
                &Watch::oneDismissalWaitsAtMost, &Watch::noSliderOutlivesItsMixer }) {
            if (Complaint complaint = (this->*invariant)()) {
                m_complaint = when + ": " + *complaint;
                return;
            }
        }
    }

    /// After the last command: everything ends, and nothing may be left.
    void end()
    {
        m_device.touches->up();
        constexpr double longEnough = 1000;
        m_device.runLoop->wait(longEnough);
        if (processValues.sharedController)
            controller().destroyHUDWindow();
        m_device.runLoop->wait(longEnough);
        m_device.classes->drainAutoreleasePool();
        look("at the end");
        if (m_complaint)
            return;
        if (m_device.runLoop->pendingCount() != 0 || m_device.runLoop->runningAnimations() != 0)
            m_complaint = "at the end: work is still pending";
        for (const char* const name :
            { "PNOWindow", "PNOVolumeView", "UILabel", "UIImageView", "UIPanGestureRecognizer", "NSUserDefaults" }) {
            if (m_device.classes->liveObjects(name) != 0)
                m_complaint = std::string("at the end: left over: ") + name;
        }
    }

    const Complaint& complaint() const { return m_complaint; }

private:
    static PNOController controller()
    {
        return processValues.sharedController ? PNOController::sharedInstance() : PNOController();
    }

    template <typename Action> static Complaint forEachSlider(Action action)
    {
        const PNOController mixer = controller();
        for (SlotNumber slot = 0; slot < volumeSlotCount; ++slot) {
            const PNOVolumeView slider = mixer.volumeView(slot);
            if (!slider)
                continue;
            const auto& fields = *static_cast<const PNOVolumeView::InstanceVariables*>(
                instanceVariables(slider.get(), PNOVolumeView::description()));
            const SliderParts parts { dynamic_cast<sim::View&>(*slider.get()),
                dynamic_cast<sim::View&>(*fields._volumeView.get()), dynamic_cast<sim::Label&>(*fields._label1.get()),
                fields.volume };
            if (Complaint complaint = action(slot, parts))
                return complaint;
        }
        return std::nullopt;
    }

    static std::size_t sliderCount()
    {
        std::size_t count = 0;
        forEachSlider([&count](SlotNumber, const SliderParts&) {
            ++count;
            return Complaint();
        });
        return count;
    }

    void see(const Json& event)
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
        if (keys.size() == 1 && sliderCount() == 0)
            return;
        bool isWhole = keys.size() % volumeSlotCount == 0;
        for (std::size_t i = 0; isWhole && i < keys.size(); ++i)
            isWhole = keys[i] == "volume" + std::to_string(i % volumeSlotCount);
        if (!isWhole)
            m_brokenSave = "a save of " + std::to_string(keys.size()) + " keys from " + keys.front() + " on";
    }

    Complaint twelveKeysAreSavedOrNone()
    {
        closeSave();
        return m_brokenSave;
    }

    Complaint windowAndOverlayComeAndGoTogether()
    {
        const PNOController mixer = controller();
        const bool isSet = bool(mixer.window());
        if (isSet != bool(mixer.rootView()))
            return "a window and a root view that are not both there";
        if (m_device.classes->liveObjects("PNOWindow") != (isSet ? 1u : 0u))
            return "windows alive: " + std::to_string(m_device.classes->liveObjects("PNOWindow"));
        const std::size_t sliders = sliderCount();
        if (sliders != 0 && (sliders != volumeSlotCount || !isSet))
            return "sliders in the fields: " + std::to_string(sliders);
        return std::nullopt;
    }

    Complaint aTouchKillsOnlyWhileItFades()
    {
        const auto& running = m_device.runLoop->animations();
        const bool isFading
            = std::ranges::any_of(running, [](const auto& animation) { return animation->duration == fadeOutSeconds; });
        if (processValues.killedByTouch && !isFading)
            return "killedByTouch is left over from a dismissal";
        return std::nullopt;
    }

    Complaint levelsShownAreLevelsHeld()
    {
        return forEachSlider([this](SlotNumber slot, const SliderParts& slider) -> Complaint {
            const std::string shown = slider.percentage.text.value_or("");
            const std::string held = std::to_string(std::lround(static_cast<float>(slider.volume * 100))) + "%";
            if (shown == held || (slot == ringerSlot && m_ringerWasMuted && shown == "Silent"))
                return std::nullopt;
            return "shown " + shown + ", held " + held + ofSlot(slot);
        });
    }

    /// A fill is as wide as the slider was when its level was last drawn: at rest or enlarged.
    Complaint fillsFollowLevels()
    {
        return forEachSlider([](SlotNumber slot, const SliderParts& slider) -> Complaint {
            const double width = slider.fill.frame().width;
            for (const double scale : { 1.0, enlarged }) {
                if (std::abs(width - slider.volume * slider.view.bounds.width * scale) < 1e-6)
                    return std::nullopt;
            }
            return "fill " + std::to_string(width) + " at level " + std::to_string(slider.volume) + ofSlot(slot);
        });
    }

    Complaint oneDismissalWaitsAtMost()
    {
        const auto waiting = m_device.runLoop->pending();
        const auto dismissals = std::ranges::count_if(
            waiting, [](const Json& perform) { return perform["selector"] == "destroyHUDWindow"; });
        return dismissals > 1 ? Complaint(std::to_string(dismissals) + " dismissals are pending") : std::nullopt;
    }

    /// Only deferred work may hold a slider longer than the mixer does.
    Complaint noSliderOutlivesItsMixer()
    {
        const auto waiting = m_device.runLoop->pending();
        const bool isHeld = m_device.runLoop->runningAnimations() != 0
            || std::ranges::any_of(
                waiting, [](const Json& perform) { return perform["selector"] == "resetAnimation:"; });
        const std::size_t alive = m_device.classes->liveObjects("PNOVolumeView");
        if (!isHeld && alive != sliderCount())
            return std::to_string(alive) + " sliders are alive";
        return std::nullopt;
    }

    sim::Device& m_device;
    Complaint m_complaint;
    Complaint m_brokenSave;
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
