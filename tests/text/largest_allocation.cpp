// Counts the pieces of memory that the test program asks for, by standing in for the global operators.
#include "text/largest_allocation.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> largest{0};

}  // namespace

namespace zirvo {

std::size_t LargestAllocation() {
    return largest;
}
void ForgetAllocations() {
    largest = 0;
}

}  // namespace zirvo

void* operator new(std::size_t size) {
    std::size_t before = largest;
    while (size > before && !largest.compare_exchange_weak(before, size)) {
    }
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
