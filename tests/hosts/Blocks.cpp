/// Calls blocks by what every block begins with.
#include "tests/hosts/Blocks.h"

#include <memory>

extern "C" {
void* _Block_copy(const void* block);
void _Block_release(const void* block);
}

namespace panotra::hosts {

namespace {

struct Block {
    void* isa;
    int flags;
    int reserved;
    void (*invoke)();
};

template <typename... Arguments> std::function<void(Arguments...)> functionOf(const void* block)
{
    if (block == nullptr)
        return {};
    const std::shared_ptr<void> copy(_Block_copy(block), _Block_release);
    return [copy](Arguments... arguments) {
        const auto invoke = reinterpret_cast<void (*)(void*, Arguments...)>(static_cast<Block*>(copy.get())->invoke);
        invoke(copy.get(), arguments...);
    };
}

} // namespace

std::function<void()> functionOfBlock(const void* block)
{
    return functionOf<>(block);
}

std::function<void(bool)> completionOfBlock(const void* block)
{
    return functionOf<bool>(block);
}

} // namespace panotra::hosts
