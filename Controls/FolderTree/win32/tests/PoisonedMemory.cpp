// PoisonedMemory: freed memory is overwritten, so that what uses itself after its end is found; and memory can run out.
#include "PoisonedMemory.h"

#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace {

int failAt = 0;

void Free(void* memory) noexcept {
    if (memory == nullptr) return;
    std::memset(memory, 0xDD, _msize(memory));
    std::free(memory);
}

}  // namespace

namespace foldertree {

void FailAllocation(int n) {
    failAt = n;
}
bool AllocationFailurePending() {
    return failAt > 0;
}
int DisarmAllocationFailure() {
    return std::exchange(failAt, 0);
}

}  // namespace foldertree

void* operator new(std::size_t size) {
    if (failAt > 0 && --failAt == 0) throw std::bad_alloc();
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* memory) noexcept {
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}
