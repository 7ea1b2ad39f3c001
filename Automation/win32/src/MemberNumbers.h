// MemberNumbers: the numbers that a type of COM objects gives to its members, asked for once.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace automation {

class MemberNumbers {
  public:
    /// The numbers for an object: shared by all objects of its type where the type is known and fixed, else its own.
    static std::shared_ptr<MemberNumbers> For(IDispatch* dispatch);

    /// The number of a member, and those of parameters that are given by name. Failures are not remembered.
    HRESULT Find(IDispatch* dispatch, std::string_view member, std::span<const std::string_view> parameters,
                 std::vector<DISPID>& numbers);

  private:
    std::mutex mutex_;
    std::map<std::string, std::vector<DISPID>, std::less<>> known_;
};

}  // namespace automation
