// FailingMemory: the program's operator new, which a test can make fail, and an operator delete that leaves nothing.
#include "automation_testing/FailingMemory.h"

#include <atomic>
#include <cstdlib>
#include <new>
#ifdef _WIN32
#include <malloc.h>

#include <cstring>
#endif

namespace automation::testing {

namespace {

/// Plain data, so that a thread that never arms it needs no set-up that would itself allocate.
struct Meter {
    bool armed;
    int spared;  ///< depth of SparedMemory
    MemoryPlan plan;
    int64_t asked;
    int64_t refused;
};
thread_local constinit Meter meter{};
constinit std::atomic<int64_t> live = 0;

/// Counts an allocation; whether it must fail.
bool Refuse() {
    if (!meter.armed || meter.spared > 0) return false;
    const int64_t number = ++meter.asked;
    const MemoryPlan& plan = meter.plan;
    const bool refuse = plan.first > 0 && (plan.andAllAfter ? number >= plan.first : number == plan.first);
    if (refuse) ++meter.refused;
    return refuse;
}

void* Allocate(std::size_t size) noexcept {
    void* const memory = Refuse() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory != nullptr) live.fetch_add(1, std::memory_order_relaxed);
    return memory;
}

void Free(void* memory) noexcept {
    if (memory == nullptr) return;
    live.fetch_sub(1, std::memory_order_relaxed);
#ifdef _WIN32
    // Where no sanitizer looks, what is used after its end shall at least not work by chance.
    std::memset(memory, 0xDD, _msize(memory));
#endif
    std::free(memory);
}

void* AllocateOrThrow(std::size_t size) {
    if (void* memory = Allocate(size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

FailingMemory::FailingMemory(MemoryPlan plan) {
    meter.plan = plan;
    meter.asked = meter.refused = 0;
    meter.armed = true;
}

FailingMemory::~FailingMemory() {
    meter.armed = false;
}

int64_t FailingMemory::Asked() const {
    return meter.asked;
}

int64_t FailingMemory::Refused() const {
    return meter.refused;
}

SparedMemory::SparedMemory() {
    ++meter.spared;
}

SparedMemory::~SparedMemory() {
    --meter.spared;
}

int64_t LiveAllocations() {
    return live;
}

int64_t FailEachAllocation(bool andAllAfter, const std::function<bool(const MemoryPlan&)>& run, int64_t step) {
    int64_t failures = 0;
    while (run({1 + failures * step, andAllAfter})) ++failures;
    return failures;
}

}  // namespace automation::testing

using automation::testing::Allocate;
using automation::testing::AllocateOrThrow;
using automation::testing::Free;

void* operator new(std::size_t size) {
    return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
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
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}
