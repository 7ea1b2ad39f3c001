// MemberNumbers: the numbers that a type of COM objects gives to its members, asked for once.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "automation/Object.h"
#include "automation/TextHash.h"

namespace automation {

class MemberNumbers {
  public:
    /// The numbers for an object: shared by all objects of its type where the type is known and fixed, else its own.
    static std::shared_ptr<MemberNumbers> For(IDispatch* dispatch);

    /// Writes the number of a member, and behind it those of parameters that are given by name. Failures are not
    /// remembered.
    HRESULT Find(IDispatch* dispatch, std::string_view member, std::span<const std::string_view> parameters,
                 std::span<DISPID> numbers);

  private:
    struct NameHash {
        using is_transparent = void;
        size_t operator()(std::string_view name) const { return static_cast<size_t>(HashText(name)); }
    };
    struct SameName {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const { return SameMember(a, b); }
    };

    bool Known(std::string_view key, std::span<DISPID> numbers);

    std::mutex mutex_;
    /// By the member and, each on a line of its own, the parameters.
    std::unordered_map<std::string, std::vector<DISPID>, NameHash, SameName> known_;
};

}  // namespace automation
