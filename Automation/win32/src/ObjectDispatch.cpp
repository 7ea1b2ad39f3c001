// ObjectDispatch: member numbers for names, and one Invoke for all objects.
#include "automation_win32/ObjectDispatch.h"

#include <algorithm>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "automation/Text.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Module.h"
#include "automation_win32/Variant.h"

namespace automation {

namespace {

/// Numbers for member and parameter names, the same in the whole module, from 1.
class NameTable {
  public:
    DISPID NumberOf(std::string_view name) {
        std::string folded = FoldAscii(name);
        const std::lock_guard lock(mutex_);
        if (const auto known = numbers_.find(folded); known != numbers_.end()) return known->second;
        // Should there be no memory for the second step, the number of the first is never used again.
        names_.emplace_back(name);
        const auto number = static_cast<DISPID>(names_.size());
        numbers_.emplace(std::move(folded), number);
        return number;
    }

    /// Throws Error 0x80020003 for a number that was never given.
    std::string_view NameOf(DISPID number) {
        const std::lock_guard lock(mutex_);
        if (number < 1 || static_cast<size_t>(number) > names_.size()) throw FromHresult(DISP_E_MEMBERNOTFOUND);
        return names_[static_cast<size_t>(number) - 1];
    }

  private:
    std::mutex mutex_;
    std::map<std::string, DISPID> numbers_;
    std::deque<std::string> names_;  // as first spelt; they stay in place
};

NameTable& TheNames() {
    static auto* const names = new NameTable;
    return *names;
}

struct Call {
    Invocation invocation;
    std::vector<Value> arguments;
    std::vector<NamedArgument> named;
};

Access AccessOf(WORD flags, const DISPPARAMS& parameters) {
    const bool put = (flags & DISPATCH_PROPERTYPUT) != 0;
    const bool putRef = (flags & DISPATCH_PROPERTYPUTREF) != 0;
    if (!put && !putRef) return Access::Call;
    if (put != putRef) return put ? Access::Put : Access::PutRef;
    const VARTYPE type = parameters.cArgs > 0 ? V_VT(&parameters.rgvarg[0]) & VT_TYPEMASK : VT_EMPTY;
    return type == VT_DISPATCH || type == VT_UNKNOWN ? Access::PutRef : Access::Put;
}

/// Named arguments come first, and the new value of a property is among them; the others run backwards.
void ReadArguments(const DISPPARAMS& parameters, Call& call) {
    const UINT namedCount = std::min(parameters.cNamedArgs, parameters.cArgs);
    for (UINT i = parameters.cArgs; i > namedCount; --i)
        call.arguments.push_back(FromVariant(parameters.rgvarg[i - 1]));
    for (UINT i = 0; i < namedCount; ++i) {
        Value value = FromVariant(parameters.rgvarg[i]);
        if (parameters.rgdispidNamedArgs[i] == DISPID_PROPERTYPUT)
            call.arguments.push_back(std::move(value));
        else
            call.named.push_back({TheNames().NameOf(parameters.rgdispidNamedArgs[i]), std::move(value)});
    }
}

/// `stores(1)` on a property that takes no arguments means the default member of what it holds.
Value InvokeThroughDefault(Object& object, const Invocation& call) {
    const Value held = object.Invoke({call.member, Access::Call, {}, {}});
    const ObjectRef inner = held.IsObject() ? held.ToObject() : nullptr;
    if (!inner) throw FromHresult(DISP_E_BADPARAMCOUNT);
    return inner->Invoke({"", Access::Call, call.arguments, {}});
}

Value InvokeOn(Object& object, const Invocation& call, WORD flags) {
    try {
        return object.Invoke(call);
    } catch (const Error& error) {
        const bool indexed = (flags & DISPATCH_PROPERTYGET) != 0 && !call.arguments.empty() && call.named.empty();
        if (!indexed || error.Number() != errors::badParamCount) throw;
    }
    return InvokeThroughDefault(object, call);
}

class EnumVariant final : public ComBase<IEnumVARIANT> {
  public:
    EnumVariant(ObjectRef object, std::unique_ptr<Enumerator> items)
        : object_(std::move(object)), items_(std::move(items)) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* variants, ULONG* fetched) override {
        if (variants == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
        ULONG done = 0;
        for (ULONG i = 0; i < count; ++i) VariantInit(&variants[i]);
        const HRESULT result = ComBoundary([&] {
            for (Value item; done < count && Step(item); ++done) ToVariant(item, variants[done]);
            return done == count ? S_OK : S_FALSE;
        });
        if (FAILED(result))
            for (; done > 0; --done) VariantClear(&variants[done - 1]);
        if (fetched != nullptr) *fetched = done;
        return result;
    }

    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        return ComBoundary([&] {
            Value item;
            for (ULONG i = 0; i < count; ++i)
                if (!Step(item)) return S_FALSE;
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE Reset() override {
        return ComBoundary([&] {
            items_ = object_->NewEnum();
            position_ = 0;
            return items_ ? S_OK : E_FAIL;
        });
    }

    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** clone) override {
        if (clone == nullptr) return E_POINTER;
        *clone = nullptr;
        return ComBoundary([&] {
            auto copy = MakeCom<EnumVariant>(object_, object_->NewEnum());
            const HRESULT result = copy->items_ ? copy->Skip(position_) : E_FAIL;
            if (SUCCEEDED(result)) *clone = copy.Detach();
            return FAILED(result) ? result : S_OK;
        });
    }

  private:
    bool Step(Value& item) {
        // A step may run anything: a Reset that replaces the items, or the last Release of this.
        const ComPtr<EnumVariant> alive(this);
        const std::shared_ptr<Enumerator> items = items_;
        if (!items || !items->Next(item)) return false;
        ++position_;
        return true;
    }

    ObjectRef object_;
    std::shared_ptr<Enumerator> items_;
    ULONG position_ = 0;
};

}  // namespace

ObjectDispatch::ObjectDispatch(ObjectRef object) : object_(std::move(object)), entry_(object_.get(), this) {}

HRESULT ObjectDispatch::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT ObjectDispatch::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info != nullptr) *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT ObjectDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) {
    return NumbersOfNames(*object_, names, count, numbers);
}

HRESULT ObjectDispatch::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* info, UINT*) {
    // The call may release the last reference to this wrapper.
    const ObjectRef object = object_;
    return InvokeObject(object, member, flags, parameters, result, info);
}

HRESULT ObjectDispatch::GetHeldObject(const void* module, ObjectRef* object) noexcept {
    if (module != ThisModule()) return E_NOINTERFACE;
    *object = object_;
    return S_OK;
}

DISPID NumberOfName(std::string_view name) {
    return TheNames().NumberOf(name);
}

HRESULT NumbersOfNames(const Object& object, LPOLESTR* names, UINT count, DISPID* numbers) noexcept {
    if (names == nullptr || numbers == nullptr || count == 0) return E_INVALIDARG;
    return ComBoundary([&] {
        const std::string member = FromWide(names[0]);
        const bool known = SameMember(member, "_NewEnum") || object.HasMember(member);
        numbers[0] = SameMember(member, "_NewEnum") ? DISPID_NEWENUM
                     : known                        ? TheNames().NumberOf(member)
                                                    : DISPID_UNKNOWN;
        // Only a call shows whether the member knows these parameters.
        for (UINT i = 1; i < count; ++i) numbers[i] = known ? TheNames().NumberOf(FromWide(names[i])) : DISPID_UNKNOWN;
        return known ? S_OK : DISP_E_UNKNOWNNAME;
    });
}

HRESULT InvokeObject(const ObjectRef& object, DISPID member, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                     EXCEPINFO* info) noexcept {
    if (result != nullptr) VariantInit(result);
    if (parameters == nullptr) return E_INVALIDARG;
    return ComBoundary(info, [&] {
        if (member == DISPID_NEWENUM) {
            const ComPtr<IEnumVARIANT> enumeration = MakeEnumVariant(object);
            if (!enumeration) return DISP_E_MEMBERNOTFOUND;
            if (result == nullptr) return S_OK;
            V_VT(result) = VT_UNKNOWN;
            V_UNKNOWN(result) = ComPtr<IEnumVARIANT>(enumeration).Detach();
            return S_OK;
        }
        Call call;
        ReadArguments(*parameters, call);
        call.invocation = {member == DISPID_VALUE ? std::string_view() : TheNames().NameOf(member),
                           AccessOf(flags, *parameters), call.arguments, call.named};
        const Value value = InvokeOn(Deref(object), call.invocation, flags);
        if (result != nullptr) ToVariant(value, *result);
        return S_OK;
    });
}

ComPtr<IEnumVARIANT> MakeEnumVariant(const ObjectRef& object) {
    auto items = Deref(object).NewEnum();
    if (!items) return nullptr;
    return MakeCom<EnumVariant>(object, std::move(items));
}

}  // namespace automation
