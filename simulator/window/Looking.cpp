/// What a person does to the window's own looks: menu, tabs, trace, inspector.
#include "simulator/device/Services.h"
#include "simulator/window/Menu.h"
#include "simulator/window/Person.h"
#include "simulator/window/PhoneModels.h"
#include "simulator/window/TracePanel.h"

#include <algorithm>

namespace panotra::sim {

using Purpose = Spot::Purpose;

void Person::perform(WindowAct act)
{
    const auto over = [this](Overlaid overlay) {
        const bool isThere = m_attention.overlay == overlay;
        putOverlayAway();
        if (!isThere)
            m_attention.overlay = overlay;
    };
    switch (act) {
    case WindowAct::Help:
        over(Overlaid::Help);
        break;
    case WindowAct::Menu:
        over(Overlaid::Menu);
        break;
    case WindowAct::Inspector:
        showTab(m_attention.tab == Tab::Inspector ? Tab::Controls : Tab::Inspector);
        break;
    case WindowAct::OtherSystem:
        if (m_session.canChangeSystem())
            m_attention.wantsPhone = NewPhone { .system = nextSystem(m_session.device().system) };
        break;
    case WindowAct::CopyTrace:
        copyTrace();
        break;
    default:
        break;
    }
}

void Person::putOverlayAway()
{
    m_attention.overlay = Overlaid::Nothing;
    m_attention.isForgettingAsked = false;
    m_attention.focused.reset();
}

void Person::showTab(Tab tab)
{
    m_attention.tab = tab;
    m_attention.trace.back = 0;
}

void Person::chooseInMenu(const Spot& spot)
{
    switch (static_cast<MenuRow>(spot.index)) {
    case MenuRow::Device:
        m_attention.wantsPhone = NewPhone { .screen = phoneModels[spot.choice].screen };
        break;
    case MenuRow::System:
        m_attention.wantsPhone = NewPhone { .system = systemChoices()[spot.choice] };
        break;
    case MenuRow::Wallpaper:
        if (m_means.hang)
            m_means.hang(choicesOf(MenuRow::Wallpaper, m_attention)[spot.choice]);
        break;
    case MenuRow::Sound:
        if (m_means.perform)
            m_means.perform(WindowAct::Sound);
        break;
    case MenuRow::Forget:
        // What is forgotten does not come back: it is asked for twice.
        if (m_attention.isForgettingAsked)
            m_attention.wantsPhone = NewPhone { .forgetsEverything = true };
        m_attention.isForgettingAsked = true;
        break;
    }
}

void Person::useTrace(const Spot& spot)
{
    TraceLooks& looks = m_attention.trace;
    switch (static_cast<TracePart>(spot.index)) {
    case TracePart::Whole:
        break;
    case TracePart::Line: {
        const auto lines = shownLines(m_session, looks);
        if (spot.choice >= lines.size())
            break;
        if (const View* const view = viewNamed(m_session.device(), viewNamedIn(*lines[spot.choice]))) {
            m_attention.mark = { view, true };
            showTab(Tab::Inspector);
        } else if (m_means.say) {
            m_means.say("That view is gone");
        }
        break;
    }
    case TracePart::Filter:
        looks.filter = nextFilter(m_session, looks);
        looks.back = 0;
        break;
    case TracePart::Copy:
        copyTrace();
        break;
    case TracePart::Pause:
        if (looks.held)
            looks.held.reset();
        else
            looks.held = m_session.traceLines();
        looks.back = 0;
        break;
    }
}

void Person::copyTrace() const
{
    std::string text;
    for (const TraceLine* const line : shownLines(m_session, m_attention.trace))
        text += textOf(*line) + '\n';
    if (m_means.copy)
        m_means.copy(text);
    if (m_means.say)
        m_means.say("Copied the lines of the trace");
}

void Person::wheel(Point point, int lines)
{
    const Spot* const spot = m_sheet == nullptr ? nullptr : m_sheet->spotAt(point);
    if (spot == nullptr || spot->purpose != Purpose::Trace)
        return;
    const auto whole = std::ranges::find_if(m_sheet->spots, [](const Spot& each) {
        return each.purpose == Purpose::Trace && each.index == static_cast<std::size_t>(TracePart::Whole);
    });
    if (whole == m_sheet->spots.end())
        return;
    // No farther than to where the oldest line is the first that is shown: the way back would begin with nothing.
    TraceLooks& looks = m_attention.trace;
    const std::size_t all = shownLines(m_session, looks).size();
    const auto most = static_cast<std::ptrdiff_t>(all - std::min(all, roomForLines(whole->area.height)));
    looks.back = static_cast<std::size_t>(
        std::clamp(static_cast<std::ptrdiff_t>(looks.back) + lines, std::ptrdiff_t { 0 }, most));
}

void Person::inspectAt(Point point)
{
    if (m_attention.tab != Tab::Inspector || m_layout == nullptr || !m_layout->phone.screen().contains(point))
        return;
    if (const View* const view = viewAt(m_session.device(), m_layout->phone.onScreen(point)))
        m_attention.mark = { view, false };
}

} // namespace panotra::sim
