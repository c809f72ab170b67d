#pragma once

#include <cstdlib>
#include <new>

// Replaces the allocation functions of the whole program: include it in one source file of a program of its
// own.

namespace Detail {
inline thread_local int allocations = 0;
} // namespace Detail

/// Allocations by `new` of this thread since it was made.
class AllocationCount
{
public:
    int taken() const { return Detail::allocations - m_before; }

private:
    int m_before = Detail::allocations;
};

void* operator new(std::size_t size)
{
    ++Detail::allocations;
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, std::align_val_t alignment)
{
    ++Detail::allocations;
    const auto step = static_cast<std::size_t>(alignment);
    if (void* memory = std::aligned_alloc(step, (size + step - 1) / step * step))
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

void operator delete(void* memory, std::align_val_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    std::free(memory);
}
