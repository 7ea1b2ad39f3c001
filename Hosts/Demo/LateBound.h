// LateBound: calls on automation objects by member name, the way a script host makes them.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "ComObject.h"

namespace demo {

/// Copies a value with what it owns; `target` is freed first.
HRESULT CopyValue(VARIANT& target, const VARIANT& source);
/// The same, but a by-reference value is followed.
HRESULT CopyFollowed(VARIANT& target, const VARIANT& source);
/// The value as another type; `target` is left as it was when that fails.
HRESULT ConvertValue(VARIANT& target, const VARIANT& source, VARTYPE type);

/// A VARIANT that frees what it holds.
class Variant : public VARIANT {
  public:
    Variant() { VariantInit(this); }
    Variant(bool value) : Variant() { vt = VT_BOOL, boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
    Variant(long value) : Variant() { vt = VT_I4, lVal = value; }
    Variant(int value) : Variant(static_cast<long>(value)) {}
    Variant(std::wstring_view value);
    Variant(const std::wstring& value) : Variant(std::wstring_view(value)) {}
    Variant(const wchar_t* value) : Variant(std::wstring_view(value)) {}
    /// Nothing when `value` is null.
    Variant(IDispatch* value);
    Variant(const VARIANT& other) : Variant() { CopyValue(*this, other); }
    Variant(const Variant& other) : Variant(static_cast<const VARIANT&>(other)) {}
    Variant& operator=(const Variant& other) {
        CopyValue(*this, other);
        return *this;
    }
    ~Variant() { VariantClear(this); }

    /// An optional argument that is left out.
    static Variant Missing();

    // The value as another kind; the neutral value of that kind when it cannot be converted.
    bool AsBool() const;
    long AsLong() const;
    std::wstring AsText() const;
    /// Null for Nothing and for anything that is no object.
    ComPtr<IDispatch> AsObject() const;
};

/// A member that an object refused: its name, the error number and, where the object gave one, the description.
struct AutomationFailure {
    std::wstring member;
    HRESULT error;
    std::wstring description;

    std::wstring Message() const;
};

// Each throws AutomationFailure when the object is missing, does not know the member or refuses the call.
Variant Get(IDispatch* object, const wchar_t* member, std::initializer_list<Variant> arguments = {});
Variant Call(IDispatch* object, const wchar_t* member, std::initializer_list<Variant> arguments = {});
void Put(IDispatch* object, const wchar_t* member, const Variant& value);
/// Sets an object by reference.
void PutRef(IDispatch* object, const wchar_t* member, IDispatch* value);

/// A new object of a registered class. Throws AutomationFailure.
ComPtr<IDispatch> CreateByProgId(const wchar_t* progId);

}  // namespace demo
