// ModuleLock: what keeps this DLL loaded.
#pragma once

namespace automation {

/// While one exists, ModuleIsUnused is false. Every COM object and every lock by a client holds one.
class ModuleLock {
  public:
    ModuleLock();
    ~ModuleLock();
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

/// The same by hand, for IClassFactory::LockServer.
void LockModule();
void UnlockModule();

/// For DllCanUnloadNow.
bool ModuleIsUnused();

}  // namespace automation
