/// The phone of a system, and the choice of the next one.
#include "simulator/window/Menu.h"
#include "simulator/window/Person.h"
#include "tests/unit/window/SessionFixture.h"

namespace panotra::sim {
namespace {

using ::testing::StartsWith;

class OtherSystem : public testing::SessionFixture {
protected:
    /// A phone that nobody records.
    Session& startUnwatched(std::optional<int> system)
    {
        SessionSetup setup;
        setup.preferencesFolder = folder.path();
        setup.system = system;
        return session.emplace(std::move(setup), library);
    }
    /// Whether the sheet shows the text, and whether there is something to touch for it.
    static bool shows(const Sheet& sheet, const std::string& text)
    {
        return std::ranges::any_of(sheet.elements, [&](const Element& element) {
            const auto* const found = std::get_if<Text>(&element);
            return found != nullptr && found->text == text;
        });
    }
    static const Spot* spotOfSystem(const Sheet& sheet)
    {
        const auto found = std::ranges::find_if(sheet.spots, [](const Spot& spot) {
            return spot.isSameAs({ {}, Spot::Purpose::MenuItem, static_cast<std::size_t>(MenuRow::System), 8 });
        });
        return found == sheet.spots.end() ? nullptr : &*found;
    }
};

TEST_F(OtherSystem, APhoneHasTheShapeOfTheSystemThatItWasStartedAs)
{
    EXPECT_EQ(startUnwatched(std::nullopt).device().system, std::nullopt);
    session.reset();
    EXPECT_EQ(startUnwatched(13).device().system, 13);
    EXPECT_NE(session->device().classes->find("SBVolumeControl"), nullptr);
    session->play("press up");
    EXPECT_NE(session->device().home->window(), nullptr);
}

TEST_F(OtherSystem, TheSystemIsTheFirstLineOfARecording)
{
    SessionSetup setup;
    setup.preferencesFolder = folder.path();
    setup.system = 16;
    setup.record = [this](std::string_view text) {
        recorded += text;
    };
    session.emplace(std::move(setup), library);
    EXPECT_THAT(recorded, StartsWith("ios 16\nscreen 375 667 2\n"));
}

TEST_F(OtherSystem, IsAskedForInTheMenu)
{
    startUnwatched(14);
    Phone phone(session->device());
    Person person(*session, phone);
    person.perform(WindowAct::Menu);
    const Layout layout = layOut({ 1200, 800 }, {}, 1);
    const Sheet sheet = makeSheet({ *session, phone, layout, person.attention() });
    person.see(sheet, layout);
    EXPECT_TRUE(shows(sheet, "14"));
    const Spot* const spot = spotOfSystem(sheet);
    ASSERT_NE(spot, nullptr);
    EXPECT_FALSE(person.attention().wantsPhone);
    person.pointerDown({ spot->area.x + 5, spot->area.y + 5 });
    ASSERT_TRUE(person.attention().wantsPhone);
    EXPECT_EQ(person.attention().wantsPhone->system, std::optional<int>(16));
}

TEST_F(OtherSystem, IsTheNextNewerOneAndAfterTheNewestThatOfNoSystem)
{
    EXPECT_EQ(nextSystem(std::nullopt), 9);
    EXPECT_EQ(nextSystem(9), 10);
    EXPECT_EQ(nextSystem(15), 16);
    EXPECT_EQ(nextSystem(16), std::nullopt);
}

TEST_F(OtherSystem, CannotBeHadWhileThePhoneIsRecorded)
{
    start();
    Phone phone(session->device());
    Person person(*session, phone);
    person.perform(WindowAct::Menu);
    const Layout layout = layOut({ 1200, 800 }, {}, 1);
    const Sheet sheet = makeSheet({ *session, phone, layout, person.attention() });
    EXPECT_EQ(spotOfSystem(sheet), nullptr);
    person.perform(WindowAct::OtherSystem);
    EXPECT_FALSE(person.attention().wantsPhone);
}

} // namespace
} // namespace panotra::sim
