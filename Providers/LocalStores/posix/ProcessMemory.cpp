// ProcessMemory: asked of Linux.
#include "pst/ProcessMemory.h"

#include <unistd.h>

#include <cstdio>

namespace localstores {

size_t ProcessMemory() noexcept {
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr) return 0;
    unsigned long all = 0;
    unsigned long resident = 0;
    if (std::fscanf(file, "%lu %lu", &all, &resident) != 2) resident = 0;
    std::fclose(file);
    return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace localstores
