// LateBound: IDispatch::Invoke with its bookkeeping.
#include "LateBound.h"

#include <algorithm>
#include <cwchar>
#include <vector>

namespace demo {
namespace {

std::wstring SystemText(HRESULT error) {
    wchar_t* text = nullptr;
    const DWORD size =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(error), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring message(text, size);
    LocalFree(text);
    while (!message.empty() && iswspace(message.back())) message.pop_back();
    return message;
}

/// What an object says about a failed call; frees its strings.
class ExceptionInfo : public EXCEPINFO {
  public:
    ExceptionInfo() : EXCEPINFO{} {}
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
    void Complete() {
        if (pfnDeferredFillIn != nullptr) pfnDeferredFillIn(this);
    }
    /// Hosts of Visual Basic's time give a 16-bit number instead of an HRESULT.
    HRESULT Number() const { return scode != 0 ? scode : wCode; }
};

Variant Invoke(IDispatch* object, const wchar_t* member, WORD kind, std::initializer_list<Variant> arguments) {
    if (object == nullptr) throw AutomationFailure{member, E_POINTER, L"There is no object."};
    std::wstring name(member);
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    HRESULT result = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(result)) throw AutomationFailure{member, result, SystemText(result)};

    std::vector<VARIANT> reversed(arguments.begin(), arguments.end());  // shallow: `arguments` stays the owner
    std::reverse(reversed.begin(), reversed.end());
    DISPID putId = DISPID_PROPERTYPUT;
    const bool isPut = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters = {reversed.data(), isPut ? &putId : nullptr, static_cast<UINT>(reversed.size()),
                             isPut ? 1u : 0u};
    Variant value;
    ExceptionInfo exception;
    UINT badArgument = 0;
    result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, isPut ? nullptr : &value, &exception,
                            &badArgument);
    if (result == DISP_E_EXCEPTION) {
        exception.Complete();
        const HRESULT number = exception.Number();
        throw AutomationFailure{member, number,
                                exception.bstrDescription != nullptr ? exception.bstrDescription : SystemText(number)};
    }
    if (FAILED(result)) throw AutomationFailure{member, result, SystemText(result)};
    return value;
}

Variant Converted(const VARIANT& value, VARTYPE type) {
    Variant converted;
    if (FAILED(ConvertValue(converted, value, type))) return {};
    return converted;
}

}  // namespace

HRESULT CopyValue(VARIANT& target, const VARIANT& source) {
    return VariantCopy(&target, const_cast<VARIANT*>(&source));
}

HRESULT CopyFollowed(VARIANT& target, const VARIANT& source) {
    return VariantCopyInd(&target, const_cast<VARIANT*>(&source));
}

HRESULT ConvertValue(VARIANT& target, const VARIANT& source, VARTYPE type) {
    return VariantChangeType(&target, const_cast<VARIANT*>(&source), 0, type);
}

Variant::Variant(std::wstring_view value) : Variant() {
    bstrVal = SysAllocStringLen(value.data(), static_cast<UINT>(value.size()));
    vt = VT_BSTR;
}

Variant::Variant(IDispatch* value) : Variant() {
    vt = VT_DISPATCH;
    pdispVal = value;
    if (value != nullptr) value->AddRef();
}

Variant Variant::Missing() {
    Variant missing;
    missing.vt = VT_ERROR;
    missing.scode = DISP_E_PARAMNOTFOUND;
    return missing;
}

bool Variant::AsBool() const {
    const Variant converted = Converted(*this, VT_BOOL);
    return converted.vt == VT_BOOL && converted.boolVal != VARIANT_FALSE;
}

long Variant::AsLong() const {
    const Variant converted = Converted(*this, VT_I4);
    return converted.vt == VT_I4 ? converted.lVal : 0;
}

std::wstring Variant::AsText() const {
    const Variant converted = Converted(*this, VT_BSTR);
    if (converted.vt != VT_BSTR || converted.bstrVal == nullptr) return {};
    return {converted.bstrVal, SysStringLen(converted.bstrVal)};
}

ComPtr<IDispatch> Variant::AsObject() const {
    ComPtr<IDispatch> object;
    if (vt == VT_DISPATCH) {
        object = pdispVal;
    } else if (vt == VT_UNKNOWN && punkVal != nullptr) {
        punkVal->QueryInterface(IID_PPV_ARGS(&object));
    }
    return object;
}

std::wstring AutomationFailure::Message() const {
    wchar_t number[16];
    swprintf(number, std::size(number), L"0x%08lX", static_cast<unsigned long>(error));
    return member + L": [" + number + L"]" + (description.empty() ? L"" : L" ") + description;
}

Variant Get(IDispatch* object, const wchar_t* member, std::initializer_list<Variant> arguments) {
    return Invoke(object, member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments);
}

Variant Call(IDispatch* object, const wchar_t* member, std::initializer_list<Variant> arguments) {
    return Invoke(object, member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

void Put(IDispatch* object, const wchar_t* member, const Variant& value) {
    Invoke(object, member, DISPATCH_PROPERTYPUT, {value});
}

void PutRef(IDispatch* object, const wchar_t* member, IDispatch* value) {
    Invoke(object, member, DISPATCH_PROPERTYPUTREF, {Variant(value)});
}

ComPtr<IDispatch> CreateByProgId(const wchar_t* progId) {
    CLSID clsid;
    HRESULT result = CLSIDFromProgID(progId, &clsid);
    ComPtr<IDispatch> object;
    if (SUCCEEDED(result)) {
        result = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
    }
    if (FAILED(result)) throw AutomationFailure{progId, result, L"The class cannot be created. Is its DLL registered?"};
    return object;
}

}  // namespace demo
