// The allocation functions of the test program, which fail while a test wants them to.
#include "tests/basics/failing_memory.h"

#include <cstdlib>
#include <new>

namespace
{
constexpr int unlimited = -1;
thread_local int left = unlimited;
} // namespace

namespace kv::testing
{
OutOfMemory::OutOfMemory(int allocationsLeft)
{
    left = allocationsLeft;
}
OutOfMemory::~OutOfMemory()
{
    left = unlimited;
}
} // namespace kv::testing

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    if (left == 0)
        return nullptr;
    if (left > 0)
        --left;
    return std::malloc(size > 0 ? size : 1);
}

void* operator new(std::size_t size)
{
    if (void* memory = operator new(size, std::nothrow))
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
