// PoisonedMemory: freed memory is overwritten, so that a window that uses itself after its end is found.
#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

void Free(void* memory) noexcept {
    if (memory == nullptr) return;
    std::memset(memory, 0xDD, _msize(memory));
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
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
