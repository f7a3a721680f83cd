/// One walk over the events. An animation says nothing of itself but its times: what stands before it tells what moves.
#include "simulator/scenario/Moment.h"

#include "facts/PublicNames.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string_view>
#include <utility>

namespace panotra::sim {

namespace {

constexpr std::string_view dismissal = "destroyHUDWindow";
constexpr std::string_view tearDown = "releaseObjects";
constexpr std::string_view shrinkBack = "resetAnimation:";

/// The blur fades in first, the panel or banner then, as long again.
constexpr double stepsOfFadeIn = 2;
/// A dismissal by a finger or a gesture is no deferred call: it shows by its fade-out alone, which nothing else is as
/// long as.
constexpr double fadeOutSeconds = 0.4;
/// Sliders that go back to their size, and the second step of a fade-in: not worth a word.
constexpr double smallMovementSeconds = 0.15;

std::string textOf(const Json& event, const char* field)
{
    const auto found = event.find(field);
    return found != event.end() && found->is_string() ? found->get<std::string>() : std::string();
}

std::optional<double> numberOf(const Json& event, const char* field)
{
    const auto found = event.find(field);
    return found != event.end() && found->is_number() ? std::optional(found->get<double>()) : std::nullopt;
}

/// The slot whose level is stored under the key of the mixer's own domain; none if it holds something else.
std::optional<SlotNumber> slotOfWrite(const Json& event)
{
    const auto key = textOf(event, "key");
    const auto slot
        = std::ranges::find_if(volumeSlots, [&key](const VolumeSlot& each) { return key == each.preferenceKey; });
    if (slot == volumeSlots.end() || textOf(event, "domain") != ownDomain || !numberOf(event, "value"))
        return std::nullopt;
    return slot->number;
}

class Reader {
public:
    Moment take(const std::vector<Json>& events)
    {
        for (const auto& event : events)
            read(event);
        finish();
        m_moment.hasReadSettings
            |= std::ranges::all_of(events, [](const Json& event) { return textOf(event, "event") == "synchronize"; });
        return std::move(m_moment);
    }

private:
    void read(const Json& event)
    {
        const auto kind = textOf(event, "event");
        if (kind == "animate")
            readAnimation(event);
        else if (!readLoading(kind, event) && !readLevel(kind, event) && !readMixer(kind) && !readCall(kind, event))
            m_moment.others.push_back(&event);
    }

    bool readLoading(std::string_view kind, const Json& event)
    {
        if (kind == "hook")
            ++m_moment.hooks;
        else if (kind == "register" || kind == "observe")
            ++m_moment.observed;
        else if (kind == "listener")
            ++m_moment.gestures;
        else if (kind == "synchronize") // levels are read from the mixer's own domain alone
            m_moment.hasReadSettings |= textOf(event, "domain") == siblingDomain;
        else
            return false;
        return true;
    }

    bool readLevel(std::string_view kind, const Json& event)
    {
        if (kind == "announced")
            readAnnouncement(event);
        else if (const auto level = numberOf(event, "level");
                 kind == "setVolume" && level && event.at("category").is_string())
            m_moment.set[textOf(event, "category")] = *level;
        else if (const auto slot = kind == "write" ? slotOfWrite(event) : std::nullopt)
            m_moment.saved[*slot] = event.at("value").get<double>();
        else
            return false;
        return true;
    }

    void readAnnouncement(const Json& event)
    {
        Moment::Announcement announcement { textOf(event, "category"), textOf(event, "reason"),
            numberOf(event, "level") };
        const auto told = std::ranges::find_if(m_moment.announced, [&announcement](const Moment::Announcement& each) {
            return each.category == announcement.category && each.reason == announcement.reason;
        });
        if (told != m_moment.announced.end())
            *told = std::move(announcement);
        else
            m_moment.announced.push_back(std::move(announcement));
    }

    bool readMixer(std::string_view kind)
    {
        if (kind == "animationEnd") {
            m_goesOn = m_isAfterEnd = true; // what its completion starts belongs to what began it
            return true;
        }
        if (kind != "windowShown") {
            m_isTurning |= kind == "reoriented";
            return false;
        }
        m_moment.isWindowShown = true;
        if (!m_animations.empty())
            m_moment.fadeIn = stepsOfFadeIn * m_animations.back();
        // What moved on the way to the window being shown is part of that.
        m_animations.clear();
        if (!m_isDismissing)
            m_moment.fadeOut.reset();
        return true;
    }

    /// Deferred calls: asked for, taken back, made.
    bool readCall(std::string_view kind, const Json& event)
    {
        const auto selector = textOf(event, "selector");
        if (selector != dismissal && selector != tearDown && selector != shrinkBack)
            return false;
        const auto object = textOf(event, "object");
        m_goesOn = m_isAfterEnd = false;
        m_slider.clear();
        if (selector == shrinkBack && kind != "schedule") {
            m_slider = object;
            m_isShrinking = kind == "perform";
            m_goesOn = object.empty(); // an absent slider is moved as well, and nothing is seen of it
        } else if (selector == dismissal && kind == "schedule") {
            m_moment.dismissal = numberOf(event, "delay");
            m_moment.isDismissalTakenBack = false;
        } else if (selector == dismissal && kind == "cancel") {
            m_moment.isDismissalTakenBack = true;
        } else if (selector == dismissal) {
            m_isDismissing = true;
        } else if (selector == tearDown && kind == "perform") {
            m_moment.isTornDown = true;
        }
        return true;
    }

    void readAnimation(const Json& event)
    {
        const double duration = numberOf(event, "duration").value_or(0);
        if (!m_slider.empty())
            (m_isShrinking ? m_moment.shrinking : m_moment.swelling).push_back(std::exchange(m_slider, {}));
        else if (m_isDismissing && !m_moment.fadeOut)
            m_moment.fadeOut = duration;
        else if (m_goesOn)
            goOn();
        else if (duration == fadeOutSeconds && !m_moment.isWindowShown && !m_isTurning)
            m_moment.fadeOut = duration;
        else
            m_animations.push_back(duration);
    }

    /// A fade-in alone starts an animation at the end of another one.
    void goOn()
    {
        m_moment.isSecondHalfOfFadeIn |= m_isAfterEnd;
        m_goesOn = m_isAfterEnd = false;
    }

    void finish()
    {
        const auto longest = std::ranges::max_element(m_animations);
        if (longest != m_animations.end() && *longest > smallMovementSeconds)
            m_moment.turn = *longest;
    }

    Moment m_moment;
    std::vector<double> m_animations; ///< the durations of those that nothing explains so far
    std::string m_slider; ///< the one that the next animation moves
    bool m_isShrinking = false; ///< it, instead of swelling
    bool m_isDismissing = false;
    bool m_isTurning = false;
    bool m_goesOn = false; ///< the next animation is no news
    bool m_isAfterEnd = false; ///< because one has just ended
};

} // namespace

Moment momentOf(const std::vector<Json>& events)
{
    return Reader().take(events);
}

} // namespace panotra::sim
