/// The counting replacements of the global allocation functions.
#include "tests/unit/costs/AllocationCounter.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;

} // namespace

void* operator new(std::size_t size)
{
    ++allocations;
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

namespace panotra::testing {

std::size_t allocationCount()
{
    return allocations;
}

} // namespace panotra::testing
