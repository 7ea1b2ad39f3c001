// Variant: one reading for a value in a variant, behind a reference and in an array, since all are "typed data".
#include "automation_win32/Variant.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>
#include <type_traits>

#include "automation/Error.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"

namespace automation {

namespace {

/// Variants may refer to variants and arrays hold arrays; a ring of them ends here.
constexpr int deepest = 32;

Value FromTyped(VARTYPE type, const void* data, int depth);

template <class T>
const T& As(const void* data) {
    return *static_cast<const T*>(data);
}

/// The smallest of Long, LongLong and Double that holds an unsigned number.
Value FromUnsigned(uint64_t number) {
    if (number <= static_cast<uint64_t>(std::numeric_limits<int32_t>::max())) return static_cast<int32_t>(number);
    if (number <= static_cast<uint64_t>(std::numeric_limits<int64_t>::max()))
        return Value::LongLong(static_cast<int64_t>(number));
    return static_cast<double>(number);
}

Value FromDecimal(DECIMAL decimal) {  // a copy, since oleaut32 asks for one that it could change
    double number = 0;
    Check(VarR8FromDec(&decimal, &number));
    return number;
}

Value FromScode(SCODE code) {
    if (code == DISP_E_PARAMNOTFOUND) return Missing();
    return ErrorValue{static_cast<uint32_t>(code)};
}

/// Keeps the elements of an array in place while they are read.
class ArrayAccess {
  public:
    explicit ArrayAccess(SAFEARRAY* array) : array_(array) { Check(SafeArrayAccessData(array, &data_)); }
    ~ArrayAccess() { SafeArrayUnaccessData(array_); }
    ArrayAccess(const ArrayAccess&) = delete;
    ArrayAccess& operator=(const ArrayAccess&) = delete;
    uint8_t* Bytes() const { return static_cast<uint8_t*>(data_); }

  private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

/// The size of an element of the type; 0 for a type that is no element's.
size_t SizeOfElement(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_BOOL:
        case VT_I2:
        case VT_UI2:
            return 2;
        case VT_I4:
        case VT_INT:
        case VT_UI4:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        case VT_DECIMAL:
            return sizeof(DECIMAL);
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        case VT_VARIANT:
            return sizeof(VARIANT);
        default:
            return 0;
    }
}

/// Objects, texts and variants are followed, so an array must not hold numbers in their place.
VARTYPE KindOfPointer(VARTYPE type) {
    if (type == VT_DISPATCH) return VT_UNKNOWN;
    return type == VT_BSTR || type == VT_UNKNOWN || type == VT_VARIANT ? type : VARTYPE{VT_EMPTY};
}

/// Whether the array holds what the variant says. A host may put the two together wrongly.
bool HoldsElementsOf(SAFEARRAY* array, VARTYPE type) {
    if (SafeArrayGetDim(array) != 1 || array->cbElements != SizeOfElement(type)) return false;
    VARTYPE own = VT_EMPTY;
    return FAILED(SafeArrayGetVartype(array, &own)) || KindOfPointer(own) == KindOfPointer(type);
}

Value FromSafeArray(VARTYPE type, SAFEARRAY* array, int depth) {
    if (array == nullptr) return type == VT_UI1 ? Value(Bytes{}) : Value(Array{});
    if (!HoldsElementsOf(array, type)) throw VbError(errors::typeMismatch);
    const auto count = static_cast<size_t>(array->rgsabound[0].cElements);
    const auto lowerBound = static_cast<int32_t>(array->rgsabound[0].lLbound);
    const size_t size = array->cbElements;
    const ArrayAccess access(array);
    if (type == VT_UI1) return Bytes{lowerBound, {access.Bytes(), access.Bytes() + count}};
    Array result{lowerBound, {}};
    result.items.reserve(count);
    for (size_t i = 0; i < count; ++i) result.items.push_back(FromTyped(type, access.Bytes() + i * size, depth));
    return result;
}

Value FromReference(VARTYPE type, const void* target, int depth) {
    if (target == nullptr) throw VbError(errors::typeMismatch);
    return FromTyped(type, target, depth);
}

Value FromVariantAt(const VARIANT& variant, int depth) {
    const VARTYPE type = V_VT(&variant);
    if (type & VT_BYREF) return FromReference(type ^ VT_BYREF, V_BYREF(&variant), depth);
    if (type == VT_DECIMAL) return FromDecimal(V_DECIMAL(&variant));  // lies over the whole variant
    return FromTyped(type, &V_BYREF(&variant), depth);
}

Value FromTyped(VARTYPE type, const void* data, int depth) {
    if (depth > deepest) throw VbError(errors::typeMismatch);
    if (type & VT_ARRAY) return FromSafeArray(type & VT_TYPEMASK, As<SAFEARRAY*>(data), depth + 1);
    switch (type) {
        case VT_EMPTY:
            return {};
        case VT_NULL:
            return Null();
        case VT_BOOL:
            return As<VARIANT_BOOL>(data) != VARIANT_FALSE;
        case VT_I1:
            return Value::Integer(As<int8_t>(data));
        case VT_UI1:
            return Value::Byte(As<uint8_t>(data));
        case VT_I2:
            return Value::Integer(As<int16_t>(data));
        case VT_UI2:
            return static_cast<int32_t>(As<uint16_t>(data));
        case VT_I4:
        case VT_INT:
            return As<int32_t>(data);
        case VT_UI4:
        case VT_UINT:
            return FromUnsigned(As<uint32_t>(data));
        case VT_I8:
            return Value::LongLong(As<int64_t>(data));
        case VT_UI8:
            return FromUnsigned(As<uint64_t>(data));
        case VT_R4:
            return Value::Single(As<float>(data));
        case VT_R8:
            return As<double>(data);
        case VT_CY:
            return Currency{As<CY>(data).int64};
        case VT_DATE:
            return Date{As<double>(data)};
        case VT_DECIMAL:
            return FromDecimal(As<DECIMAL>(data));
        case VT_ERROR:
            return FromScode(As<SCODE>(data));
        case VT_BSTR:
            return FromBstr(As<BSTR>(data));
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return FromCom(As<IUnknown*>(data));
        case VT_VARIANT:
            return FromVariantAt(As<VARIANT>(data), depth + 1);
        default:
            throw VbError(errors::typeMismatch);
    }
}

SAFEARRAY* NewSafeArray(VARTYPE type, int32_t lowerBound, size_t count) {
    SAFEARRAY* array = SafeArrayCreateVector(type, lowerBound, static_cast<ULONG>(count));
    if (array == nullptr) throw std::bad_alloc();
    return array;
}

void PutBytes(const Bytes& bytes, VARIANT& variant) {
    SAFEARRAY* array = NewSafeArray(VT_UI1, bytes.lowerBound, bytes.items.size());
    V_VT(&variant) = VT_ARRAY | VT_UI1;
    V_ARRAY(&variant) = array;
    const ArrayAccess access(array);
    std::copy(bytes.items.begin(), bytes.items.end(), access.Bytes());
}

void PutArray(const Array& values, VARIANT& variant) {
    SAFEARRAY* array = NewSafeArray(VT_VARIANT, values.lowerBound, values.items.size());
    V_VT(&variant) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&variant) = array;
    const ArrayAccess access(array);
    auto* element = reinterpret_cast<VARIANT*>(access.Bytes());
    for (const Value& item : values.items) ToVariant(item, *element++);
}

void PutObject(const ObjectRef& object, VARIANT& variant) {
    ComPtr<IDispatch> dispatch = ToDispatch(object);
    if (dispatch || !object) {
        V_VT(&variant) = VT_DISPATCH;
        V_DISPATCH(&variant) = dispatch.Detach();
    } else {
        V_VT(&variant) = VT_UNKNOWN;
        V_UNKNOWN(&variant) = ToCom(object).Detach();
    }
}

/// Writes one alternative of a value into a variant that holds nothing.
struct Writer {
    VARIANT& v;

    void operator()(std::monostate) const {}
    void operator()(Null) const { V_VT(&v) = VT_NULL; }
    void operator()(Missing) const { operator()(ErrorValue{static_cast<uint32_t>(DISP_E_PARAMNOTFOUND)}); }
    void operator()(bool value) const {
        V_VT(&v) = VT_BOOL;
        V_BOOL(&v) = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(uint8_t value) const {
        V_VT(&v) = VT_UI1;
        V_UI1(&v) = value;
    }
    void operator()(int16_t value) const {
        V_VT(&v) = VT_I2;
        V_I2(&v) = value;
    }
    void operator()(int32_t value) const {
        V_VT(&v) = VT_I4;
        V_I4(&v) = value;
    }
    void operator()(int64_t value) const {
        V_VT(&v) = VT_I8;
        V_I8(&v) = value;
    }
    void operator()(float value) const {
        V_VT(&v) = VT_R4;
        V_R4(&v) = value;
    }
    void operator()(double value) const {
        V_VT(&v) = VT_R8;
        V_R8(&v) = value;
    }
    void operator()(Currency value) const {
        V_VT(&v) = VT_CY;
        V_CY(&v).int64 = value.tenThousandths;
    }
    void operator()(Date value) const {
        V_VT(&v) = VT_DATE;
        V_DATE(&v) = value.days;
    }
    void operator()(ErrorValue value) const {
        V_VT(&v) = VT_ERROR;
        V_ERROR(&v) = static_cast<SCODE>(value.code);
    }
    void operator()(const std::string& text) const {
        V_BSTR(&v) = ToBstr(text);
        V_VT(&v) = VT_BSTR;
    }
    void operator()(const ObjectRef& object) const { PutObject(object, v); }
    void operator()(const std::shared_ptr<const Array>& array) const { PutArray(*array, v); }
    void operator()(const std::shared_ptr<const Bytes>& bytes) const { PutBytes(*bytes, v); }
};

}  // namespace

Value FromVariant(const VARIANT& variant) {
    return FromVariantAt(variant, 0);
}

void ToVariant(const Value& value, VARIANT& variant) {
    VariantInit(&variant);
    try {
        std::visit(Writer{variant}, value.Raw());
    } catch (...) {
        VariantClear(&variant);  // an array that is filled half way
        throw;
    }
}

}  // namespace automation
