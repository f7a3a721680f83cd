/// A home screen with the mixer's library in it.
#include "tests/support/HomeScreenTest.h"

#include "simulator/device/View.h"

#include <algorithm>

namespace panotra::testing {

HomeScreenTest::HomeScreenTest()
{
    device.traceSink = [this](const sim::Json& event) {
        events.push_back(event);
    };
}

void HomeScreenTest::TearDown()
{
    if (!processValues.sharedController)
        return;
    device.runLoop->wait(1000); // a fade-in that is under way would bring the mixer back
    controller().destroyHUDWindow();
    device.runLoop->wait(1000);
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
    EXPECT_EQ(device.runLoop->runningAnimations(), 0u);
    EXPECT_EQ(device.classes->liveObjects("PNOVolumeView"), 0u);
    EXPECT_EQ(device.classes->liveObjects("PNOWindow"), 0u);
    EXPECT_EQ(device.classes->liveObjects("UILabel"), 0u);
    EXPECT_EQ(device.classes->liveObjects("NSUserDefaults"), 0u);
    EXPECT_FALSE(processValues.killedByTouch);
}

sim::Json HomeScreenTest::stored(const std::string& key) const
{
    const sim::Json all = device.preferences->all();
    return all.contains(ownDomain) && all[ownDomain].contains(key) ? all[ownDomain][key] : sim::Json(nullptr);
}

void HomeScreenTest::storeLevels(double level)
{
    for (const VolumeSlot& slot : volumeSlots)
        store(slot.preferenceKey, level);
}

void HomeScreenTest::load()
{
    library.load();
    pass();
}

void HomeScreenTest::launch()
{
    load();
    device.home->finishLaunching();
    pass();
}

void HomeScreenTest::reloadSettings()
{
    device.home->notify("net.qorvath.panotra.settingschanged");
    pass();
}

void HomeScreenTest::announce(const char* category, const char* reason, float level)
{
    device.home->announce(category, reason, level);
    pass();
}

void HomeScreenTest::pass(double seconds)
{
    device.runLoop->turn();
    device.runLoop->wait(seconds);
}

std::vector<sim::Json> HomeScreenTest::eventsOf(const std::string& name) const
{
    std::vector<sim::Json> found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found),
        [&](const sim::Json& event) { return event["event"] == name; });
    return found;
}

std::vector<std::string> HomeScreenTest::order(const std::vector<std::string>& names) const
{
    std::vector<std::string> found;
    for (const sim::Json& event : events) {
        if (std::find(names.begin(), names.end(), event["event"].get<std::string>()) != names.end())
            found.push_back(event["event"]);
    }
    return found;
}

float HomeScreenTest::systemLevel(const char* category) const
{
    return device.audio->level(category);
}

std::string HomeScreenTest::shownText(SlotNumber slot) const
{
    const NSObject label = slider(slot).valueForKey("_label1");
    const auto* const shown = dynamic_cast<const sim::Label*>(label.get());
    return shown != nullptr && shown->text ? *shown->text : std::string();
}

double HomeScreenTest::swelling(SlotNumber slot) const
{
    const auto* const view = dynamic_cast<const sim::View*>(slider(slot).get());
    return view != nullptr ? view->transform.a : 0;
}

} // namespace panotra::testing
