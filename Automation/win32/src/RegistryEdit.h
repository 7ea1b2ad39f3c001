// RegistryEdit: values written to the registry that are taken back unless they are kept.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "RegistryKey.h"

namespace automation {

/// Collects what each write replaces. Its end, unless Keep was called, puts every value back to what it was, of
/// whatever type, and removes the keys that the writes made as far as nobody else has put something there; to take back
/// needs no memory and tells no failure.
class RegistryEdit {
  public:
    /// The key must outlive the edit.
    explicit RegistryEdit(const RegistryKey& root) : root_(root) {}
    ~RegistryEdit();
    RegistryEdit(const RegistryEdit&) = delete;
    RegistryEdit& operator=(const RegistryEdit&) = delete;

    const RegistryKey& Root() const { return root_; }
    /// As RegistryKey::Write.
    void Write(const std::wstring& subkey, const std::wstring& name, const std::wstring& text);
    void Keep() { steps_.clear(); }

  private:
    /// One write: the keys that it makes, the outermost first, and the value that it replaces.
    struct Step {
        std::vector<std::wstring> madeKeys;
        std::wstring subkey;
        std::wstring name;
        std::optional<RegistryValue> before;
    };
    void TakeBack(const Step& step) const;

    const RegistryKey& root_;
    std::vector<Step> steps_;
};

}  // namespace automation
