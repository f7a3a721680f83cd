/// Where what the host raises ends.
///
/// Any message may be answered by raising, and nobody above the library would catch it: the home screen would end. So
/// everything that may run code of the host's stands in a `shielded`: a raise ends that one crossing, which answers
/// zero, as a missing method does, and nothing that the logic does has to be undone. The frames of the logic itself
/// know nothing of exceptions; none ever passes through them but those of previous implementations, which are not ours
/// to stop.
///
/// In this folder a call that may raise and is not shielded would have to end the process, for every function of the
/// seam is `noexcept`. The compiler would have to name `std::terminate`, which the library does not import: it would
/// not link.
#pragma once

#include <type_traits>

namespace panotra::ios {

/// What `work` answers; zero where something was raised inside it. Costs nothing unless something is.
template <typename Work> [[gnu::always_inline]] inline auto shielded(Work work) noexcept -> std::invoke_result_t<Work&>
{
    using Result = std::invoke_result_t<Work&>;
    try {
        return work();
    } catch (...) { // also what Objective-C raises; the raised object is let go of here
        return Result();
    }
}

} // namespace panotra::ios
