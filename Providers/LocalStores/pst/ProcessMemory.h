// ProcessMemory: what this process holds of the machine's memory.
#pragma once

#include <cstddef>

namespace localstores {

/// In bytes; 0 where the system does not tell.
size_t ProcessMemory() noexcept;

}  // namespace localstores
