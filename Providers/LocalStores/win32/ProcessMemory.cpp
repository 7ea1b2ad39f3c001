// ProcessMemory: asked of Windows.
#include "pst/ProcessMemory.h"

#include <windows.h>

#include <psapi.h>

namespace localstores {

size_t ProcessMemory() noexcept {
    PROCESS_MEMORY_COUNTERS counters{};
    if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) return 0;
    return counters.PagefileUsage;
}

}  // namespace localstores
