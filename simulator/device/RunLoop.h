/// The virtual clock, the one queue of deferred work, and block animations.
#pragma once

#include "simulator/device/Device.h"

#include <functional>
#include <list>
#include <memory>
#include <vector>

namespace panotra::sim {

class Animation;
struct View;

class RunLoop {
public:
    /// What is in the queue: a delayed perform, the end of an animation or, if it is neither, a block.
    struct Waiting {
        double due; ///< seconds
        const HostSelector* selector; ///< null unless it is a perform
        HostObject* object; ///< of a perform; may be null
        const Animation* ending; ///< null unless it is such an end
        bool hasCompletion; ///< of that animation
    };

    explicit RunLoop(Device& device);
    ~RunLoop();

    double now() const;
    /// Runs everything due by now, also what that work makes due by now.
    void turn();
    /// Runs everything due up to now + seconds in order, the clock standing at each item's due time meanwhile.
    void wait(double seconds);
    /// When the next item is due, or none. For hosts that follow real time.
    std::optional<double> nextDue() const;

    /// `performSelector:withObject:afterDelay:`. Keeps target and object alive. A null target: nothing happens.
    /// Traced as `schedule`.
    void perform(HostObject* target, const HostSelector* selector, HostObject* object, double delay);
    /// `cancelPreviousPerformRequestsWithTarget:selector:object:`. Traced as `cancel`.
    void cancelPerforms(HostObject* target, const HostSelector* selector, HostObject* object);
    /// A block on the main queue. Traced as `dispatch`.
    void dispatch(double delay, std::function<void()> block);
    /// Work that another thread leaves on the main queue: done at the next turn, before whatever else is due, in the
    /// order in which it was left. From any thread.
    void post(std::function<void()> work);
    /// Does what other threads have left so far, and nothing else.
    void runPosted();
    /// Work of the host's own, due now, without events and not listed as pending.
    void defer(std::function<void()> work);

    /// `animateWithDuration:delay:options:animations:completion:`. Traced as `animate`.
    void animate(double duration, double delay, std::uint64_t options, const std::function<void()>& animations,
        std::function<void(bool finished)> completion);
    /// The animation whose block is running, the innermost one; null outside of blocks. A view on which a property
    /// is set then is animated by it.
    Animation* animationOfBlock() const;
    /// `removeAllAnimations` of a view's layer: takes the view out of every animation that runs now, oldest first.
    /// One that loses its last view ends inside the call, not finished; one that never had a view goes on.
    void removeAllAnimations(View& view);

    /// The deferred performs in the order of the queue: {"selector", "object", "due"}.
    Json pending() const;
    std::size_t pendingCount() const; ///< everything in the queue
    /// Everything in the queue, in its order, for those who compare processes.
    std::vector<Waiting> waiting() const;
    std::size_t runningAnimations() const;
    /// The animations that run now, oldest first, for those who draw what is between the values.
    const std::list<std::shared_ptr<Animation>>& animations() const;

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace panotra::sim
