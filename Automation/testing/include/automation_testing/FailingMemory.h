// FailingMemory: memory that runs out at a chosen allocation. A test program that links this has its own operator new.
#pragma once

#include <cstdint>
#include <functional>

namespace automation::testing {

/// Which allocations fail, counted from 1 on.
struct MemoryPlan {
    int64_t first = 0;  ///< 0: none; the allocations are only counted
    bool andAllAfter = false;
};

/// While it lives, the thread's uses of `operator new` are counted and those of the plan fail with std::bad_alloc (or
/// null, where the caller asked for that). Scopes do not nest, and other threads are left alone. Not seen: malloc, the
/// system's own allocations, over-aligned types, and the memory of exceptions that are thrown.
///
/// Without a scope, allocations take their usual way; in Windows builds freed memory is overwritten. Nothing is
/// asserted in here: look at the outcome after the scope.
class FailingMemory {
  public:
    explicit FailingMemory(MemoryPlan plan = {});
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    int64_t Asked() const;    ///< allocations counted so far
    int64_t Refused() const;  ///< of these, how many failed
};

/// While it lives, allocations neither fail nor count: for what stands for the outside world (hosts, mail clients) and
/// for what a test notes down in the middle. May nest, and needs no FailingMemory around it.
class SparedMemory {
  public:
    SparedMemory();
    ~SparedMemory();
    SparedMemory(const SparedMemory&) = delete;
    SparedMemory& operator=(const SparedMemory&) = delete;
};

/// Blocks of `operator new` that are in use, on all threads: to see that nothing was leaked where no sanitizer looks.
int64_t LiveAllocations();

/// Runs a scenario again and again, its n-th allocation failing in the n-th run, until a run in which none did; returns
/// how many runs saw a failure. `run` prepares, acts within a FailingMemory(plan), compares what is left, and returns
/// whether anything was refused. `andAllAfter` as in MemoryPlan. Every run must ask for memory in the same order. With
/// a `step` above 1 only the 1st, the (1 + step)-th … fail, a sample of a scenario that takes long.
int64_t FailEachAllocation(bool andAllAfter, const std::function<bool(const MemoryPlan&)>& run, int64_t step = 1);

}  // namespace automation::testing
