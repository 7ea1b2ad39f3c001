// Resources: what a process holds of memory and handles, and whether that has grown.
#include "Resources.h"

#include <psapi.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>

namespace soak {

namespace {

constexpr size_t probes = 64;

/// The highest index among some new handles, whose low 16 bits are the index. They all live at the same time.
size_t HighestIndex(const std::function<HANDLE()>& make, const std::function<void(HANDLE)>& destroy) {
    std::array<HANDLE, probes> handles{};
    size_t highest = 0;
    for (HANDLE& handle : handles) {
        handle = make();
        highest = std::max(highest, reinterpret_cast<size_t>(handle) & 0xFFFF);
    }
    for (const HANDLE handle : handles) destroy(handle);
    return highest;
}

size_t GdiHandles() {
    const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (counted != 0) return counted;
    return HighestIndex([]() -> HANDLE { return CreateSolidBrush(RGB(1, 2, 3)); },
                        [](HANDLE brush) { DeleteObject(brush); });
}

size_t UserHandles() {
    const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    if (counted != 0) return counted;
    return HighestIndex([]() -> HANDLE { return CreateMenu(); },
                        [](HANDLE menu) { DestroyMenu(static_cast<HMENU>(menu)); });
}

size_t KernelHandles() {
    DWORD counted = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &counted) && counted != 0) return counted;
    // A handle is a multiple of four; ask for each up to far beyond the last one.
    constexpr size_t gap = 1000;
    size_t open = 0;
    for (size_t number = 1, last = 1; number < last + gap; ++number) {
        DWORD flags = 0;
        if (!GetHandleInformation(reinterpret_cast<HANDLE>(number * 4), &flags)) continue;
        ++open;
        last = number;
    }
    return open;
}

size_t PrivateKilobytes() {
    PROCESS_MEMORY_COUNTERS_EX counters = {};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters);
    return std::max(counters.PrivateUsage, counters.PagefileUsage) / 1024;
}

}  // namespace

Resources Resources::Now() {
    Resources now;
    now.gdiHandles = GdiHandles();
    now.userHandles = UserHandles();
    now.kernelHandles = KernelHandles();
    now.privateKilobytes = PrivateKilobytes();
    return now;
}

std::vector<Comparison> Compare(const Resources& first, const Resources& last) {
    return {{"private memory (kB)", first.privateKilobytes, last.privateKilobytes, 2048},
            {"GDI handles", first.gdiHandles, last.gdiHandles, 16},
            {"USER handles", first.userHandles, last.userHandles, 16},
            {"kernel handles", first.kernelHandles, last.kernelHandles, 16}};
}

std::string Describe(const std::vector<Comparison>& comparisons) {
    std::string text;
    for (const Comparison& one : comparisons) {
        char line[120];
        snprintf(line, sizeof line, "  %-20s first %8zu  last %8zu%s\n", one.name, one.first, one.last,
                 one.HasGrown() ? "  GROWN" : "");
        text += line;
    }
    return text;
}

bool AnyHasGrown(const std::vector<Comparison>& comparisons) {
    return std::any_of(comparisons.begin(), comparisons.end(), [](const Comparison& one) { return one.HasGrown(); });
}

}  // namespace soak
