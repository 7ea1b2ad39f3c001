// MemberNumbers: by type where there is a type library behind the object.
#include "MemberNumbers.h"

#include <dispex.h>

#include <algorithm>
#include <map>
#include <optional>

#include "automation_win32/Bstr.h"
#include "automation_win32/ComPtr.h"

namespace automation {

namespace {

struct GuidLess {
    bool operator()(const GUID& a, const GUID& b) const { return memcmp(&a, &b, sizeof(GUID)) < 0; }
};

template <class Interface>
bool Offers(IDispatch* dispatch) {
    ComPtr<Interface> unused;
    return SUCCEEDED(dispatch->QueryInterface(IID_PPV_ARGS(unused.GetAddressOf())));
}

/// The interface that describes the object's members, where it is the same for all objects that name it. To ask another
/// process, which is behind a proxy (it alone has client security), costs more than the numbers do; and objects of
/// script engines may grow members one by one.
std::optional<GUID> FixedType(IDispatch* dispatch) {
    if (Offers<IClientSecurity>(dispatch) || Offers<IDispatchEx>(dispatch)) return std::nullopt;
    ComPtr<ITypeInfo> info;
    if (FAILED(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.GetAddressOf())) || !info) return std::nullopt;
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetTypeAttr(&attributes)) || attributes == nullptr) return std::nullopt;
    const GUID guid = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    if (guid == GUID_NULL) return std::nullopt;
    return guid;
}

std::string CacheKey(std::string_view member, std::span<const std::string_view> parameters) {
    std::string key(member);
    for (const std::string_view parameter : parameters) (key += '\n') += parameter;
    return key;
}

/// Objects of some script engines answer to IDispatchEx only.
HRESULT AskExtended(IDispatch* dispatch, std::string_view member, DISPID& number) {
    ComPtr<IDispatchEx> extended;
    if (FAILED(dispatch->QueryInterface(IID_PPV_ARGS(extended.GetAddressOf())))) return E_NOTIMPL;
    return extended->GetDispID(OwnedBstr(member).Get(), fdexNameCaseInsensitive, &number);
}

HRESULT Ask(IDispatch* dispatch, std::string_view member, std::span<const std::string_view> parameters,
            std::span<DISPID> numbers) {
    std::vector<std::wstring> names{ToWide(member)};
    for (const std::string_view parameter : parameters) names.push_back(ToWide(parameter));
    std::vector<LPOLESTR> pointers;
    for (std::wstring& name : names) pointers.push_back(name.data());
    std::ranges::fill(numbers, DISPID_UNKNOWN);
    const HRESULT result = dispatch->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(pointers.size()),
                                                   LOCALE_USER_DEFAULT, numbers.data());
    return result == E_NOTIMPL && parameters.empty() ? AskExtended(dispatch, member, numbers[0]) : result;
}

}  // namespace

std::shared_ptr<MemberNumbers> MemberNumbers::For(IDispatch* dispatch) {
    const std::optional<GUID> type = FixedType(dispatch);
    if (!type) return std::make_shared<MemberNumbers>();
    static std::mutex mutex;
    static auto* const byType = new std::map<GUID, std::shared_ptr<MemberNumbers>, GuidLess>;
    const std::lock_guard lock(mutex);
    std::shared_ptr<MemberNumbers>& numbers = (*byType)[*type];
    if (!numbers) numbers = std::make_shared<MemberNumbers>();
    return numbers;
}

HRESULT MemberNumbers::Find(IDispatch* dispatch, std::string_view member, std::span<const std::string_view> parameters,
                            std::span<DISPID> numbers) {
    if (parameters.empty() && Known(member, numbers)) return S_OK;
    std::string key = CacheKey(member, parameters);
    if (!parameters.empty() && Known(key, numbers)) return S_OK;
    const HRESULT result = Ask(dispatch, member, parameters, numbers);
    if (SUCCEEDED(result)) {
        const std::lock_guard lock(mutex_);
        known_.try_emplace(std::move(key), numbers.begin(), numbers.end());
    }
    return result;
}

bool MemberNumbers::Known(std::string_view key, std::span<DISPID> numbers) {
    const std::lock_guard lock(mutex_);
    const auto known = known_.find(key);
    if (known == known_.end()) return false;
    std::ranges::copy(known->second, numbers.begin());
    return true;
}

}  // namespace automation
