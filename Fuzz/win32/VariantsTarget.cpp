// VariantsTarget: fuzzes the conversion of VARIANTs. The input says how a variant is made: its type, flags, and what it
// holds; what it refers to is made likewise. Only sound memory is made, but nothing else needs to be sound: types that
// do not fit an array's elements, references to nowhere, rings.
#include <windows.h>

#include <oleauto.h>

#include <array>
#include <cmath>
#include <deque>
#include <iterator>
#include <memory>

#include "FuzzInput.h"
#include "automation/Error.h"
#include "automation/Object.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Variant.h"

namespace {

using automation::Value;
using fuzz::Must;

class Nothing final : public automation::Object {
  public:
    Value Invoke(const automation::Invocation&) override {
        throw automation::Error(automation::errors::unknownName, "there are no members");
    }
    bool HasMember(std::string_view) const override { return false; }
};

/// Owns all that its variants hold and refer to. The variants themselves are never cleared.
class VariantMaker {
  public:
    explicit VariantMaker(fuzz::FuzzInput& input) : input_(input) {}
    ~VariantMaker() {
        for (SAFEARRAY* array : arrays_) SafeArrayDestroy(array);
        for (BSTR text : texts_) SysFreeString(text);
    }
    VariantMaker(const VariantMaker&) = delete;
    VariantMaker& operator=(const VariantMaker&) = delete;

    VARIANT Make(int depth) {
        static constexpr VARTYPE flags[] = {0, VT_BYREF, VT_ARRAY, VT_ARRAY | VT_BYREF, 0, VT_VECTOR};
        const VARTYPE type = TakeType();
        const VARTYPE flag = flags[input_.TakeByte() % std::size(flags)];
        VARIANT variant;
        VariantInit(&variant);
        if (type == VT_DECIMAL && flag == 0) {
            V_DECIMAL(&variant) = TakeDecimal();
        } else if (flag & VT_BYREF) {
            // A few refer to nowhere.
            V_BYREF(&variant) = input_.TakeByte() % 8 == 7 ? nullptr : Room(type, flag & VT_ARRAY, depth);
        } else {
            Fill(&V_BYREF(&variant), type, flag & VT_ARRAY, depth);
        }
        V_VT(&variant) = type | flag;
        return variant;
    }

  private:
    static constexpr int deepest = 5;

    union Element {
        std::array<uint8_t, 24> bytes;
        VARIANT variant;
        void* pointer;
    };

    VARTYPE TakeType() {
        static constexpr VARTYPE types[] = {
            VT_EMPTY, VT_NULL, VT_BOOL,     VT_I1,      VT_UI1,     VT_I2,   VT_UI2,    VT_I4,      VT_UI4,
            VT_INT,   VT_UINT, VT_I8,       VT_UI8,     VT_R4,      VT_R8,   VT_CY,     VT_DATE,    VT_DECIMAL,
            VT_ERROR, VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_VARIANT, VT_VOID, VT_LPWSTR, VT_FILETIME};
        return types[input_.TakeByte() % std::size(types)];
    }

    DECIMAL TakeDecimal() {
        DECIMAL decimal{};
        decimal.Lo64 = input_.Take<uint64_t>();
        decimal.Hi32 = input_.Take<uint32_t>();
        decimal.scale = input_.TakeByte();
        decimal.sign = input_.TakeByte();
        return decimal;
    }

    void* Room(VARTYPE type, bool isArray, int depth) {
        // An element that was made before may hold the one that is being made.
        const uint8_t choice = input_.TakeByte();
        if (type == VT_VARIANT && !isArray && choice % 4 == 3 && !variants_.empty())
            return &variants_[choice / 4 % variants_.size()];
        if (type == VT_VARIANT && !isArray) {
            VARIANT& variant = variants_.emplace_back();
            VariantInit(&variant);
            if (depth < deepest) variant = Make(depth + 1);
            return &variant;
        }
        Element& element = elements_.emplace_back();
        Fill(&element, type, isArray, depth);
        return &element;
    }

    /// Writes what a variant of the type holds; at most a DECIMAL's size.
    void Fill(void* room, VARTYPE type, bool isArray, int depth) {
        Element element{};
        size_t size = sizeof(uint64_t);
        if (isArray) {
            element.pointer = MakeArray(type, depth);
        } else if (type == VT_BSTR) {
            element.pointer = MakeText();
        } else if (type == VT_DISPATCH || type == VT_UNKNOWN) {
            element.pointer = input_.TakeByte() % 2 == 0 ? nullptr : object_.Get();
        } else if (type == VT_DECIMAL) {
            const DECIMAL decimal = TakeDecimal();
            size = sizeof decimal;
            std::memcpy(&element, &decimal, size);
        } else if (type != VT_VARIANT) {
            const auto number = input_.Take<uint64_t>();
            std::memcpy(&element, &number, sizeof number);
        }
        std::memcpy(room, &element, size);
    }

    BSTR MakeText() {
        const uint8_t size = input_.TakeByte();
        if (size == 0) return nullptr;
        const std::string_view bytes = input_.TakeText(size % 32u);
        BSTR text = SysAllocStringByteLen(bytes.data(), static_cast<UINT>(bytes.size()));
        if (text != nullptr) texts_.push_back(text);
        return text;
    }

    /// Its elements are of another type now and then. They belong to us and not to the array.
    SAFEARRAY* MakeArray(VARTYPE type, int depth) {
        const uint8_t choice = input_.TakeByte();
        if (choice % 16 == 15) return nullptr;
        if (choice % 16 == 14) type = TakeType();
        SAFEARRAYBOUND bounds[2] = {{input_.TakeByte() % 9u, input_.Take<int32_t>()}, {1, 0}};
        SAFEARRAY* array = SafeArrayCreate(type, choice % 16 == 13 ? 2 : 1, bounds);
        if (array == nullptr) return nullptr;
        arrays_.push_back(array);
        array->fFeatures &= static_cast<USHORT>(~(FADF_BSTR | FADF_UNKNOWN | FADF_DISPATCH | FADF_VARIANT));
        if (depth < deepest) FillArray(array, type, depth);
        return array;
    }

    void FillArray(SAFEARRAY* array, VARTYPE type, int depth) {
        void* data = nullptr;
        if (FAILED(SafeArrayAccessData(array, &data))) return;
        auto* at = static_cast<uint8_t*>(data);
        for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i, at += array->cbElements) {
            Element element{};
            if (type == VT_VARIANT)
                element.variant = Make(depth + 1);
            else
                Fill(&element, type, false, depth);
            std::memcpy(at, &element, array->cbElements);
        }
        SafeArrayUnaccessData(array);
    }

    fuzz::FuzzInput& input_;
    // Deques, since what was made stays where it is.
    std::deque<VARIANT> variants_;
    std::deque<Element> elements_;
    std::deque<BSTR> texts_;
    std::deque<SAFEARRAY*> arrays_;
    automation::ComPtr<IDispatch> object_ = automation::ToDispatch(std::make_shared<Nothing>());
};

bool Same(const Value& a, const Value& b);

struct SameAs {
    const Value& other;

    template <class T>
    bool operator()(const T& value) const {
        return value == std::get<T>(other.Raw());
    }
    bool operator()(float value) const { return SameNumber(value, std::get<float>(other.Raw())); }
    bool operator()(double value) const { return SameNumber(value, std::get<double>(other.Raw())); }
    bool operator()(automation::Date value) const {
        return SameNumber(value.days, std::get<automation::Date>(other.Raw()).days);
    }
    bool operator()(const std::shared_ptr<const automation::Bytes>& bytes) const {
        return bytes->lowerBound == other.AsBytes()->lowerBound && bytes->items == other.AsBytes()->items;
    }
    bool operator()(const std::shared_ptr<const automation::Array>& array) const {
        const automation::Array& others = *other.AsArray();
        bool same = array->lowerBound == others.lowerBound && array->items.size() == others.items.size();
        for (size_t i = 0; same && i < array->items.size(); ++i) same = Same(array->items[i], others.items[i]);
        return same;
    }

    template <class Number>
    static bool SameNumber(Number a, Number b) {
        return a == b || (std::isnan(a) && std::isnan(b));
    }
};

bool Same(const Value& a, const Value& b) {
    return a.Raw().index() == b.Raw().index() && std::visit(SameAs{b}, a.Raw());
}

/// The system's own conversion of what is a number. It takes a Boolean that is neither true nor false for a number,
/// too.
void CompareWithSystem(VARIANT& variant, const Value& value) {
    const VARTYPE type = V_VT(&variant) & VT_TYPEMASK;
    if ((V_VT(&variant) & (VT_ARRAY | VT_VECTOR)) || type == VT_BOOL || type == VT_BSTR || type == VT_VARIANT ||
        type == VT_DISPATCH || type == VT_UNKNOWN || type == VT_ERROR || type == VT_NULL || type == VT_EMPTY)
        return;
    VARIANT number;
    VariantInit(&number);
    if (FAILED(VariantChangeType(&number, &variant, 0, VT_R8))) return;
    const double ours = value.ToDouble();
    const double theirs = V_R8(&number);
    Must(SameAs::SameNumber(ours, theirs) || std::fabs(ours - theirs) <= std::fabs(theirs) * 1e-14,
         "the system reads the same number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzInput input(data, size);
    VariantMaker maker(input);
    VARIANT variant = maker.Make(0);
    try {
        const Value value = automation::FromVariant(variant);
        CompareWithSystem(variant, value);
        const automation::Variant again(value);
        Must(Same(again.ToValue(), value), "a value survives the way to a variant and back");
    } catch (const automation::Error& error) {
        Must(error.Number() == automation::errors::typeMismatch || error.Number() >= 0x80000000u,
             "what is no value is refused as such");
    }
    return 0;
}
