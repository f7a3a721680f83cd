/// Fingers: hit tests, and the drags that recognisers make of moves.
#pragma once

#include "simulator/device/Device.h"

#include <memory>

namespace panotra::sim {

/// One finger on the mixer's window, in screen coordinates.
class Touches {
public:
    explicit Touches(Device& device);
    ~Touches();

    /// Hit-tests the mixer's window; traced as `hit`.
    void down(double x, double y);
    void move(double x, double y);
    void up();

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace panotra::sim
