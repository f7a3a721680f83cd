/// A process of Objective-C objects with a mixer in it that is shown and dismissed, and whose messages are heard.
#pragma once

#include "simulator/device/View.h"
#include "tests/hosts/HostTest.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace panotra::testing {

class MixerHostTest : public HostTest {
protected:
    static constexpr int panel = 0;
    static constexpr int banner = 1;

    MixerHostTest();
    ~MixerHostTest() override;

    /// Shows the mixer on demand, or dismisses it, and lets everything that follows happen.
    void shake();
    void show(int style);
    void dismiss();
    void explicitChange(float level);
    void turnTo(std::int64_t orientation);

    /// What a field of the controller, or of a slider, holds. Borrowed; null for an empty one.
    HostObject* held(const std::string& field);
    HostObject* partOf(int slot, const std::string& field);
    template <typename Kind = sim::View> Kind* view(const std::string& field)
    {
        return dynamic_cast<Kind*>(held(field));
    }
    template <typename Kind = sim::View> Kind* part(int slot, const std::string& field)
    {
        return dynamic_cast<Kind*>(partOf(slot, field));
    }

    using Names = std::map<void*, std::string>;
    /// The views of the mixer by the controller's fields that hold them.
    Names namesOfViews();
    /// A slider as "slider", and its parts by its fields.
    Names namesOfSlider(int slot);

    /// From here on messages of these selectors are heard.
    void hear(const std::set<std::string>& selectors);
    /// What was heard, "name selector" a line, to receivers that have a name. Nothing is heard any more.
    std::vector<std::string> heardTo(const Names& names);
    /// Of `lines` as many as `count`, from the first that is `begin` on.
    static std::vector<std::string> from(
        const std::vector<std::string>& lines, const std::string& begin, std::size_t count);

private:
    std::set<std::string> m_selectors;
    std::vector<std::pair<void*, std::string>> m_heard;
};

/// In the order in which sliders are made.
std::vector<int> slotsInOrder();

/// Sets another implementation in the place of a class method, and answers what was there.
IMP replaceClassMethod(const char* className, const char* selector, IMP replacement);

} // namespace panotra::testing
