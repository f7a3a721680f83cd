/// What the mixer costs the process, event by event, against the table of bench/README.md: nothing may cost more than
/// stands there.
#include "tests/hosts/Costs.h"
#include "tests/hosts/MixerHostTest.h"

#include "facts/PublicNames.h"
#include "simulator/Files.h"

#include <functional>
#include <iostream>
#include <variant>

namespace panotra::testing {

namespace {

using hosts::Costs;

/// An event, and what must be so before it. Both happen several times.
struct Event {
    std::string name;
    std::function<void()> prepare;
    std::function<void()> happen;
};

class CostTest : public MixerHostTest {
protected:
    CostTest() { launch(); }

    void announce(const char* reason, float level) { device.home->announce("Audio/Video", reason, level); }
    /// Another level each time.
    float nextLevel() { return m_level = m_level == 0.25f ? 0.75f : 0.25f; }
    void replaceIndicator(bool replaces)
    {
        device.preferences->set("net.qorvath.panotra", "replaceHUD", replaces);
        device.home->notify(notification::ownSettingsChanged);
        pass();
    }
    void beShown(bool shown, int style = panel)
    {
        pass(100);
        if (isShown())
            dismiss();
        if (shown)
            show(style);
    }
    /// Only the settings say so: the mixer is not there.
    void beHidden(int style = panel)
    {
        beShown(false);
        device.preferences->set("net.qorvath.panotra", "activeStyle", style);
        device.home->notify(notification::ownSettingsChanged);
        pass();
    }
    void beShownInPlaceOfIndicator()
    {
        beHidden();
        replaceIndicator(true);
        announce("ExplicitVolumeChange", nextLevel());
        pass(1);
    }
    void drag(std::int64_t state, double x) { device.home->pan(0, state, x); }

    std::vector<Event> events()
    {
        const auto hidden = [this] {
            beHidden();
        };
        const auto shown = [this] {
            beShown(true);
        };
        const auto dragging = [this] {
            beShownInPlaceOfIndicator();
            drag(1, 50);
        };
        std::vector<Event> all;
        for (const char* const reason : { "CategoryChange", "RouteChange", "ExplicitVolumeChange", "Anything" })
            all.push_back({ std::string("announcement that changes nothing, ") + reason,
                [this] {
                    beHidden();
                    device.preferences->set("net.qorvath.panotra", "volume1", 0.5);
                },
                [this, reason] {
                    announce(reason, 0.5f);
                } });
        all.push_back({ "announcement that changes nothing, RouteChange, shown", shown, [this] {
                           announce("RouteChange", 0.5f);
                       } });
        all.push_back({ "change of the route to another level", hidden, [this] {
                           announce("RouteChange", 0.875f);
                       } });
        all.push_back({ "explicit change, hidden", hidden, [this] {
                           announce("ExplicitVolumeChange", nextLevel());
                       } });
        all.push_back({ "explicit change, shown", [this] { beShownInPlaceOfIndicator(); },
            [this] {
                announce("ExplicitVolumeChange", nextLevel());
            } });
        all.push_back({ "step of a drag", dragging, [this] {
                           drag(2, 70);
                       } });
        all.push_back({ "step of a drag, at rest", dragging, [this] {
                           drag(2, 50);
                       } });
        all.push_back({ "end of a drag", dragging, [this] {
                           drag(3, 70);
                       } });
        all.push_back({ "createUI, panel", [this] { beHidden(panel); },
            [this] {
                device.home->sendActivatorEvent(listener::present);
            } });
        all.push_back({ "createUI, banner", [this] { beHidden(banner); },
            [this] {
                device.home->sendActivatorEvent(listener::present);
            } });
        all.push_back({ "layout of the panel", [this] { beShown(true, panel); },
            [this] {
                device.home->reorientHUD(true);
            } });
        all.push_back({ "layout of the banner", [this] { beShown(true, banner); },
            [this] {
                device.home->reorientHUD(true);
            } });
        all.push_back({ "reload of the settings", hidden, [this] {
                           device.home->notify(notification::ownSettingsChanged);
                       } });
        all.push_back({ "hook that forwards: setVolumeTo:forCategory:", hidden, [this] {
                           device.home->setVolume("Alarm", 0.5f);
                       } });
        all.push_back({ "hook that forwards: getActiveCategoryVolume:andName:fallbackCategory:", hidden, [this] {
                           device.home->getActiveCategoryVolume(true);
                       } });
        all.push_back({ "hook that forwards: presentHUDView:autoDismissWithDelay:", hidden, [this] {
                           device.home->presentHUD(1);
                       } });
        all.push_back({ "hook that forwards: _presentVolumeHUDWithMode:volume:", hidden, [this] {
                           device.home->presentVolumeHUD(0, 0.5f);
                       } });
        all.push_back({ "hook that forwards: reorientHUDIfNeeded:", hidden, [this] {
                           device.home->reorientHUD(false);
                       } });
        all.push_back({ "hook that forwards: playSound:environments:completion:", hidden, [this] {
                           device.home->playSound(5);
                       } });
        all.push_back({ "hook that forwards: setRingerMuted:", hidden, [this] {
                           device.home->setRingerMuted(true);
                       } });
        all.push_back({ "hook that forwards: setFrame: of a status bar", hidden, [this] {
                           device.home->setStatusBarFrame("UIStatusBar", 0, 0, 320, 20);
                       } });
        all.push_back({ "hook that forwards: motionBegan:withEvent:", hidden, [this] {
                           device.home->motionBegan(0);
                       } });
        return all;
    }

    Costs costsOf(const Event& event)
    {
        // What is looked up or made at the first use of anything is not of the event's own making.
        for (int time = 0; time < 2; ++time) {
            event.prepare();
            event.happen();
        }
        event.prepare();
        const std::size_t handles = device.preferences->handlesOpened();
        const std::size_t replacements = device.preferences->replacements();
        Costs costs = hosts::costsOfCalls(event.happen);
        costs.handles = device.preferences->handlesOpened() - handles;
        costs.replacements = device.preferences->replacements() - replacements;
        event.prepare();
        hosts::countInstructions(event.name, event.happen);
        replaceIndicator(false);
        return costs;
    }

private:
    float m_level = 0.25f;
};

TEST_F(CostTest, NoEventCostsMoreThanTheTableSays)
{
    std::map<std::string, Costs> table = hosts::readCosts(std::get<std::string>(sim::readFile(PANOTRA_COST_TABLE)));
    for (const Event& event : events()) {
        const Costs costs = costsOf(event);
        std::cout << event.name << ": " << costs << '\n';
        const auto row = table.find(event.name);
        if (row == table.end()) {
            ADD_FAILURE() << "no row for " << event.name;
            continue;
        }
        EXPECT_TRUE(costs.isWithin(row->second)) << event.name << " may cost " << row->second;
        table.erase(row);
    }
    EXPECT_TRUE(table.empty()) << "nothing was measured for " << table.begin()->first;
}

TEST_F(CostTest, ATableIsReadRowByRow)
{
    const auto table = hosts::readCosts(
        "# Costs\n\n| event | own instructions | messages | crossings | allocations | "
        "handles | replacements | views |\n|---|--:|\n| one thing | 1,200 | 2 | 3 | 4 | 5 | 6 | 7 |\n"
        "\n| another table | of its own |\n");
    ASSERT_EQ(table.size(), 1u);
    const Costs expected { 2, 3, 4, 5, 6, 7 };
    EXPECT_TRUE(expected.isWithin(table.at("one thing")));
    EXPECT_TRUE(table.at("one thing").isWithin(expected));
    EXPECT_FALSE((Costs { 2, 3, 4, 5, 6, 8 }).isWithin(expected));
    EXPECT_FALSE((Costs { 3, 3, 4, 5, 6, 7 }).isWithin(expected));
    EXPECT_FALSE((Costs { 2, 4, 4, 5, 6, 7 }).isWithin(expected));
}

} // namespace

} // namespace panotra::testing
