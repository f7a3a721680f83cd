/// Moves work to where blocks find it, and runs it. Compiled like the logic: nothing in it knows of exceptions, so that
/// moving a function, which could throw for all that a compiler knows, asks for no end of the process.
#include "platform/ios/KeptWork.h"

#include <array>
#include <utility>

namespace panotra::ios {

namespace {

struct AnimationPlace {
    alignas(Animation) std::array<std::byte, sizeof(Animation)> memory;
    bool isTaken;
};

constinit std::array<AnimationPlace, 8> animationPlaces {};

} // namespace

Block<void()>* keep(Block<void()>&& work) noexcept
{
    return new Block<void()>(std::move(work));
}

Animation::Animation(Block<void()>&& animations, Block<void(bool finished)>&& completion) noexcept
    : m_animations(std::move(animations))
    , m_completion(std::move(completion))
{
}

void* Animation::operator new(std::size_t size) noexcept
{
    for (AnimationPlace& place : animationPlaces) {
        if (!std::exchange(place.isTaken, true))
            return place.memory.data();
    }
    return ::operator new(size);
}

void Animation::operator delete(void* memory) noexcept
{
    for (AnimationPlace& place : animationPlaces) {
        if (memory == place.memory.data()) {
            place.isTaken = false;
            return;
        }
    }
    ::operator delete(memory);
}

void Animation::run()
{
    if (!std::exchange(m_hasRun, true))
        m_animations();
}

void Animation::end(bool finished)
{
    if (!std::exchange(m_hasEnded, true) && m_completion)
        m_completion(finished);
}

} // namespace panotra::ios
