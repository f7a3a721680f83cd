/// Keys and pointer, on a sheet that nobody draws.
#include "simulator/window/Person.h"
#include "simulator/window/SettingValues.h"
#include "tests/unit/window/SessionFixture.h"

namespace panotra::sim {
namespace {

using namespace std::chrono_literals;

using ::testing::HasSubstr;

class PersonTest : public testing::SessionFixture {
protected:
    PersonTest()
        : phone(start().device())
        , person(*session, phone)
        , layout(layOut({ 1200, 800 }, {}, 1))
    {
        look();
        newLines();
    }

    void look()
    {
        sheet = makeSheet({ *session, phone, layout, person.attention() });
        person.see(sheet, layout);
    }
    /// The middle of the first spot of a purpose and index.
    Point middleOf(Spot::Purpose purpose, std::size_t index = 0, std::size_t choice = 0) const
    {
        for (const Spot& spot : sheet.spots) {
            if (spot.isSameAs({ {}, purpose, index, choice }))
                return { spot.area.x + spot.area.width / 2, spot.area.y + spot.area.height / 2 };
        }
        ADD_FAILURE() << "no such spot";
        return {};
    }
    void click(Point point)
    {
        person.pointerDown(point);
        person.pointerUp(point);
        look();
    }
    static std::size_t settingNamed(const std::string& key)
    {
        return static_cast<std::size_t>(std::ranges::find(mixerSettings, key, [](const MixerSetting& row) {
            return std::string(row.key);
        }) - mixerSettings.begin());
    }
    Point onPhone(double x, double y) const
    {
        const Area spot = layout.phone.onSheet({ x, y, 0, 0 });
        return { spot.x, spot.y };
    }

    Phone phone;
    Person person;
    Layout layout;
    Sheet sheet;
};

TEST_F(PersonTest, AVolumeKeyIsHeldUntilItComesUpHoweverOftenItRepeats)
{
    EXPECT_TRUE(person.keyDown("Up"));
    EXPECT_TRUE(person.keyDown("Up"));
    EXPECT_TRUE(phone.isHeld(Button::Up));
    person.keyUp("Up");
    person.keyUp("Up");
    EXPECT_EQ(newLines(), "press up\nrelease up\n");
    EXPECT_FALSE(person.keyDown("F7"));
}

TEST_F(PersonTest, AHeldButtonIsPressedAgainAfterHalfASecondThenTenTimesASecond)
{
    EXPECT_EQ(person.untilRepeat(), std::nullopt);
    person.keyDown("Up");
    EXPECT_EQ(person.untilRepeat(), 500ms);
    person.passTime(499ms);
    EXPECT_EQ(newLines(), "press up\n");
    EXPECT_EQ(person.untilRepeat(), 1ms);
    person.passTime(250ms);
    EXPECT_EQ(newLines(), "wait 0.5\npress up\nwait 0.1\npress up\nwait 0.1\npress up\n");
    person.keyUp("Up");
    person.passTime(10s);
    EXPECT_EQ(newLines(), "wait 0.049\nrelease up\n");
    EXPECT_EQ(person.untilRepeat(), std::nullopt);
}

TEST_F(PersonTest, TheSliderStaysSwollenWhileTheMouseHoldsAButton)
{
    const auto size = [this] {
        const auto* const slider = dynamic_cast<View*>(session->device().classes->heldInField("_volumeView0"));
        return slider == nullptr ? 0 : slider->transform.a;
    };
    const Point up = middleOf(Spot::Purpose::Control, 0);
    click(up);
    person.passTime(900ms);
    EXPECT_EQ(size(), 1) << "after one step it shrinks back";
    person.pointerDown(up);
    for (int i = 0; i < 8; ++i) {
        person.passTime(100ms);
        EXPECT_DOUBLE_EQ(size(), 1.05);
    }
}

TEST_F(PersonTest, OfTwoHeldButtonsTheLastOneRepeats)
{
    person.keyDown("Up");
    person.keyDown("Down");
    newLines();
    person.passTime(500ms);
    person.keyUp("Up");
    person.passTime(100ms);
    EXPECT_EQ(newLines(), "wait 0.5\npress down\nrelease up\nwait 0.1\npress down\n");
}

TEST_F(PersonTest, ALongSleepOfTheComputerIsNotMadeUpFor)
{
    person.keyDown("Down");
    person.passTime(24h);
    const std::string lines = newLines();
    EXPECT_LE(std::ranges::count(lines, '\n'), 60);
}

TEST_F(PersonTest, AButtonIsHeldAsLongAsTheMouseHoldsIt)
{
    const Point down = middleOf(Spot::Purpose::Control, 1);
    person.pointerDown(down);
    EXPECT_TRUE(phone.isHeld(Button::Down));
    person.pointerUp({ 0, 0 });
    EXPECT_FALSE(phone.isHeld(Button::Down));
    EXPECT_EQ(newLines(), "press down\nrelease down\n");
}

TEST_F(PersonTest, AButtonThatKeyAndMouseHoldComesUpWithTheLast)
{
    const Point up = middleOf(Spot::Purpose::Control, 0);
    person.keyDown("Up");
    person.pointerDown(up);
    person.pointerUp(up);
    EXPECT_TRUE(phone.isHeld(Button::Up));
    person.keyUp("Up");
    EXPECT_EQ(newLines(), "press up\nrelease up\n");
    person.keyDown("S");
    click(middleOf(Spot::Purpose::Control, static_cast<std::size_t>(findControl("S") - allControls().data())));
    EXPECT_EQ(newLines(), "shake\nshake\n") << "what cannot be held is done again";
}

TEST_F(PersonTest, EveryControlHasAButtonInTheWindow)
{
    for (std::size_t index = 0; index < allControls().size(); ++index)
        middleOf(Spot::Purpose::Control, index);
}

TEST_F(PersonTest, WhatOthersChooseIsSeenAndCannotBePressed)
{
    const Phone seen(session->device(), SoundChoice::Others);
    const std::size_t drawn = sheet.elements.size();
    sheet = makeSheet({ *session, seen, layout, person.attention() });
    EXPECT_EQ(sheet.elements.size(), drawn);
    for (std::size_t index = 0; index < allControls().size(); ++index) {
        const bool canBePressed = std::ranges::any_of(sheet.spots, [index](const Spot& spot) {
            return spot.isSameAs({ {}, Spot::Purpose::Control, index });
        });
        EXPECT_EQ(canBePressed, !allControls()[index].choosesSound) << allControls()[index].label;
    }
}

TEST_F(PersonTest, TheMouseIsAFingerOnTheScreen)
{
    person.pointerDown(onPhone(100, 200));
    person.pointerMove(onPhone(110, 200));
    person.pointerMove(onPhone(150.125, 210));
    person.settle();
    person.settle();
    person.pointerMove(onPhone(160, 220));
    person.pointerUp(onPhone(161, 221));
    EXPECT_EQ(newLines(), "touch down 100 200\ntouch move 150.13 210\ntouch move 161 221\ntouch up\n");
    person.pointerMove(onPhone(10, 10));
    person.settle();
    EXPECT_EQ(newLines(), "") << "no button is down";
}

TEST_F(PersonTest, AFingerOnAPhoneOfAnySizeIsSomewhere)
{
    layout = layOut({ 1200, 800 }, { 1e308, 1e308, 1e-305 }, 1);
    look();
    person.pointerDown(onPhone(0.9e308, 0.9e308));
    person.pointerUp({ 1e6, 1e6 });
    EXPECT_THAT(newLines(), HasSubstr("touch up"));
}

TEST_F(PersonTest, ADragOverASliderMovesItsLevel)
{
    person.keyDown("G");
    session->advance(500ms);
    const Json before = *session->setting(testing::ownDomain, "volume0");
    View* const slider = dynamic_cast<View*>(session->device().classes->heldInField("_volumeView0"));
    ASSERT_NE(slider, nullptr);
    // The slider's left end, wherever it is on the screen.
    const auto isOnSlider = [&](double x, double y) {
        const auto point = slider->fromScreen({ x, y });
        return point && point->x > 5 && point->x < 15 && point->y > 10 && point->y < 20;
    };
    Point place {};
    for (double y = 0; y < 667; y += 5) {
        for (double x = 0; x < 375; x += 5) {
            if (isOnSlider(x, y))
                place = { x, y };
        }
    }
    person.pointerDown(onPhone(place.x, place.y));
    person.pointerMove(onPhone(place.x + 40, place.y));
    person.settle();
    person.pointerUp(onPhone(place.x + 20, place.y));
    EXPECT_NE(*session->setting(testing::ownDomain, "volume0"), before);
    EXPECT_THAT(traced, HasSubstr("\"view\":\"_volumeView0\""));
}

TEST_F(PersonTest, AScreenThatIsOffTakesNoTouches)
{
    person.keyDown("L");
    person.keyUp("L");
    look();
    newLines();
    click(onPhone(100, 200));
    EXPECT_EQ(newLines(), "");
}

TEST_F(PersonTest, AChoiceAndASwitchAreStoredAtOnce)
{
    click(middleOf(Spot::Purpose::Choice, settingNamed("mixerSkin"), 2));
    EXPECT_THAT(newLines(), HasSubstr("pref net.qorvath.panotra mixerSkin int 2\nnotify"));
    click(middleOf(Spot::Purpose::Switch, settingNamed("handleShake")));
    EXPECT_THAT(newLines(), HasSubstr("handleShake bool yes\nnotify"));
    click(middleOf(Spot::Purpose::Switch, settingNamed("handleShake")));
    EXPECT_THAT(newLines(), HasSubstr("handleShake bool no\nnotify"));
}

TEST_F(PersonTest, ARangeIsStoredWhenItIsLetGo)
{
    const std::size_t delay = settingNamed("dismissDelay");
    const Point middle = middleOf(Spot::Purpose::Range, delay);
    person.pointerDown(middle);
    EXPECT_EQ(person.attention().draggedValue, 5.5);
    person.pointerMove({ middle.x + 1000, middle.y });
    person.pointerLeft();
    EXPECT_EQ(newLines(), "");
    EXPECT_TRUE(person.attention().hovered) << "the slider is where it was dragged, and nowhere else";
    person.pointerUp({ middle.x + 1000, middle.y });
    EXPECT_EQ(
        newLines(), "pref net.qorvath.brevane2 dismissDelay float 10.0\nnotify net.qorvath.brevane2.settingschanged\n");
    EXPECT_EQ(person.attention().draggedValue, std::nullopt);
    person.pointerMove(middle);
    person.pointerLeft();
    EXPECT_FALSE(person.attention().hovered);
}

TEST_F(PersonTest, ASwitchedOffSettingThatStopsAnActSaysSo)
{
    std::string said;
    Person talker(*session, phone, { .say = [&said](const std::string& words) {
        said += words + '\n';
    } });
    talker.see(sheet, layout);
    talker.keyDown("S");
    EXPECT_EQ(said, "Shake to Show is off\n");
    setValue(*session, mixerSetting("handleShake"), 1);
    talker.keyUp("S");
    talker.keyDown("S");
    talker.passTime(2s);
    talker.pointerDown(onPhone(5, 600));
    talker.pointerUp(onPhone(5, 600));
    EXPECT_EQ(said, "Shake to Show is off\nDismiss on Touch is off\n");
    setValue(*session, mixerSetting("replaceHUD"), 0);
    talker.keyDown("Up");
    talker.passTime(1s);
    EXPECT_EQ(said, "Shake to Show is off\nDismiss on Touch is off\nReplace Volume Indicator is off\n");
}

TEST_F(PersonTest, TheHomeButtonGivesUnderTheFingerAndWakesTheScreen)
{
    const Point home = middleOf(Spot::Purpose::HomeButton);
    const auto before = sheet.elements;
    person.pointerDown(home);
    look();
    EXPECT_NE(sheet.elements, before);
    person.pointerUp(home);
    person.pointerLeft();
    look();
    EXPECT_EQ(sheet.elements, before);
    EXPECT_EQ(newLines(), "");
    person.keyDown("L");
    newLines();
    look();
    click(home);
    EXPECT_THAT(newLines(), HasSubstr("screenchanged 1"));
}

TEST_F(PersonTest, TheListOfKeysCoversEverythingUntilItIsTouched)
{
    person.perform(WindowAct::Help);
    look();
    std::string texts;
    for (const Element& element : sheet.elements) {
        if (const auto* const text = std::get_if<Text>(&element))
            texts += text->text + '\n';
    }
    for (const Control& control : allControls())
        EXPECT_THAT(texts, HasSubstr(std::string(control.cap) + '\n' + control.label)) << control.label;
    click(middleOf(Spot::Purpose::Control, 0));
    EXPECT_EQ(person.attention().overlay, Overlaid::Nothing);
    EXPECT_EQ(newLines(), "");
}

} // namespace
} // namespace panotra::sim
