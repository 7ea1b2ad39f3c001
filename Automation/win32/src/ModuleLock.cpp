// ModuleLock: the count behind it.
#include "automation_win32/ModuleLock.h"

#include <atomic>

namespace automation {

namespace {

std::atomic<long> locks = 0;

}  // namespace

ModuleLock::ModuleLock() {
    LockModule();
}

ModuleLock::~ModuleLock() {
    UnlockModule();
}

void LockModule() {
    ++locks;
}

void UnlockModule() {
    --locks;
}

bool ModuleIsUnused() {
    return locks == 0;
}

}  // namespace automation
