/// The `tree` event: the mixer's views as they are.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/scenario/FieldNote.h"

#include <string_view>
#include <vector>

namespace panotra::sim {

/// The event's one field, `root`: the window's node, or null without a window.
Json treeReport(Device& device);

/// What the reference has to say of a node's fields; an example is the value as JSON.
struct NodeNotes {
    std::string_view of; ///< which views have them
    std::vector<FieldNote> fields;
};
std::vector<NodeNotes> treeNotes();

} // namespace panotra::sim
