/// A home screen whose mixer is looked into, view by view, by the names of the fields that hold them.
#pragma once

#include "simulator/device/View.h"
#include "tests/support/HomeScreenTest.h"
#include "tests/support/Rectangles.h"

#include <stdexcept>

namespace panotra::testing {

class MixerTest : public HomeScreenTest {
protected:
    static constexpr int panel = 0;
    static constexpr int banner = 1;

    /// Presents the mixer on demand: nothing dismisses it by itself. The fade-in has only begun.
    void presentOnDemand()
    {
        processValues.presentedViaActivator = true;
        controller().createUI();
        pass();
    }
    /// Launches, or reloads the settings of the launched library, and presents the mixer in that style on demand.
    void show(int style)
    {
        store("activeStyle", style);
        if (processValues.sharedController)
            reloadSettings();
        else
            launch();
        presentOnDemand();
    }
    /// Dismisses a mixer and lets everything that waits happen. A fade-in that is under way would bring it back.
    void dismiss()
    {
        pass(1);
        controller().destroyHUDWindow();
        pass(5);
    }
    void turnTo(std::int64_t orientation)
    {
        device.screen->orientation = orientation;
        device.home->reorientHUD(true);
        pass();
    }
    void useScreen(double width, double height)
    {
        device.screen->width = width;
        device.screen->height = height;
    }

    /// What a field of `owner` holds; null for an empty field and an object of another kind.
    template <typename Kind = sim::View> Kind* fieldOf(const NSObject& owner, const std::string& name) const
    {
        return dynamic_cast<Kind*>(device.classes->objectForKey(owner.get(), name));
    }
    /// A view that must be there, in a field of the controller.
    template <typename Kind = sim::View> Kind& view(const std::string& name) const
    {
        return existing(fieldOf<Kind>(controller(), name), name);
    }
    /// A view that must be there, in a field of a slider.
    template <typename Kind = sim::View> Kind& part(SlotNumber slot, const std::string& name) const
    {
        return existing(fieldOf<Kind>(slider(slot), name), name);
    }
    sim::View& sliderView(SlotNumber slot) const { return view("_volumeView" + std::to_string(slot)); }

    std::vector<std::string> namesOf(const std::vector<sim::View*>& views)
    {
        std::vector<std::string> names;
        for (sim::View* const each : views) {
            const std::string* const name = device.nameOf(each);
            names.push_back(name != nullptr ? *name : "");
        }
        return names;
    }
    static CGRect frameOf(const sim::View& view)
    {
        const sim::Rect frame = view.frame();
        return CGRectMake(frame.x, frame.y, frame.width, frame.height);
    }
    /// The durations of the animations that were started since the events were last forgotten.
    std::vector<double> durations() const
    {
        std::vector<double> found;
        for (const sim::Json& event : eventsOf("animate"))
            found.push_back(event["duration"]);
        return found;
    }

private:
    template <typename Kind> static Kind& existing(Kind* found, const std::string& name)
    {
        if (found == nullptr)
            throw std::runtime_error("nothing of that kind in " + name);
        return *found;
    }
};

} // namespace panotra::testing
