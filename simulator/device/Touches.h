/// Fingers: hit tests, and the drags that recognisers make of moves.
#pragma once

#include "simulator/device/Device.h"
#include "simulator/device/Geometry.h"

#include <memory>
#include <optional>

namespace panotra::sim {

struct PanRecognizer;

/// One finger on the mixer's window, in screen coordinates.
class Touches {
public:
    struct Finger {
        Point down;
        Point now;
        PanRecognizer* recognizer; ///< counted; null: nothing under the finger takes drags
        bool isOnMixer = false;
        bool isDragging = false;
    };

    explicit Touches(Device& device);
    ~Touches();

    /// Hit-tests the mixer's window; traced as `hit`.
    void down(double x, double y);
    void move(double x, double y);
    void up();
    /// The finger that is down, if one is.
    const std::optional<Finger>& finger() const;
    /// Whether the finger drags a slider that is still on the screen, not one that was torn down under it.
    bool isDraggingSomething() const;

    /// Where a finger went down on what is behind the mixer; none if it is lifted, or on the mixer.
    std::optional<Point> fingerBehindMixer() const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace panotra::sim
