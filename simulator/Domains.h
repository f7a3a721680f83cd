/// The preference domains that the mixer reads.
#pragma once

namespace panotra::sim {

inline constexpr const char* ownDomain = "net.qorvath.panotra";
/// A sibling's, with one setting that the mixer shares.
inline constexpr const char* siblingDomain = "net.qorvath.brevane2";

} // namespace panotra::sim
