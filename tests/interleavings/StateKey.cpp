/// A walk over the process that writes down each thing once.
#include "tests/interleavings/StateKey.h"

#include "controller/PNOController.h"
#include "facts/PublicNames.h"
#include "model/ProcessValues.h"
#include "simulator/device/Animation.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <functional>
#include <unordered_map>
#include <vector>

namespace panotra::testing {
namespace {

class Walk {
public:
    explicit Walk(const sim::Device& device)
        : m_device(device)
    {
    }

    std::string text()
    {
        addValues();
        addHost();
        addController();
        addQueue();
        addFinger();
        // Those that are found on the way are written down in their turn.
        for (std::size_t next = 0; next < m_views.size(); ++next)
            addView(*m_views[next]);
        return std::move(m_text);
    }

private:
    void add(std::int64_t number) { m_text.append(reinterpret_cast<const char*>(&number), sizeof number); }
    void add(bool value) { m_text += value ? '1' : '0'; }
    void add(double number)
    {
        constexpr double unit = 1e-6;
        add(std::isfinite(number) ? static_cast<std::int64_t>(std::llround(number / unit)) : std::int64_t { -1 });
    }
    void add(const std::string& text)
    {
        add(static_cast<std::int64_t>(text.size()));
        m_text += text;
    }
    template <typename... Values> void addAll(const Values&... values) { (add(values), ...); }

    /// The number that a view gets when it is first met; 0 for none.
    void addReference(const HostObject* object)
    {
        const auto* const view = dynamic_cast<const sim::View*>(object);
        if (view == nullptr) {
            add(std::int64_t { 0 });
            return;
        }
        const auto [place, isNew] = m_numbers.try_emplace(view, static_cast<std::int64_t>(m_views.size()) + 1);
        if (isNew)
            m_views.push_back(view);
        add(place->second);
    }
    void addReference(const NSObject& handle) { addReference(handle.get()); }

    void addValues()
    {
        const ProcessValues& values = processValues;
        forEachHeldSetting([this](const MixerSetting&, auto held) { add(static_cast<double>(processValues.*held)); });
        addAll(values.manualSet, values.isHackedRingtoneVolume, values.isPanning, values.presentedViaActivator,
            values.autoResetTransform, values.killedByTouch, values.globalCategoryWasSeeded, values.justCreated,
            values.previousOrientation, values.rotationDuration);
        const NSString category = values.globalCategory.get();
        add(category ? std::string(category.view()) : std::string("-"));
    }

    void addHost()
    {
        for (const auto& [category, level] : m_device.audio->levels)
            addAll(category, static_cast<double>(level));
        addAll(m_device.audio->route.value_or("-"), m_device.audio->activeCategory, m_device.audio->echo);
        const sim::HomeScreen& home = *m_device.home;
        addAll(
            home.volumeMode, home.volumeUpIsDown, home.volumeDownIsDown, home.assistantVisible, home.rotationDuration);
        addAll(m_device.screen->orientation, m_device.screen->statusBarHidden);
        add(m_device.preferences->all().dump());
        add(static_cast<std::int64_t>(m_device.darwin->state(notification::screenChanged)));
        add(static_cast<std::int64_t>(m_device.classes->liveObjects()));
    }

    void addController()
    {
        const void* const fields = processValues.sharedController
            ? instanceVariables(PNOController::sharedInstance().get(), PNOController::description())
            : nullptr;
        if (fields == nullptr)
            return;
        const auto& mixer = *static_cast<const PNOController::InstanceVariables*>(fields);
        addReference(mixer._window);
        addReference(mixer._rootView);
        addReference(mixer._containerView);
        addReference(mixer._rootBackdropView);
        addReference(mixer._blurBackdropView);
        for (const UIView& group : mixer._groupView)
            addReference(group);
        for (const UILabel& label : mixer._groupLabel)
            addReference(label);
        for (const PNOVolumeView& slider : mixer._volumeView)
            addReference(slider);
        add(static_cast<double>(mixer._volume));
    }

    void addQueue()
    {
        const double now = m_device.runLoop->now();
        for (const auto& waiting : m_device.runLoop->waiting()) {
            add(waiting.due - now);
            add(waiting.selector != nullptr ? waiting.selector->name : std::string());
            addReference(waiting.object);
            add(waiting.hasCompletion);
            if (waiting.ending == nullptr)
                continue;
            addAll(waiting.ending->delay, waiting.ending->duration);
            for (const sim::Animation::Change& change : waiting.ending->changes()) {
                addReference(change.view);
                add(static_cast<std::int64_t>(change.property));
            }
        }
    }

    void addFinger()
    {
        const auto& finger = m_device.touches->finger();
        add(finger.has_value());
        if (!finger)
            return;
        addAll(finger->down.x, finger->down.y, finger->now.x, finger->now.y, finger->isDragging,
            m_device.touches->isDraggingSomething());
        addReference(finger->recognizer != nullptr ? finger->recognizer->view : nullptr);
    }

    void addView(const sim::View& view)
    {
        addAll(view.isa->name, view.center.x, view.center.y, view.bounds.width, view.bounds.height, view.alpha,
            view.hidden, view.interaction);
        addAll(view.transform.a, view.transform.b, view.transform.c, view.transform.d);
        addAll(static_cast<std::int64_t>(view.background.has_value()), view.layer.cornerRadius);
        addReference(view.superview);
        add(static_cast<std::int64_t>(view.subviews.size()));
        for (const sim::View* const subview : view.subviews)
            addReference(subview);
        for (const sim::PanRecognizer* const recognizer : view.recognizers)
            add(recognizer->state);
        if (const auto* const label = dynamic_cast<const sim::Label*>(&view))
            add(label->text.value_or(""));
        if (const auto* const backdrop = dynamic_cast<const sim::BackdropView*>(&view))
            addAll(backdrop->style, backdrop->blurRadius.value_or(-1), backdrop->autosizes);
        if (const auto* const slider = static_cast<const PNOVolumeView::InstanceVariables*>(
                view.isa->name == "PNOVolumeView" ? static_cast<const void*>(view.instanceVariables.get()) : nullptr)) {
            addAll(static_cast<double>(slider->volume), slider->_canGoToZero, view.tag);
        }
    }

    const sim::Device& m_device;
    std::string m_text;
    std::unordered_map<const sim::View*, std::int64_t> m_numbers;
    std::vector<const sim::View*> m_views;
};

} // namespace

std::string stateText(const sim::Device& device)
{
    return Walk(device).text();
}

std::uint64_t keyOf(const std::string& state)
{
    return std::hash<std::string> {}(state);
}

} // namespace panotra::testing
