/// The events that come from outside, each sent through the class table, and the objects that they reach.
#include "simulator/device/HomeScreen.h"

#include "facts/AudioNames.h"
#include "simulator/device/AudioService.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/DarwinNotifications.h"
#include "simulator/device/EventFields.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Saturated.h"
#include "simulator/device/Screen.h"
#include "simulator/device/SystemShape.h"
#include "simulator/device/Values.h"
#include "simulator/device/View.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <thread>
#include <utility>

namespace panotra::sim {

namespace {

/// What one press of a volume button is worth.
constexpr double volumeStep = 0.0625;

constexpr std::int64_t shakeSubtype = 1; ///< UIEventSubtypeMotionShake

/// What the gesture framework asks a listener, by the word for it.
constexpr std::pair<std::string_view, const char*> listenerQuestions[] = {
    { "group", "activator:requiresLocalizedGroupForListenerName:" },
    { "title", "activator:requiresLocalizedTitleForListenerName:" },
    { "description", "activator:requiresLocalizedDescriptionForListenerName:" },
};

/// Null knows nothing.
bool knows(const HostObject* object, const char* method)
{
    return object != nullptr && object->isa->find(selector(method)) != nullptr;
}

/// `_realDisplayBounds` of the screen: pixels, upright.
Rect realDisplayBoundsOfScreen(HostObject*, const HostSelector*)
{
    const Screen& screen = *Device::current()->screen;
    return { 0, 0, screen.width * screen.scale, screen.height * screen.scale };
}

} // namespace

struct HomeScreen::Implementation {
    explicit Implementation(Device& owner)
        : device(owner)
    {
    }

    Device& device;
    std::map<std::string, HostObject*, std::less<>> shared; ///< counted; by class
    std::vector<std::pair<std::string, HostObject*>> listeners; ///< counted; in the order of registration

    ClassTable& classes() const { return *device.classes; }

    /// Sends a message to the audio service where its system calls that method: on the main thread, or on a queue of
    /// the service's own, for which the main thread waits. What is left to the main thread there is done at once.
    template <typename Result, typename... Arguments>
    void tellAudioService(HostObject* service, const char* method, Arguments... arguments) const
    {
        const auto tell = [=] {
            send<Result, Arguments...>(service, selector(method), arguments...);
        };
        if (!isCalledOnAudioQueue(device, "AVSystemController", method)) {
            tell();
            return;
        }
        std::thread(tell).join();
        device.runLoop->runPosted();
    }

    /// The listener object: the one of that name, or else the first that registered at all, which then answers for
    /// any name. Null before, and without the framework.
    HostObject* listener(const std::string& name) const
    {
        if (listeners.empty() || classes().find("LAActivator") == nullptr)
            return nullptr;
        const auto named = std::ranges::find(listeners, name, &std::pair<std::string, HostObject*>::first);
        return named == listeners.end() ? listeners.front().second : named->second;
    }

    HostObject* string(const std::string& text) const { return autoreleasedString(text); }

    template <typename Object, typename... Arguments>
    Object* autoreleased(const char* className, Arguments&&... arguments) const
    {
        auto* const object = classes().make<Object>(className, std::forward<Arguments>(arguments)...);
        classes().autorelease(object);
        return object;
    }
};

HomeScreen::HomeScreen(Device& device)
    : m_implementation(std::make_unique<Implementation>(device))
{
}

HomeScreen::~HomeScreen() = default;

HostObject* HomeScreen::shared(const std::string& className)
{
    HostClass* isa = m_implementation->classes().find(className);
    if (isa == nullptr)
        return nullptr;
    if (className == "UIApplication") {
        if (HostClass* const application = m_implementation->classes().find("SpringBoard"))
            isa = application;
        else if (m_implementation->device.system)
            isa = &m_implementation->classes().platformClass("SpringBoard"); // what is lacking is its name
    }
    HostObject*& object = m_implementation->shared[isa->name];
    if (object == nullptr)
        object = m_implementation->classes().instantiate(*isa);
    return object;
}

HostObject* HomeScreen::statusBar()
{
    HostObject* bar = nullptr;
    for (const char* const className : { "UIStatusBar", "_UIStatusBar", "UIView" }) {
        if (bar == nullptr)
            bar = shared(className);
    }
    auto* const view = static_cast<View*>(bar);
    if (view != nullptr) {
        const auto [x, y] = m_implementation->device.screen->currentStatusBarCenter();
        view->center = { x, y };
        view->hidden = m_implementation->device.screen->statusBarHidden;
    }
    return view;
}

HostObject* HomeScreen::windowScene()
{
    const auto isThere = [this](const char* className) {
        return m_implementation->classes().find(className) != nullptr;
    };
    const bool canBeAskedFor = isThere("UIApplication") || isThere("SpringBoard");
    const bool hasScenes
        = isOfTheSystem(m_implementation->device, "SBWindowScene") && isThere("UIWindowScene") && canBeAskedFor;
    return hasScenes ? shared("SBWindowScene") : nullptr;
}

void HomeScreen::showIndicator(double level, double stay)
{
    indicator = { level, m_implementation->device.runLoop->now(), stay };
}

HostObject* HomeScreen::mainScreen()
{
    HostObject* const screen = shared("UIScreen");
    if (screen == nullptr)
        return nullptr;
    const HostSelector* const realDisplayBounds = selector("_realDisplayBounds");
    if (m_implementation->device.screen->hasRealDisplayBounds && !m_implementation->device.system)
        screen->isa->methods.emplace(realDisplayBounds, implementation(realDisplayBoundsOfScreen));
    else
        screen->isa->methods.erase(realDisplayBounds);
    return screen;
}

HostObject* HomeScreen::window()
{
    return m_implementation->classes().heldInField("_window");
}

void HomeScreen::finishLaunching()
{
    HostObject* const application = shared("SpringBoard");
    send<void>(application, selector("applicationDidFinishLaunching:"), application);
}

void HomeScreen::announce(
    const std::optional<std::string>& category, const std::optional<std::string>& reason, std::optional<float> level)
{
    HostObject* const service = shared("AVSystemController");
    if (service == nullptr)
        return;
    ClassTable& classes = m_implementation->classes();
    const Device& device = m_implementation->device;
    auto* const announcement = m_implementation->autoreleased<Dictionary>("NSDictionary");
    if (category.has_value())
        announcement->adopt(currentKey(device, announcementKey::category), classes.make<String>("NSString", *category));
    if (reason.has_value())
        announcement->adopt(currentKey(device, announcementKey::reason), classes.make<String>("NSString", *reason));
    if (level.has_value())
        announcement->adopt(
            currentKey(device, announcementKey::level), classes.make<Number>("NSNumber", static_cast<double>(*level)));
    m_implementation->tellAudioService<void, HostObject*>(service, "postEffectiveVolumeNotification:", announcement);
}

void HomeScreen::announceChange(const std::string& category, float level)
{
    announce(category, changeReason::explicitChange, level);
}

void HomeScreen::getActiveCategoryVolume(bool named)
{
    float level = 0;
    HostObject* name = nullptr;
    m_implementation->tellAudioService<bool, float*, HostObject**, HostObject*>(shared("AVSystemController"),
        "getActiveCategoryVolume:andName:fallbackCategory:", &level, named ? &name : nullptr, nullptr);
}

void HomeScreen::setVolume(const std::string& category, float level)
{
    m_implementation->tellAudioService<bool, float, HostObject*>(
        shared("AVSystemController"), "setVolumeTo:forCategory:", level, m_implementation->string(category));
}

void HomeScreen::press(Button button)
{
    (button == Button::Up ? volumeUpIsDown : volumeDownIsDown) = true;
    SoundService& sound = *m_implementation->device.sound;
    const std::string category = sound.categoryInUse();
    const double step = button == Button::Up ? volumeStep : -volumeStep;
    const auto level = static_cast<float>(std::clamp(double { sound.level(category) } + step, 0.0, 1.0));
    sound.store(category, level);
    announceChange(category, level);
    presentVolumeHUD(volumeMode, level);
}

void HomeScreen::release(Button button)
{
    (button == Button::Up ? volumeUpIsDown : volumeDownIsDown) = false;
}

void HomeScreen::presentHUD(double autoDismissDelay)
{
    requestedStay = autoDismissDelay;
    HostObject* const controller = shared("SBHUDController");
    if (knows(controller, "presentHUDView:autoDismissWithDelay:"))
        send<void>(controller, selector("presentHUDView:autoDismissWithDelay:"),
            m_implementation->autoreleased<View>("UIView"), autoDismissDelay);
    else if (knows(controller, "_presentHUD:animated:"))
        send<void>(controller, selector("_presentHUD:animated:"),
            m_implementation->autoreleased<HostObject>("_SBHUDModel"), true);
}

void HomeScreen::presentVolumeHUD(std::int64_t mode, float level)
{
    requestedMode = mode;
    HostObject* const buttons = shared("VolumeControl");
    if (knows(buttons, "_presentVolumeHUDWithMode:volume:"))
        send<void>(buttons, selector("_presentVolumeHUDWithMode:volume:"), saturated<std::int32_t>(mode), level);
    else
        send<void>(shared("SBVolumeControl"), selector("_presentVolumeHUDWithVolume:"), level);
}

void HomeScreen::reorientHUD(bool flag)
{
    HostObject* const controller = shared("SBHUDController");
    if (knows(controller, "reorientHUDIfNeeded:"))
        send<void>(controller, selector("reorientHUDIfNeeded:"), flag);
    else if (controller != nullptr && flag) // a class that is lacking takes along what took the place of its methods
        send<void, std::int64_t, double, HostObject*>(shared("SpringBoard"),
            selector("noteInterfaceOrientationChanged:duration:logMessage:"),
            m_implementation->device.screen->orientation, rotationDuration, nullptr);
}

void HomeScreen::setStatusBarFrame(const std::string& statusBarClass, double x, double y, double width, double height)
{
    send<void>(shared(statusBarClass), selector("setFrame:"), Rect { x, y, width, height });
}

void HomeScreen::setRingerMuted(bool muted)
{
    HostObject* const controller = shared("SBMediaController");
    send<void>(knows(controller, "setRingerMuted:") ? controller : shared("SBRingerControl"),
        selector("setRingerMuted:"), muted);
}

void HomeScreen::playSound(std::optional<std::int64_t> type)
{
    HostObject* const player = shared("SBSoundController");
    if (player != nullptr)
        banner = { m_implementation->device.runLoop->now() };
    HostObject* sound = nullptr;
    if (type.has_value())
        sound = m_implementation->autoreleased<Sound>("SBUISound", *type);
    else
        sound = m_implementation->autoreleased<HostObject>("NSObject");
    send<bool, HostObject*, std::int64_t, HostObject*>(
        player, selector("playSound:environments:completion:"), sound, 0, nullptr);
}

void HomeScreen::motionBegan(std::int64_t type)
{
    HostObject* const event = m_implementation->autoreleased<Event>("UIEvent", type);
    send<void>(shared("UIResponder"), selector("motionBegan:withEvent:"), shakeSubtype, event);
}

void HomeScreen::notify(const std::string& name)
{
    m_implementation->device.darwin->deliver(name);
}

void HomeScreen::registerListener(HostObject* listener, const std::string& name)
{
    m_implementation->device.trace("listener", [&](EventFields& fields) { fields.add("name", name); });
    if (listener == nullptr)
        return;
    retain(listener);
    m_implementation->listeners.emplace_back(name, listener);
}

void HomeScreen::sendActivatorEvent(const std::string& listener)
{
    HostObject* const event = m_implementation->autoreleased<GestureEvent>("LAEvent", listener);
    send<void>(m_implementation->listener(listener), selector("activator:receiveEvent:forListenerName:"),
        shared("LAActivator"), event, m_implementation->string(listener));
}

void HomeScreen::askActivator(const std::string& question, const std::string& listener)
{
    HostObject* const asked = m_implementation->listener(listener);
    if (asked == nullptr)
        return;
    HostObject* const activator = shared("LAActivator");
    HostObject* const name = m_implementation->string(listener);
    Json value;
    if (question == "icon") {
        double scale = m_implementation->device.screen->scale;
        const auto* const data = dynamic_cast<const Data*>(send<HostObject*>(
            asked, selector("activator:requiresSmallIconDataForListenerName:scale:"), activator, name, &scale));
        if (data != nullptr)
            value = data->bytes.size();
    } else {
        const auto row
            = std::ranges::find(listenerQuestions, question, &std::pair<std::string_view, const char*>::first);
        if (row == std::end(listenerQuestions))
            return;
        if (const std::string* const text = textOf(send<HostObject*>(asked, selector(row->second), activator, name)))
            value = *text;
    }
    m_implementation->device.trace(
        "answer", [&](EventFields& fields) { fields.add("listener", listener, "question", question, "value", value); });
}

void HomeScreen::pan(int slot, std::int64_t state, double x)
{
    auto* const slider
        = dynamic_cast<View*>(m_implementation->classes().heldInField("_volumeView" + std::to_string(slot)));
    if (slider == nullptr || slider->recognizers.empty())
        return;
    PanRecognizer& recognizer = *slider->recognizers.front();
    retain(&recognizer);
    recognizer.fixedX = x;
    recognizer.send(state);
    recognizer.fixedX.reset();
    sim::release(&recognizer);
}

} // namespace panotra::sim
