/// What happens on the days of a life with the mixer, and what is compared after each event.
#include "tests/endurance/Year.h"

#include "simulator/LinkedLibrary.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Preferences.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/device/View.h"
#include "tests/endurance/LevelModel.h"
#include "tests/property/Invariants.h"

#include <malloc.h>

#include <nlohmann/json.hpp>

#include <array>
#include <cmath>
#include <random>

namespace panotra::testing {
namespace {

constexpr const char* domain = "net.qorvath.panotra";
constexpr double secondsOfADay = 86400;

constexpr std::array categories { "Audio/Video", "Audio/Video", "PhoneCall" };
constexpr std::array routes { "Receiver", "Speaker", "Headphone", "Headset", "HeadphonesBT", "HeadsetBT", "AirTunes" };
constexpr std::array programsCategories { "Audio/Video", "PhoneCall", "Ringtone", "Alarm", "VoiceCommand" };
/// Seconds between events: within a movement, within a showing, and the hours between. None is as long as a delay of
/// the system, so that nothing is due at the very moment of an event.
constexpr std::array waits { 0.0, 0.03, 0.07, 0.13, 0.17, 0.27, 0.37, 0.6, 0.9, 1.3, 1.7, 2.3, 5.0, 60.0, 300.0,
    900.0 };
/// No more than the fade-out: a slider is not torn down between two moves of a drag that is short.
constexpr std::array dragWaits { 0.0, 0.03, 0.07, 0.11 };
constexpr unsigned longestDrag = 3;

constexpr std::array<float, LevelModel::slots> firstLevels { 0.5f, 0.375f, 0.25f, 0.25f, 0.625f, 0.75f, 0.25f, 0.5f,
    0.25f, 0.125f, 0.25f, 0.3125f };

class Life {
public:
    explicit Life(const YearAsked& asked)
        : m_asked(asked)
        , m_random(asked.seed)
        , m_library(sim::loadedLibrary())
    {
        m_device.classes->setPresent("UIViewPropertyAnimator", false);
        m_device.audio->echo = true;
        set("replaceHUD", true);
        set("dismissOnTouch", true);
        set("handleShake", true);
        m_model.remembered = firstLevels;
        for (std::size_t slot = 0; slot < firstLevels.size(); ++slot)
            set(keyOf(slot), static_cast<double>(firstLevels[slot]));
        m_library.load();
        m_device.home->finishLaunching();
        m_model.reloadSettings();
        turn();
    }

    YearLived live()
    {
        while (m_lived.days < m_asked.days && !m_lived.complaint)
            liveADay();
        return m_lived;
    }

private:
    // Chance.

    unsigned below(unsigned count) { return static_cast<unsigned>(m_random() % count); }
    template <typename Table> auto oneOf(const Table& table)
    {
        return table[below(static_cast<unsigned>(table.size()))];
    }
    /// From a sixteenth to one, so that no save is held back.
    float level() { return static_cast<float>(1 + below(16)) / 16; }

    // The process.

    static std::string keyOf(std::size_t slot) { return "volume" + std::to_string(slot); }
    void set(const std::string& key, const sim::Json& value) { m_device.preferences->set(domain, key, value); }
    sim::View* slider(std::size_t slot) const
    {
        return dynamic_cast<sim::View*>(m_device.classes->heldInField("_volumeView" + std::to_string(slot)));
    }
    bool isShown() const { return m_device.classes->heldInField("_window") != nullptr; }
    void turn()
    {
        m_device.runLoop->turn();
        m_device.classes->drainAutoreleasePool();
    }

    void pass(double seconds)
    {
        m_device.runLoop->wait(seconds);
        m_device.classes->drainAutoreleasePool();
        m_model.pass(seconds);
    }

    // What happens. Each tells the model, too.

    void press()
    {
        const std::string& category = m_model.category();
        const bool mayGoDown = category == "Audio/Video" || m_model.system[category] > 0.0625f;
        const bool isUp = !mayGoDown || below(2) == 0;
        const sim::Button button = isUp ? sim::Button::Up : sim::Button::Down;
        m_device.home->press(button);
        m_model.press(isUp);
        turn();
        pass(oneOf(dragWaits));
        m_device.home->release(button);
    }

    void changeRoute()
    {
        const std::string route = oneOf(routes);
        m_device.audio->route = route;
        m_device.home->announce(m_model.category(), "RouteChange", m_model.system[m_model.category()]);
        m_model.changeRoute(route);
    }

    void changeCategory()
    {
        const std::string category = oneOf(categories);
        m_device.audio->activeCategory = category;
        m_device.home->announce(category, "CategoryChange", m_model.system[category]);
        m_model.changeCategory(category);
    }

    void setByProgram()
    {
        const std::string category = oneOf(programsCategories);
        const float next = level();
        m_device.home->setVolume(category, next);
        m_model.setByProgram(category, next);
    }

    void drag()
    {
        const std::size_t slot = below(LevelModel::slots);
        const auto* const container = dynamic_cast<sim::View*>(m_device.classes->heldInField("_containerView"));
        if (container == nullptr || container->alpha == 0)
            return; // no finger finds what fades
        m_model.beginDrag();
        moveFinger(slot, 1);
        for (unsigned moves = below(longestDrag); moves > 0; --moves) {
            pass(oneOf(dragWaits));
            moveFinger(slot, 2);
        }
        moveFinger(slot, 3);
        m_model.endDrag();
    }

    /// `state`: 1 begins, 2 goes on, 3 ends.
    void moveFinger(std::size_t slot, std::int64_t state)
    {
        const sim::View* const view = slider(slot);
        if (view == nullptr)
            return;
        const double width = view->frame().width;
        const double x = below(400) / 4.0;
        const double least = slot < 3 || slot == 11 ? 0 : 0.0625;
        // The finger first enlarges the slider: what it is then is what counts.
        const double shown
            = std::clamp(x, least * (state == 1 ? enlarged(*view) : width), state == 1 ? enlarged(*view) : width)
            / (state == 1 ? enlarged(*view) : width);
        m_device.home->pan(static_cast<int>(slot), state, x);
        m_model.drag(slot, static_cast<float>(shown));
        ++m_lived.drags;
        turn();
    }

    static double enlarged(const sim::View& view) { return view.bounds.width * 1.05; }

    void reloadSettings()
    {
        set("activeStyle", static_cast<int>(below(2)));
        set("mixerSkin", static_cast<int>(below(4)));
        set("replaceHUD", below(4) != 0);
        m_device.home->notify("net.qorvath.panotra.settingschanged");
        m_model.reloadSettings();
    }

    void turnThePhone()
    {
        m_device.screen->orientation = 1 + below(4);
        m_device.home->reorientHUD(true);
    }

    void touch()
    {
        m_device.touches->down(below(375), below(667));
        m_device.touches->up();
    }

    void changeScreen()
    {
        m_device.darwin->setState("com.apple.springboard.screenchanged", below(10));
        m_device.home->notify("com.apple.springboard.screenchanged");
    }

    void anything()
    {
        switch (below(20)) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
            return press();
        case 5:
        case 6:
            return changeRoute();
        case 7:
            return changeCategory();
        case 8:
            return setByProgram();
        case 9:
        case 10:
        case 11:
            return drag();
        case 12:
        case 13:
            m_device.home->playSound(1);
            return m_model.playSound();
        case 14:
            return reloadSettings();
        case 15:
            return m_device.home->setRingerMuted(below(2) == 0);
        case 16:
            return m_device.home->motionBegan(1);
        case 17:
            return m_device.home->sendActivatorEvent("net.qorvath.panotra.presentdismissmixer");
        case 18:
            return below(2) == 0 ? touch() : changeScreen();
        default:
            return turnThePhone();
        }
    }

    // What is looked at.

    std::optional<std::string> difference() const
    {
        const sim::Json stored = m_device.preferences->all()[domain];
        for (std::size_t slot = 0; slot < LevelModel::slots; ++slot) {
            sim::View* const view = slider(slot);
            const float found = view != nullptr
                ? static_cast<float>(m_device.classes->scalarForKey(view, "volume").get<double>())
                : stored[keyOf(slot)].get<float>();
            if (found != m_model.remembered[slot] || stored[keyOf(slot)].get<float>() != found)
                return "slot " + std::to_string(slot) + " has " + std::to_string(found) + ", expected "
                    + std::to_string(m_model.remembered[slot]);
        }
        for (const auto& [category, expected] : m_model.system) {
            if (m_device.audio->level(category) != expected)
                return "the system has " + std::to_string(m_device.audio->level(category)) + " for " + category
                    + ", expected " + std::to_string(expected);
        }
        return std::nullopt;
    }

    void complain(const std::string& what)
    {
        if (!m_lived.complaint)
            m_lived.complaint
                = "day " + std::to_string(m_lived.days + 1) + ", event " + std::to_string(m_lived.events) + ": " + what;
    }

    void liveADay()
    {
        const double evening = (m_lived.days + 1) * secondsOfADay;
        if (m_asked.plant != nullptr)
            m_asked.plant(m_device, m_lived.days);
        for (unsigned event = 0; event < m_asked.eventsADay && !m_lived.complaint; ++event) {
            const bool wasShown = isShown();
            anything();
            turn();
            m_lived.showings += !wasShown && isShown() ? 1 : 0;
            ++m_lived.events;
            if (const auto wrong = difference())
                complain(*wrong);
            pass(oneOf(waits));
        }
        pass(std::max(evening - m_device.runLoop->now(), 0.0) + 10);
        dismiss();
        ++m_lived.days;
        count();
        if (m_asked.midnight)
            m_asked.midnight(m_lived.days);
    }

    /// What is shown on demand stays; at night nobody looks.
    void dismiss()
    {
        m_device.home->sendActivatorEvent("net.qorvath.panotra.dismissmixer");
        pass(10);
        if (const auto wrong = difference())
            complain("at midnight, " + *wrong);
        if (isShown())
            complain("the mixer is still there at midnight");
        if (const auto left = leftOver(m_device))
            complain("at midnight, " + *left);
    }

    void count()
    {
        // Some things are made at their first use: they are there after a few days.
        constexpr unsigned firstDays = 3;
        m_lived.heapAtTheEnd = mallinfo2().uordblks;
        if (m_lived.days == firstDays) {
            m_lived.heapAfterFirstDays = m_lived.heapAtTheEnd;
            m_lived.objects = m_device.classes->liveObjects();
        }
        // The blur that outlives its panel, its contents and its layer are there or not.
        constexpr std::size_t ofBlur = 6;
        const std::size_t objects = m_device.classes->liveObjects();
        if (m_lived.days > firstDays && objects > m_lived.objects + ofBlur)
            complain(std::to_string(objects) + " objects at midnight, of " + std::to_string(m_lived.objects));
    }

    const YearAsked& m_asked;
    std::mt19937_64 m_random;
    sim::Device m_device;
    sim::Library m_library;
    LevelModel m_model;
    YearLived m_lived;
};

} // namespace

YearLived liveAYear(const YearAsked& asked)
{
    return Life(asked).live();
}

} // namespace panotra::testing
