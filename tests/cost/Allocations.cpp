/// The program's own global `operator new`, which counts.
#include "tests/cost/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t count = 0;

} // namespace

std::size_t panotra::testing::allocationCount()
{
    return count;
}

// The array and the non-throwing forms of the standard library come through these.

void* operator new(std::size_t size)
{
    ++count;
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
