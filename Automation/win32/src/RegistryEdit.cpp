// RegistryEdit: notes before it writes, so that a write that fails half way is taken back like any other.
#include "RegistryEdit.h"

#include <algorithm>
#include <utility>

namespace automation {

namespace {

std::vector<std::wstring> MissingKeys(const RegistryKey& root, const std::wstring& subkey) {
    std::vector<std::wstring> missing;
    for (size_t end = 0; end < subkey.size();) {
        end = std::min(subkey.find(L'\\', end + 1), subkey.size());
        std::wstring key = subkey.substr(0, end);
        if (!root.Has(key)) missing.push_back(std::move(key));
    }
    return missing;
}

}  // namespace

RegistryEdit::~RegistryEdit() {
    for (; !steps_.empty(); steps_.pop_back()) TakeBack(steps_.back());
}

void RegistryEdit::Write(const std::wstring& subkey, const std::wstring& name, const std::wstring& text) {
    steps_.push_back({MissingKeys(root_, subkey), subkey, name, root_.ReadRaw(subkey, name)});
    root_.Write(subkey, name, text);
}

void RegistryEdit::TakeBack(const Step& step) const {
    root_.RestoreRaw(step.subkey, step.name, step.before);
    for (auto key = step.madeKeys.rbegin(); key != step.madeKeys.rend(); ++key) root_.TryRemoveIfBare(*key);
}

}  // namespace automation
