/// The views of the mixer's window, for people who want to see inside.
#pragma once

#include "simulator/device/View.h"
#include "simulator/render/Shapes.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace panotra::sim {

class Device;

/// The view that is looked at: by its address alone, which is never followed, for it may be gone.
struct ViewMark {
    const void* view = nullptr;
    bool isChosen = false; ///< in the tree or the trace: it stays until the pointer moves over the phone
};

struct InspectedView {
    const View* view;
    std::size_t depth; ///< 0: the window
    std::string name; ///< of the field that holds it; its class where none does
};

/// From the window down, each before its subviews, in the order in which they are drawn; empty without a mixer.
std::vector<InspectedView> viewsOf(const Device& device);
/// The foremost view at a point of the upright screen that shows anything there; null if there is none.
const View* viewAt(const Device& device, Point onScreen);
/// The view of a field, or null.
const View* viewNamed(const Device& device, const std::string& name);

/// What a view is like, in words: where an animation runs, what is shown now, and where it leads.
std::vector<std::pair<std::string, std::string>> describe(const Device& device, const View& view);

} // namespace panotra::sim
