/// One finger on the mixer's window: hit tests, and the drags that recognisers make of its moves.
#include "simulator/device/Touches.h"

#include "facts/GestureStates.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/EventFields.h"
#include "simulator/device/HomeScreen.h"
#include "simulator/device/Values.h"
#include "simulator/device/View.h"

#include <cmath>

namespace panotra::sim {

namespace {

/// A finger that has gone farther than this is dragging.
constexpr double dragDistanceInPoints = 10;

constexpr std::int64_t touchesEvent = 0; ///< UIEventTypeTouches

} // namespace

struct Touches::Implementation {
    explicit Implementation(Device& owner)
        : device(owner)
    {
    }

    Device& device;
    std::optional<Finger> finger;

    void lift()
    {
        if (finger.has_value())
            sim::release(finger->recognizer);
        finger.reset();
    }

    View* viewHitAt(Point point) const
    {
        auto* const window = dynamic_cast<Window*>(device.home->window());
        const auto inside = window == nullptr ? std::nullopt : window->fromSuperview(point);
        if (!inside)
            return nullptr;
        HostObject* const event = device.classes->autorelease(device.classes->make<Event>("UIEvent", touchesEvent));
        return dynamic_cast<View*>(send<HostObject*>(window, selector("hitTest:withEvent:"), *inside, event));
    }

    static PanRecognizer* recognizerOver(View* view)
    {
        while (view != nullptr && view->recognizers.empty())
            view = view->superview;
        return view == nullptr ? nullptr : view->recognizers.front();
    }

    /// False once the view was torn down under the finger: out of the window, or gone altogether.
    bool isReachable(const PanRecognizer& recognizer) const
    {
        const auto* const window = dynamic_cast<const Window*>(device.home->window());
        return window != nullptr && recognizer.view != nullptr && recognizer.view->isInside(*window);
    }

    void sendState(UIGestureRecognizerState state) const
    {
        PanRecognizer* const recognizer = finger->recognizer;
        if (recognizer == nullptr || !isReachable(*recognizer))
            return;
        recognizer->screenPoint = finger->now;
        recognizer->send(stateNumber(state));
    }
};

Touches::Touches(Device& device)
    : m_implementation(std::make_unique<Implementation>(device))
{
}

Touches::~Touches() = default;

void Touches::down(double x, double y)
{
    const Point point { x, y };
    View* const hit = m_implementation->viewHitAt(point);
    m_implementation->device.trace(
        "hit", [&](EventFields& fields) { fields.add("x", x, "y", y, "view", m_implementation->device.nameOf(hit)); });
    PanRecognizer* const recognizer = Implementation::recognizerOver(hit);
    retain(recognizer);
    m_implementation->lift();
    m_implementation->finger = Finger { point, point, recognizer, hit != nullptr };
}

void Touches::move(double x, double y)
{
    if (!m_implementation->finger.has_value())
        return;
    Finger& finger = *m_implementation->finger;
    finger.now = { x, y };
    if (finger.isDragging) {
        m_implementation->sendState(UIGestureRecognizerState::Changed);
    } else if (std::hypot(x - finger.down.x, y - finger.down.y) > dragDistanceInPoints) {
        finger.isDragging = true;
        m_implementation->sendState(UIGestureRecognizerState::Began);
    }
}

void Touches::up()
{
    if (!m_implementation->finger.has_value())
        return;
    if (m_implementation->finger->isDragging)
        m_implementation->sendState(UIGestureRecognizerState::Ended);
    m_implementation->lift();
}

const std::optional<Touches::Finger>& Touches::finger() const
{
    return m_implementation->finger;
}

bool Touches::isDraggingSomething() const
{
    const auto& finger = m_implementation->finger;
    return finger.has_value() && finger->isDragging && finger->recognizer != nullptr
        && m_implementation->isReachable(*finger->recognizer);
}

std::optional<Point> Touches::fingerBehindMixer() const
{
    const auto& finger = m_implementation->finger;
    return finger.has_value() && !finger->isOnMixer ? std::optional(finger->down) : std::nullopt;
}

} // namespace panotra::sim
