/// Work that the host is given to run later: a function object, held in the block itself. Nothing is allocated for it.
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

namespace panotra {

template <typename Signature> class Block;

/// Null, and true or false accordingly, until it is given a function. A null one is not to be called. What the function
/// captured, five pointers at most, lives as long as the block.
template <typename... Arguments> class Block<void(Arguments...)> {
public:
    constexpr Block() noexcept = default;
    constexpr Block(std::nullptr_t) noexcept { }
    template <typename Function>
    requires(!std::same_as<std::remove_cvref_t<Function>, Block>) Block(Function function)
    noexcept
        : m_handling(&handlingOf<Function>)
    {
        static_assert(sizeof(Function) <= sizeof m_memory && alignof(Function) <= alignof(void*));
        ::new (m_memory.data()) Function(std::move(function));
    }
    Block(Block&& other) noexcept
        : m_handling(std::exchange(other.m_handling, nullptr))
    {
        if (m_handling != nullptr)
            m_handling->move(other.m_memory.data(), m_memory.data());
    }
    Block& operator=(Block&&) = delete;
    ~Block()
    {
        if (m_handling != nullptr)
            m_handling->destroy(m_memory.data());
    }

    explicit operator bool() const noexcept { return m_handling != nullptr; }
    void operator()(Arguments... arguments) const { m_handling->call(m_memory.data(), arguments...); }

private:
    /// What is done with a function of one type.
    struct Handling {
        void (*call)(const std::byte* function, Arguments... arguments);
        void (*move)(std::byte* from, std::byte* to) noexcept; ///< leaves nothing behind
        void (*destroy)(std::byte* function) noexcept;
    };

    template <typename Function> static const Function& functionIn(const std::byte* memory) noexcept
    {
        return *std::launder(reinterpret_cast<const Function*>(memory));
    }
    template <typename Function> static Function& functionIn(std::byte* memory) noexcept
    {
        return *std::launder(reinterpret_cast<Function*>(memory));
    }

    template <typename Function>
    static constexpr Handling handlingOf {
        [](const std::byte* function, Arguments... arguments) { functionIn<Function>(function)(arguments...); },
        [](std::byte* from, std::byte* to) noexcept {
            ::new (to) Function(std::move(functionIn<Function>(from)));
            std::destroy_at(&functionIn<Function>(from));
        },
        [](std::byte* function) noexcept { std::destroy_at(&functionIn<Function>(function)); },
    };

    const Handling* m_handling = nullptr;
    alignas(void*) std::array<std::byte, 5 * sizeof(void*)> m_memory;
};

} // namespace panotra
