/// Menu, tabs, trace and inspector, and the keyboard alone, on a sheet that nobody draws.
#include "simulator/window/Hints.h"
#include "simulator/window/Menu.h"
#include "simulator/window/Person.h"
#include "simulator/window/SettingValues.h"
#include "simulator/window/TracePanel.h"
#include "tests/unit/window/SessionFixture.h"

#include <set>

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::HasSubstr;
using ::testing::Not;
using Purpose = Spot::Purpose;

class LookingTest : public testing::SessionFixture {
protected:
    LookingTest()
    {
        SessionSetup setup = setupOfFixture();
        setup.trace = {};
        setup.record = {};
        session.emplace(std::move(setup), library);
        phone.emplace(session->device());
        person.emplace(*session, *phone,
            PersonMeans { .perform = [this](WindowAct act) { person->perform(act); },
                .say = [this](const std::string& words) { said = words; },
                .hang = [this](const std::string& wallpaper) { hung = wallpaper; },
                .copy =
                    [this](const std::string& text) {
                        copied = text;
                    } });
        look();
    }

    void look(PixelSize size = { 1200, 800 })
    {
        layout = layOut(size, {}, 1);
        sheet = makeSheet({ *session, *phone, layout, person->attention() });
        person->see(sheet, layout);
    }
    const Spot* spotOf(Purpose purpose, std::size_t index, std::size_t choice = 0) const
    {
        for (const Spot& spot : sheet.spots) {
            if (spot.isSameAs({ {}, purpose, index, choice }))
                return &spot;
        }
        return nullptr;
    }
    void click(Purpose purpose, std::size_t index, std::size_t choice = 0)
    {
        const Spot* const spot = spotOf(purpose, index, choice);
        ASSERT_NE(spot, nullptr) << index << ' ' << choice;
        const Point middle { spot->area.x + spot->area.width / 2, spot->area.y + spot->area.height / 2 };
        person->pointerDown(middle);
        person->pointerUp(middle);
        look();
    }
    void click(MenuRow row, std::size_t choice) { click(Purpose::MenuItem, static_cast<std::size_t>(row), choice); }
    void click(TracePart part, std::size_t choice = 0)
    {
        click(Purpose::Trace, static_cast<std::size_t>(part), choice);
    }
    void showMixer()
    {
        session->play("activator net.qorvath.panotra.presentmixer");
        session->advance(1s);
        look();
    }
    std::string texts() const
    {
        std::string all;
        for (const Element& element : sheet.elements) {
            if (const auto* const text = std::get_if<Text>(&element))
                all += text->text + '\n';
        }
        return all;
    }

    std::optional<Phone> phone;
    std::optional<Person> person;
    Layout layout;
    Sheet sheet;
    std::string said;
    std::string hung;
    std::string copied;
};

TEST_F(LookingTest, TheMenuAsksForDevicesSystemsAndWallpapers)
{
    person->perform(WindowAct::Menu);
    look();
    click(MenuRow::Device, 3);
    ASSERT_TRUE(person->attention().wantsPhone);
    EXPECT_EQ(person->attention().wantsPhone->screen->height, 812);
    click(MenuRow::System, 0);
    EXPECT_EQ(person->attention().wantsPhone->system, std::optional<std::optional<int>>(std::optional<int> {}));
    click(MenuRow::Wallpaper, 1);
    EXPECT_EQ(hung, "Dawn");
    person->pointerDown({ 2, 2 });
    EXPECT_EQ(person->attention().overlay, Overlaid::Nothing);
}

TEST_F(LookingTest, EverythingIsForgottenWhenItIsAskedForTwice)
{
    person->perform(WindowAct::Menu);
    look();
    click(MenuRow::Forget, 0);
    EXPECT_FALSE(person->attention().wantsPhone);
    click(MenuRow::Wallpaper, 0);
    click(MenuRow::Forget, 0);
    EXPECT_FALSE(person->attention().wantsPhone) << "something else came between";
    click(MenuRow::Forget, 0);
    ASSERT_TRUE(person->attention().wantsPhone);
    EXPECT_TRUE(person->attention().wantsPhone->forgetsEverything);
}

TEST_F(LookingTest, ANarrowWindowHasAWayToEverything)
{
    std::set<std::pair<int, std::size_t>> wide;
    const auto collect = [this](auto& into) {
        for (const Spot& spot : sheet.spots) {
            if (spot.purpose != Purpose::Tab && spot.purpose != Purpose::Trace)
                into.emplace(static_cast<int>(spot.purpose), spot.index);
        }
    };
    collect(wide);
    std::set<std::pair<int, std::size_t>> narrow;
    for (std::size_t tab = 0; tab < 5; ++tab) {
        look({ 480, 640 });
        const Spot* const spot = spotOf(Purpose::Tab, tab);
        ASSERT_NE(spot, nullptr) << tab;
        person->pointerDown({ spot->area.x + 1, spot->area.y + 1 });
        person->pointerUp({ spot->area.x + 1, spot->area.y + 1 });
        look({ 480, 640 });
        collect(narrow);
        for (const Spot& each : sheet.spots) {
            EXPECT_LE(each.area.bottom(), layout.sheet.height) << "tab " << tab;
            EXPECT_LE(each.area.right(), layout.sheet.width) << "tab " << tab;
        }
    }
    for (const auto& spot : wide)
        EXPECT_TRUE(narrow.contains(spot)) << spot.first << ' ' << spot.second;
}

TEST_F(LookingTest, TabReachesEverySpotAndComesRound)
{
    person->steer("Tab");
    const Spot first = *person->attention().focused;
    std::set<std::tuple<int, std::size_t, std::size_t>> seen;
    do {
        const Spot& at = *person->attention().focused;
        EXPECT_TRUE(seen.emplace(static_cast<int>(at.purpose), at.index, at.choice).second);
        ASSERT_TRUE(person->steer("Tab"));
        look();
    } while (!person->attention().focused->isSameAs(first));
    for (std::size_t index = 0; index < allControls().size(); ++index)
        EXPECT_TRUE(seen.contains({ static_cast<int>(Purpose::Control), index, 0 }));
    for (std::size_t index = 0; index < mixerSettings.size(); ++index) {
        const bool isReached = std::ranges::any_of(seen, [&](const auto& each) {
            const auto purpose = static_cast<Purpose>(std::get<0>(each));
            return std::get<1>(each) == index
                && (purpose == Purpose::Choice || purpose == Purpose::Switch || purpose == Purpose::Range);
        });
        EXPECT_TRUE(isReached) << mixerSettings[index].label;
    }
    person->steer("Tab", true);
    EXPECT_FALSE(person->attention().focused->isSameAs(first));
    person->steer("Escape");
    EXPECT_FALSE(person->attention().focused);
    EXPECT_FALSE(person->steer("Up")) << "without a focus it is the volume";
}

TEST_F(LookingTest, WhatHasTheFocusIsUsedWithReturnAndArrows)
{
    const auto focus = [this](Purpose purpose, const char* key) {
        for (int i = 0; i < 200; ++i) {
            person->steer("Tab");
            const Spot& at = *person->attention().focused;
            if (at.purpose != purpose)
                continue;
            const bool isIt = purpose == Purpose::Control ? std::string(allControls()[at.index].key) == key
                                                          : std::string(mixerSettings[at.index].key) == key;
            if (isIt)
                return;
        }
        FAIL() << "never reached";
    };
    focus(Purpose::Control, "Up");
    person->steer("Return");
    person->steer("Return");
    EXPECT_TRUE(phone->isHeld(Button::Up));
    person->steerEnds("Return");
    EXPECT_FALSE(phone->isHeld(Button::Up));
    person->steer("Down");
    EXPECT_STREQ(allControls()[person->attention().focused->index].key, "Down");
    focus(Purpose::Range, "dismissDelay");
    person->steer("Right");
    EXPECT_EQ(valueOf(*session, mixerSetting("dismissDelay")), 2.5);
    focus(Purpose::Switch, "handleShake");
    person->steer("Space");
    person->steerEnds("Space");
    EXPECT_EQ(valueOf(*session, mixerSetting("handleShake")), 1);
}

TEST_F(LookingTest, TheTraceIsFilteredHeldScrolledAndCopied)
{
    showMixer();
    person->perform(WindowAct::Inspector);
    person->perform(WindowAct::Inspector);
    click(Purpose::Tab, static_cast<std::size_t>(Tab::Trace));
    const auto& looks = person->attention().trace;
    const std::size_t all = shownLines(*session, looks).size();
    click(TracePart::Filter);
    EXPECT_FALSE(looks.filter.empty());
    EXPECT_LT(shownLines(*session, looks).size(), all);
    for (const TraceLine* const line : shownLines(*session, looks))
        EXPECT_EQ(line->what, looks.filter);
    click(TracePart::Copy);
    EXPECT_EQ(std::ranges::count(copied, '\n'), std::ssize(shownLines(*session, looks)));
    while (!looks.filter.empty())
        click(TracePart::Filter);
    click(TracePart::Pause);
    session->play("shake");
    EXPECT_EQ(shownLines(*session, looks).size(), all);
    click(TracePart::Pause);
    EXPECT_GT(shownLines(*session, looks).size(), all);
    const std::string newest = texts();
    const Spot lines = *spotOf(Purpose::Trace, 0);
    person->wheel({ lines.area.x + 1, lines.area.y + 1 }, 5);
    look();
    EXPECT_EQ(looks.back, 5U);
    EXPECT_NE(texts(), newest);
    person->wheel({ lines.area.x + 1, lines.area.y + 1 }, -50);
    EXPECT_EQ(looks.back, 0U);
}

TEST_F(LookingTest, FromTheOldestLineTheWheelLeadsBackAtOnce)
{
    click(Purpose::Tab, static_cast<std::size_t>(Tab::Trace));
    for (int i = 0; i < 80; ++i)
        session->play("shake");
    look();
    const Area lines = spotOf(Purpose::Trace, 0)->area;
    ASSERT_GT(shownLines(*session, person->attention().trace).size(), roomForLines(lines.height));
    person->wheel({ lines.x + 1, lines.y + 1 }, 10'000);
    look();
    const std::size_t top = person->attention().trace.back;
    EXPECT_EQ(top, shownLines(*session, person->attention().trace).size() - roomForLines(lines.height));
    const std::string oldest = texts();
    person->wheel({ lines.x + 1, lines.y + 1 }, -1);
    look();
    EXPECT_EQ(person->attention().trace.back, top - 1);
    EXPECT_NE(texts(), oldest);
}

TEST_F(LookingTest, ATimeIsNeverCut)
{
    session->advance(20min);
    session->play("press up");
    look();
    double width = 0;
    for (const Element& element : sheet.elements) {
        const auto* const text = std::get_if<Text>(&element);
        if (text != nullptr && text->text == "1200.000")
            width = text->area.width;
    }
    EXPECT_GT(width, 8 * 6) << "eight characters of six units";
}

TEST_F(LookingTest, AnEventLeadsToItsView)
{
    showMixer();
    click(Purpose::Tab, static_cast<std::size_t>(Tab::Trace));
    session->play("touch down 147 471");
    session->play("touch up");
    look();
    const auto lines = shownLines(*session, person->attention().trace);
    for (std::size_t i = lines.size(); i-- > 0;) {
        if (spotOf(Purpose::Trace, static_cast<std::size_t>(TracePart::Line), i) == nullptr)
            continue;
        const View* const view = viewNamed(session->device(), viewNamedIn(*lines[i]));
        ASSERT_NE(view, nullptr) << textOf(*lines[i]);
        click(TracePart::Line, i);
        EXPECT_EQ(person->attention().mark.view, view);
        EXPECT_EQ(person->attention().tab, Tab::Inspector);
        return;
    }
    FAIL() << "no event is about a view";
}

TEST_F(LookingTest, TheInspectorTellsOfTheViewUnderThePointer)
{
    person->perform(WindowAct::Inspector);
    look();
    EXPECT_THAT(texts(), HasSubstr("No mixer is shown"));
    session->play("activator net.qorvath.panotra.presentmixer");
    session->advance(1s);
    look();
    const Area place = layout.phone.onSheet({ 147, 471, 0, 0 });
    const auto before = sheet.elements.size();
    person->pointerMove({ place.x, place.y });
    look();
    EXPECT_GT(sheet.elements.size(), before) << "its frame";
    for (const char* const word : { "Class", "Frame", "Alpha", "Transform" })
        EXPECT_THAT(texts(), HasSubstr(std::string(word) + '\n'));
    const auto views = viewsOf(session->device());
    EXPECT_EQ(views.front().depth, 0U);
    EXPECT_GT(views.size(), 30U);
    const auto row = std::ranges::find(sheet.spots, Purpose::View, &Spot::purpose);
    ASSERT_NE(row, sheet.spots.end());
    const std::size_t chosen = row->index;
    click(Purpose::View, chosen);
    EXPECT_EQ(person->attention().mark.view, views[chosen].view);
    // What is gone is not asked for anything.
    session->play("activator net.qorvath.panotra.dismissmixer");
    session->advance(2s);
    look();
    EXPECT_THAT(texts(), HasSubstr("No mixer is shown"));
}

TEST_F(LookingTest, AnAnimatedValueIsShownOnItsWay)
{
    showMixer();
    const View* const slider = viewNamed(session->device(), "_volumeView0");
    ASSERT_NE(slider, nullptr);
    session->play("press up");
    session->advance(120ms);
    std::string all;
    for (const auto& [label, value] : describe(session->device(), *slider))
        all += label + ' ' + value + '\n';
    EXPECT_THAT(all, HasSubstr("\u2192  1.05  0  0  1.05"));
}

TEST_F(LookingTest, WhatHasAKeySaysSoWhenThePointerRests)
{
    EXPECT_EQ(hintOf({ {}, Purpose::Control, 0 }), "Volume up   \u2191");
    EXPECT_EQ(hintOf({ {}, Purpose::Screen }), "");
    const Spot& up = *spotOf(Purpose::Control, 0);
    person->pointerMove({ up.area.x + 1, up.area.y + 1 });
    look();
    EXPECT_THAT(texts(), Not(HasSubstr("Volume up   ")));
    person->setTooltip(true);
    look();
    EXPECT_THAT(texts(), HasSubstr("Volume up   \u2191"));
}

} // namespace
} // namespace panotra::sim
