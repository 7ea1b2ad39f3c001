// Resources: what a process holds of memory and handles, and whether that has grown.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace soak {

/// Counts where the system counts. Wine does not count GDI and USER handles: there it is the highest index among some
/// new handles, which are given back at once. It grows as soon as what is leaked has filled the gaps.
struct Resources {
    size_t privateKilobytes = 0;
    size_t gdiHandles = 0;
    size_t userHandles = 0;
    size_t kernelHandles = 0;

    /// Of this process.
    static Resources Now();
};

/// One resource at the beginning and at the end.
struct Comparison {
    const char* name;
    size_t first;
    size_t last;
    size_t allowance;  ///< what caches, locks and gaps between handles may add, however long it goes on

    bool HasGrown() const { return last > first + allowance; }
};

std::vector<Comparison> Compare(const Resources& first, const Resources& last);

/// A line for each resource; what has grown is marked.
std::string Describe(const std::vector<Comparison>& comparisons);
bool AnyHasGrown(const std::vector<Comparison>& comparisons);

}  // namespace soak
