/// The C++ allocation functions over the C library's, so that no C++ library has to be linked.
#include <new>
#include <stdlib.h>

namespace {

/// There is nobody to throw to, and a null pointer from `new` is taken for an object.
void* allocateOrStop(std::size_t size)
{
    void* const memory = malloc(size);
    if (memory == nullptr)
        __builtin_trap();
    return memory;
}

} // namespace

void* operator new(std::size_t size)
{
    return allocateOrStop(size);
}

void operator delete(void* memory) noexcept
{
    free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    free(memory);
}
