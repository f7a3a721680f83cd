/// Dismisses a shown mixer once nothing moves, and presents it with its new looks once it is gone.
#include "simulator/window/LooksAnew.h"

#include "facts/AudioNames.h"
#include "facts/MixerSettings.h"
#include "facts/PublicNames.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/RunLoop.h"
#include "simulator/device/Services.h"
#include "simulator/scenario/Forms.h"
#include "simulator/window/Numerals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace panotra::sim {

bool changesLooks(const std::string& domain, const std::string& key)
{
    constexpr std::array looks { &mixerSetting("activeStyle"), &mixerSetting("mixerSkin"), &mixerSetting("scale") };
    return std::ranges::any_of(
        looks, [&](const MixerSetting* setting) { return domain == setting->domain && key == setting->key; });
}

void LooksAnew::ask()
{
    if (isShown() && m_step == Step::Idle)
        m_step = Step::ToDismiss;
}

void LooksAnew::follow(const Command& command)
{
    const bool wasShown = std::exchange(m_wasShown, isShown());
    if (wasShown || !m_wasShown)
        return;
    const std::string_view name = command.form->syntax.command();
    m_isOfGesture = name == "activator" || name == "shake" || name == "notify";
}

std::optional<std::string> LooksAnew::next()
{
    // A mixer that somebody touches meanwhile may come back from its dismissal: then it is dismissed again.
    constexpr double patience = 1;
    m_wasShown = isShown();
    switch (m_step) {
    case Step::Idle:
        break;
    case Step::ToDismiss:
        if (!isShown()) {
            m_step = Step::Idle; // the next showing has the new looks
        } else if (m_device.runLoop->runningAnimations() == 0) {
            m_step = Step::ToPresent;
            m_dismissedAt = m_device.runLoop->now();
            return std::string("activator ") + listener::dismiss;
        }
        break;
    case Step::ToPresent:
        if (!isShown()) {
            m_step = Step::Idle;
            return presentingLine();
        }
        if (m_device.runLoop->now() > m_dismissedAt + patience)
            m_step = Step::ToDismiss;
        break;
    }
    return std::nullopt;
}

bool LooksAnew::isShown() const
{
    return m_device.home->window() != nullptr;
}

/// One that came with a change of the volume goes away by itself, so it comes again with an announcement, which
/// changes nothing.
std::string LooksAnew::presentingLine() const
{
    const std::string category = m_device.sound->categoryInUse();
    const float level = m_device.sound->level(category);
    if (m_isOfGesture || !std::isfinite(level))
        return std::string("activator ") + listener::present;
    return "announce " + category + ' ' + changeReason::explicitChange + ' ' + numeral(level);
}

} // namespace panotra::sim
