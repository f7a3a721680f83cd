/// Moves work to where blocks find it, and runs it. Compiled like the logic: nothing in it knows of exceptions, so that
/// moving a function, which could throw for all that a compiler knows, asks for no end of the process.
#include "platform/ios/KeptWork.h"

#include <utility>

namespace panotra::ios {

std::function<void()>* keep(std::function<void()>&& work) noexcept
{
    return new std::function<void()>(std::move(work));
}

Animation::Animation(std::function<void()>&& animations, std::function<void(bool finished)>&& completion) noexcept
    : m_animations(std::move(animations))
    , m_completion(std::move(completion))
{
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
