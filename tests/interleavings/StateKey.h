/// All that a process with the mixer in it holds, as one number: two processes of the same key go on alike.
#pragma once

#include <cstdint>
#include <string>

namespace panotra::sim {
class Device;
}

namespace panotra::testing {

/// Everything that decides what happens next: the process-wide values, the fields and all views that can be reached
/// from them, from the queue, from running animations or from the finger; the queue itself, by the time that is left;
/// levels, route and category, what is stored, buttons. Left out is what only pictures show: how far an animation has
/// come, and the system's own indicator.
///
/// Numbers count to a millionth. Which of two like views is meant tells the way to it, not its address.
std::string stateText(const sim::Device& device);

std::uint64_t keyOf(const std::string& state);

} // namespace panotra::testing
