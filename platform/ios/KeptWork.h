/// Work of the logic's that blocks hold until the platform runs it.
#pragma once

#include "platform/Block.h"

#include <cstddef>

namespace panotra::ios {

/// The work on the heap, to be deleted by whoever runs it: a queue runs every block once, and copies it on any thread.
Block<void()>* keep(Block<void()>&& work) noexcept;

/// What is done in the course of one animation. The platform runs the first at once; what it does with the second is
/// its own affair, and it may have raised in between: each is done once.
class Animation {
public:
    /// `completion` may be empty.
    Animation(Block<void()>&& animations, Block<void(bool finished)>&& completion) noexcept;

    bool hasCompletion() const noexcept { return static_cast<bool>(m_completion); }
    void run();
    void end(bool finished);

    /// Few are under way at a time, and for these there is a place beforehand.
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* memory) noexcept;

private:
    friend class AnimationReference;

    Block<void()> m_animations;
    Block<void(bool finished)> m_completion;
    bool m_hasRun = false;
    bool m_hasEnded = false;
    int m_references = 0; ///< counted on the main thread alone
};

/// What a block holds of it: the platform copies blocks, and lets go of them, as it likes.
class AnimationReference {
public:
    explicit AnimationReference(Animation* animation) noexcept
        : m_animation(animation)
    {
        ++m_animation->m_references;
    }
    AnimationReference(const AnimationReference& other) noexcept
        : AnimationReference(other.m_animation)
    {
    }
    AnimationReference& operator=(const AnimationReference&) = delete;
    ~AnimationReference()
    {
        if (--m_animation->m_references == 0)
            delete m_animation;
    }
    Animation* operator->() const noexcept { return m_animation; }

private:
    Animation* m_animation;
};

} // namespace panotra::ios
