// ComObject: IDispatch::Invoke and what surrounds it.
#include "automation_win32/ComObject.h"

#include <dispex.h>

#include <array>
#include <cstddef>
#include <memory_resource>
#include <vector>

#include "MemberNumbers.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Variant.h"

namespace automation {

namespace {

/// Visual Basic's 438 as a host tells it.
constexpr uint32_t noSuchMemberOfHost = 0x800A0000 | errors::noSuchMember;

/// Room for what a usual call needs to put together; a longer one takes more from the heap.
class CallMemory {
  public:
    std::pmr::memory_resource* Resource() { return &resource_; }

  private:
    std::array<std::byte, 512> space_;
    std::pmr::monotonic_buffer_resource resource_{space_.data(), space_.size()};
};

/// The arguments of a call in the order of IDispatch: the last one first, named ones before all.
class DispatchArguments {
  public:
    DispatchArguments(const Invocation& call, std::span<const DISPID> namedNumbers, CallMemory& memory)
        : variants_(call.arguments.size() + call.named.size(), memory.Resource()), named_(memory.Resource()) {
        named_.reserve(namedNumbers.size() + 1);
        if (call.access != Access::Call) named_.push_back(DISPID_PROPERTYPUT);
        named_.insert(named_.end(), namedNumbers.begin(), namedNumbers.end());
        for (VARIANT& variant : variants_) VariantInit(&variant);
        try {
            auto place = variants_.begin();
            for (const NamedArgument& argument : call.named) ToVariant(argument.value, *place++);
            for (size_t i = call.arguments.size(); i > 0; --i) ToVariant(call.arguments[i - 1], *place++);
        } catch (...) {
            Clear();
            throw;
        }
    }
    ~DispatchArguments() { Clear(); }
    DispatchArguments(const DispatchArguments&) = delete;
    DispatchArguments& operator=(const DispatchArguments&) = delete;

    DISPPARAMS Parameters() {
        return {variants_.data(), named_.data(), static_cast<UINT>(variants_.size()), static_cast<UINT>(named_.size())};
    }

  private:
    void Clear() {
        for (VARIANT& variant : variants_) VariantClear(&variant);
    }

    std::pmr::vector<VARIANT> variants_;
    std::pmr::vector<DISPID> named_;
};

WORD Flags(Access access) {
    switch (access) {
        case Access::Put:
            return DISPATCH_PROPERTYPUT;
        case Access::PutRef:
            return DISPATCH_PROPERTYPUTREF;
        case Access::Call:
            break;
    }
    return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
}

/// Objects of some script engines answer to IDispatchEx only.
HRESULT InvokeExtended(IDispatch* dispatch, DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                       EXCEPINFO& info) {
    ComPtr<IDispatchEx> extended;
    if (FAILED(dispatch->QueryInterface(IID_PPV_ARGS(extended.GetAddressOf())))) return E_NOTIMPL;
    return extended->InvokeEx(member, LOCALE_USER_DEFAULT, flags, &parameters, result, &info, nullptr);
}

Value InvokeWith(IDispatch* dispatch, DISPID member, WORD flags, DISPPARAMS parameters) {
    Variant result;
    EXCEPINFO info{};
    UINT badArgument = 0;
    const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    VARIANT* const out = put ? nullptr : result.Out();
    HRESULT outcome =
        dispatch->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, out, &info, &badArgument);
    if (outcome == E_NOTIMPL) outcome = InvokeExtended(dispatch, member, flags, parameters, out, info);
    if (FAILED(outcome)) throw FromExcepInfo(outcome, info);
    return result.ToValue();
}

/// Whether a property refused to be put in this way, rather than this value.
bool RefusesWay(const Error& error) {
    return error.Number() == errors::memberNotFound || error.Number() == noSuchMemberOfHost ||
           error.Number() == static_cast<uint32_t>(E_NOTIMPL) ||
           error.Number() == static_cast<uint32_t>(DISP_E_TYPEMISMATCH);
}

class ComEnumerator : public Enumerator {
  public:
    explicit ComEnumerator(ComPtr<IEnumVARIANT> items) : items_(std::move(items)) {}

    bool Next(Value& item) override {
        Variant next;
        const HRESULT result = items_->Next(1, next.Out(), nullptr);
        Check(result);
        if (result != S_OK) return false;
        item = next.ToValue();
        return true;
    }

  private:
    ComPtr<IEnumVARIANT> items_;
};

/// The answers of an object that is no collection.
bool OffersNoEnumeration(uint32_t number) {
    return number == errors::memberNotFound || number == errors::unknownName || number == errors::badParamCount ||
           number == noSuchMemberOfHost || number == static_cast<uint32_t>(E_NOTIMPL);
}

}  // namespace

ComObject::ComObject(IUnknown* pointer) : pointer_(pointer) {
    pointer_.As(&dispatch_);
}

ComObject::~ComObject() = default;

MemberNumbers& ComObject::Numbers() const {
    if (!numbers_) numbers_ = MemberNumbers::For(dispatch_.Get());
    return *numbers_;
}

Value ComObject::Invoke(const Invocation& call) {
    if (!dispatch_) throw VbError(errors::noSuchMember);
    const ObjectRef alive = shared_from_this();  // the call may release the last other reference
    CallMemory memory;
    std::pmr::vector<std::string_view> names(memory.Resource());
    for (const NamedArgument& argument : call.named) names.push_back(argument.name);
    std::pmr::vector<DISPID> numbers(1 + names.size(), DISPID_VALUE, memory.Resource());
    if (!call.member.empty()) Check(Numbers().Find(dispatch_.Get(), call.member, names, numbers));

    DispatchArguments arguments(call, std::span(numbers).subspan(1), memory);
    try {
        return InvokeWith(dispatch_.Get(), numbers[0], Flags(call.access), arguments.Parameters());
    } catch (const Error& error) {
        const bool object = !call.arguments.empty() && call.arguments.back().IsObject();
        if (call.access == Access::Call || !object || !RefusesWay(error)) throw;
        const Access other = call.access == Access::Put ? Access::PutRef : Access::Put;
        try {
            return InvokeWith(dispatch_.Get(), numbers[0], Flags(other), arguments.Parameters());
        } catch (const Error& second) {
            if (!RefusesWay(second)) throw;
        }
        throw;  // refused both ways: the first answer is to what was asked
    }
}

std::unique_ptr<Enumerator> ComObject::NewEnum() {
    if (!dispatch_) return nullptr;
    Variant result;
    EXCEPINFO info{};
    DISPPARAMS none{};
    const HRESULT outcome =
        dispatch_->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none,
                          result.Out(), &info, nullptr);
    if (FAILED(outcome)) {
        const Error error = FromExcepInfo(outcome, info);
        if (OffersNoEnumeration(error.Number())) return nullptr;
        throw error;
    }
    const VARIANT& variant = result.Raw();
    ComPtr<IEnumVARIANT> enumeration;
    const bool object = V_VT(&variant) == VT_UNKNOWN || V_VT(&variant) == VT_DISPATCH;
    if (!object || V_UNKNOWN(&variant) == nullptr ||
        FAILED(V_UNKNOWN(&variant)->QueryInterface(IID_PPV_ARGS(enumeration.GetAddressOf()))))
        return nullptr;
    return std::make_unique<ComEnumerator>(std::move(enumeration));
}

bool ComObject::HasMember(std::string_view member) const {
    if (!dispatch_) return false;
    if (member.empty()) return true;  // only its use shows whether there is a default member
    DISPID number = DISPID_UNKNOWN;
    return SUCCEEDED(Numbers().Find(dispatch_.Get(), member, {}, {&number, 1}));
}

}  // namespace automation
