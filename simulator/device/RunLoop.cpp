/// The clock, the queue and the running animations.
#include "simulator/device/RunLoop.h"

#include "simulator/device/Animation.h"
#include "simulator/device/ClassTable.h"
#include "simulator/device/EventFields.h"
#include "simulator/device/View.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <atomic>
#include <map>
#include <mutex>
#include <tuple>
#include <utility>

namespace panotra::sim {

namespace {

/// A place in the queue: when it is due, then when it was asked for.
using QueuePlace = std::pair<double, std::uint64_t>;
/// Target, selector and object of a delayed perform.
using PerformKey = std::tuple<HostObject*, const HostSelector*, HostObject*>;

struct Work {
    std::function<void()> run;
    std::optional<PerformKey> perform;
};

/// Runs a method that takes one object or none, as its selector says.
void runPerform(HostObject* target, const HostSelector* selector, HostObject* object)
{
    if (selector->name.ends_with(':'))
        send<void>(target, selector, object);
    else
        send<void>(target, selector);
}

} // namespace

struct RunLoop::Implementation {
    struct Running {
        std::list<std::shared_ptr<Animation>>::iterator inList;
        QueuePlace end;
        std::function<void(bool)> completion;
    };

    explicit Implementation(Device& owner)
        : device(owner)
    {
    }

    Device& device;
    double now = 0;
    std::uint64_t asked = 0;
    std::map<QueuePlace, Work> queue;
    std::multimap<PerformKey, QueuePlace> performs;
    std::list<std::shared_ptr<Animation>> animations; ///< oldest first
    std::map<const Animation*, Running> running;
    std::vector<Animation*> blocks; ///< the blocks that run now, outermost first; null: a completion

    // What other threads left.
    std::mutex postedLock;
    std::vector<std::function<void()>> posted;
    std::atomic<bool> hasPosted = false; ///< asked without the lock, at every turn

    QueuePlace nextPlace(double delay) { return { now + (delay > 0 ? delay : 0), asked++ }; }

    void addPerform(EventFields& fields, const PerformKey& key) const
    {
        const auto& [target, selector, object] = key;
        fields.add("selector", selector->name, "object", device.nameOf(object));
    }

    void forgetPerform(const PerformKey& key, const QueuePlace& place)
    {
        auto [candidate, end] = performs.equal_range(key);
        while (candidate != end && candidate->second != place)
            ++candidate;
        performs.erase(candidate);
    }

    void runNext()
    {
        auto node = queue.extract(queue.begin());
        now = std::max(now, node.key().first);
        Work& work = node.mapped();
        if (work.perform.has_value()) {
            const auto [target, selector, object] = *work.perform;
            forgetPerform(*work.perform, node.key());
            device.trace("perform", [&](EventFields& fields) { addPerform(fields, *work.perform); });
            runPerform(target, selector, object);
            sim::release(object);
            sim::release(target);
        } else {
            work.run();
        }
        work.run = nullptr; // before the pool is drained: what a block captured may go into it
        endTurn();
    }

    void endTurn()
    {
        device.classes->nameHeldObjects();
        device.classes->drainAutoreleasePool();
    }

    void runPosted()
    {
        std::vector<std::function<void()>> taken;
        {
            const std::lock_guard lock(postedLock);
            taken.swap(posted);
            hasPosted = false;
        }
        for (std::function<void()>& work : taken) {
            work();
            work = nullptr;
            endTurn();
        }
    }

    void runDueBy(double time)
    {
        while (hasPosted || (!queue.empty() && queue.begin()->first.first <= time)) {
            if (hasPosted)
                runPosted();
            else
                runNext();
        }
        endTurn();
    }

    void runInside(Animation* animation, const auto& function)
    {
        blocks.push_back(animation);
        function();
        blocks.pop_back();
    }

    void end(const Animation& animation, bool finished)
    {
        auto node = running.extract(&animation);
        Running& ended = node.mapped();
        queue.erase(ended.end);
        // The animated views live until the completion has run.
        const std::shared_ptr<Animation> keptAlive = *ended.inList;
        animations.erase(ended.inList);
        device.trace("animationEnd", [&](EventFields& fields) { fields.add("finished", finished); });
        if (ended.completion)
            runInside(nullptr, [&] { ended.completion(finished); });
    }
};

RunLoop::RunLoop(Device& device)
    : m_implementation(std::make_unique<Implementation>(device))
{
}

RunLoop::~RunLoop() = default;

double RunLoop::now() const
{
    return m_implementation->now;
}

void RunLoop::turn()
{
    m_implementation->runDueBy(m_implementation->now);
}

void RunLoop::wait(double seconds)
{
    const double end = m_implementation->now + seconds;
    m_implementation->runDueBy(end);
    m_implementation->now = std::max(m_implementation->now, end);
}

std::optional<double> RunLoop::nextDue() const
{
    if (m_implementation->hasPosted)
        return m_implementation->now;
    if (m_implementation->queue.empty())
        return std::nullopt;
    return m_implementation->queue.begin()->first.first;
}

void RunLoop::perform(HostObject* target, const HostSelector* selector, HostObject* object, double delay)
{
    if (target == nullptr)
        return;
    const PerformKey key { target, selector, object };
    m_implementation->device.trace("schedule", [&](EventFields& fields) {
        m_implementation->addPerform(fields, key);
        fields.add("delay", delay);
    });
    retain(target);
    retain(object);
    const QueuePlace place = m_implementation->nextPlace(delay);
    m_implementation->queue.emplace(place, Work { nullptr, key });
    m_implementation->performs.emplace(key, place);
}

void RunLoop::cancelPerforms(HostObject* target, const HostSelector* selector, HostObject* object)
{
    const PerformKey key { target, selector, object };
    m_implementation->device.trace("cancel", [&](EventFields& fields) { m_implementation->addPerform(fields, key); });
    const auto [begin, end] = m_implementation->performs.equal_range(key);
    const auto cancelled = std::distance(begin, end);
    for (auto each = begin; each != end; ++each)
        m_implementation->queue.erase(each->second);
    m_implementation->performs.erase(begin, end);
    // Last of all: a dealloc may ask for more.
    for (auto count = cancelled; count > 0; --count) {
        release(object);
        release(target);
    }
}

void RunLoop::dispatch(double delay, std::function<void()> block)
{
    m_implementation->device.trace("dispatch", [&](EventFields& fields) { fields.add("delay", delay); });
    auto run = [this, work = std::move(block)] {
        m_implementation->device.trace("dispatched");
        if (work)
            work();
    };
    m_implementation->queue.emplace(m_implementation->nextPlace(delay), Work { std::move(run), std::nullopt });
}

void RunLoop::post(std::function<void()> work)
{
    const std::lock_guard lock(m_implementation->postedLock);
    m_implementation->posted.push_back(std::move(work));
    m_implementation->hasPosted = true;
}

void RunLoop::runPosted()
{
    m_implementation->runPosted();
}

void RunLoop::defer(std::function<void()> work)
{
    m_implementation->queue.emplace(m_implementation->nextPlace(0), Work { std::move(work), std::nullopt });
}

void RunLoop::animate(double duration, double delay, std::uint64_t options, const std::function<void()>& animations,
    std::function<void(bool finished)> completion)
{
    Implementation& loop = *m_implementation;
    loop.device.trace(
        "animate", [&](EventFields& fields) { fields.add("duration", duration, "delay", delay, "options", options); });
    const auto animation = std::make_shared<Animation>(loop.now, delay, duration);
    // The end takes its place in the queue before the block can ask for anything.
    const QueuePlace end = loop.nextPlace(delay + duration);
    loop.queue.emplace(end, Work { [&loop, ending = animation.get()] { loop.end(*ending, true); }, std::nullopt });
    const auto inList = loop.animations.insert(loop.animations.end(), animation);
    loop.running.emplace(animation.get(), Implementation::Running { inList, end, std::move(completion) });
    if (animations)
        loop.runInside(animation.get(), animations);
}

Animation* RunLoop::animationOfBlock() const
{
    return m_implementation->blocks.empty() ? nullptr : m_implementation->blocks.back();
}

void RunLoop::removeAllAnimations(View& view)
{
    // Being animated may be all that keeps the view alive.
    retain(&view);
    std::vector<std::shared_ptr<Animation>> animating;
    std::ranges::copy_if(m_implementation->animations, std::back_inserter(animating),
        [&view](const std::shared_ptr<Animation>& each) { return each->animates(view); });
    for (const std::shared_ptr<Animation>& animation : animating) {
        // A completion that ran meanwhile may have ended it.
        if (!m_implementation->running.contains(animation.get()))
            continue;
        animation->remove(view);
        if (animation->isEmpty())
            m_implementation->end(*animation, false);
    }
    release(&view);
}

Json RunLoop::pending() const
{
    Json list = Json::array();
    for (const auto& [place, work] : m_implementation->queue) {
        if (!work.perform.has_value())
            continue;
        const auto& [target, selector, object] = *work.perform;
        const std::string* const name = m_implementation->device.nameOf(object);
        list.push_back({ { "selector", selector->name }, { "object", name != nullptr ? Json(*name) : Json() },
            { "due", place.first } });
    }
    return list;
}

std::size_t RunLoop::pendingCount() const
{
    return m_implementation->queue.size();
}

std::vector<RunLoop::Waiting> RunLoop::waiting() const
{
    std::vector<Waiting> list;
    for (const auto& [place, work] : m_implementation->queue) {
        Waiting& each = list.emplace_back(place.first, nullptr, nullptr, nullptr, false);
        if (work.perform.has_value())
            std::tie(std::ignore, each.selector, each.object) = *work.perform;
        for (const auto& [animation, running] : m_implementation->running) {
            if (running.end == place) {
                each.ending = animation;
                each.hasCompletion = running.completion != nullptr;
            }
        }
    }
    return list;
}

std::size_t RunLoop::runningAnimations() const
{
    return m_implementation->animations.size();
}

const std::list<std::shared_ptr<Animation>>& RunLoop::animations() const
{
    return m_implementation->animations;
}

} // namespace panotra::sim
