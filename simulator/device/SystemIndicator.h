/// The host's own volume indicator. Nothing but the screen shows it: the trace tells when it was asked for.
#pragma once

namespace panotra::sim {

struct SystemIndicator {
    static constexpr double usualStay = 2;

    double level; ///< 0 to 1
    double shownAt; ///< on the device's clock
    double stay = usualStay; ///< seconds before it begins to fade

    double fadesAt() const { return shownAt + stay; }
    double goneAt() const { return fadesAt() + 0.4; }
    /// How much of it is seen at a time: 1 while it stays, 0 once it is gone.
    double opacityAt(double time) const;
};

} // namespace panotra::sim
