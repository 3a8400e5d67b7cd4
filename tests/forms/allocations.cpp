// Operator new with two counters.
#include "forms/allocations.h"

#include <cstdlib>
#include <new>

namespace {

zirvo::Allocations soFar;

}  // namespace

void* operator new(std::size_t size) {
    ++soFar.Count;
    soFar.Bytes += size;
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

namespace zirvo {

Allocations AllocationsSoFar() {
    return soFar;
}

}  // namespace zirvo
