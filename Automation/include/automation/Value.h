// Value: a portable stand-in for VARIANT: what automation members take and return.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace automation {

class Object;
class Value;

/// A counted reference to an automation object; null is Visual Basic's Nothing.
using ObjectRef = std::shared_ptr<Object>;

struct Null {
    bool operator==(const Null&) const = default;
};

/// An argument that the caller left out (VT_ERROR with DISP_E_PARAMNOTFOUND).
struct Missing {
    bool operator==(const Missing&) const = default;
};

/// A cell that holds an error instead of a value (VT_ERROR), as table rows do for a property that the row lacks.
struct ErrorValue {
    uint32_t code = 0;
    bool operator==(const ErrorValue&) const = default;
};

struct Currency {
    int64_t tenThousandths = 0;
    bool operator==(const Currency&) const = default;
};

/// Days since 30 December 1899, as in VT_DATE.
struct Date {
    double days = 0;
    bool operator==(const Date&) const = default;
};

/// A one-dimensional array of values (VT_ARRAY|VT_VARIANT). Bounds need not start at 0.
struct Array {
    int32_t lowerBound = 0;
    std::vector<Value> items;
    /// Beyond 32 bits where bounds and items do not fit together, as in an empty array that starts at the least number.
    int64_t UpperBound() const;
};

/// A one-dimensional array of bytes (VT_ARRAY|VT_UI1).
struct Bytes {
    int32_t lowerBound = 0;
    std::vector<uint8_t> items;
};

/// A value of any automation type. Text is UTF-8; a lone UTF-16 surrogate is kept as its three-byte form, so that text
/// survives the way through the control unchanged. Arrays are shared and immutable, so a copy is cheap.
/// The To… conversions follow Visual Basic's: they throw Error 13 (type mismatch) or 6 (overflow).
class Value {
  public:
    Value() = default;
    Value(const Value& other) : data_(Copy(other.data_)) {}
    Value(Value&&) noexcept = default;
    ~Value() = default;
    /// What the value held ends when the new one is in place: the end of an object may run anything.
    Value& operator=(Value other) noexcept {
        data_.swap(other.data_);
        return *this;
    }
    Value(bool value) : data_(value) {}
    Value(int32_t value) : data_(value) {}
    Value(double value) : data_(value) {}
    Value(const char* text) : data_(std::string(text)) {}
    Value(std::string text) : data_(std::move(text)) {}
    Value(std::string_view text) : data_(std::string(text)) {}
    Value(ObjectRef object) : data_(std::move(object)) {}
    Value(Array array) : data_(std::make_shared<const Array>(std::move(array))) {}
    Value(Bytes bytes) : data_(std::make_shared<const Bytes>(std::move(bytes))) {}
    Value(ErrorValue error) : data_(error) {}
    Value(Null null) : data_(null) {}
    Value(Missing missing) : data_(missing) {}
    Value(Currency value) : data_(value) {}
    Value(Date value) : data_(value) {}
    Value(std::nullptr_t) : data_(ObjectRef()) {}  // Nothing
    template <class T>
    Value(std::shared_ptr<T> object) : data_(ObjectRef(std::move(object))) {}
    static Value Byte(uint8_t value) { return Value(Storage(value)); }
    static Value Integer(int16_t value) { return Value(Storage(value)); }
    static Value LongLong(int64_t value) { return Value(Storage(value)); }
    static Value Single(float value) { return Value(Storage(value)); }

    bool IsEmpty() const { return Holds<std::monostate>(); }
    bool IsNull() const { return Holds<Null>(); }
    bool IsMissing() const { return Holds<Missing>(); }
    bool IsError() const { return Holds<ErrorValue>(); }
    bool IsObject() const { return Holds<ObjectRef>(); }
    bool IsText() const { return Holds<std::string>(); }

    /// Null unless the value is of that type.
    const Array* AsArray() const;
    const Bytes* AsBytes() const;
    const std::string* AsText() const { return std::get_if<std::string>(&data_); }

    /// Visual Basic's TypeName: "Empty", "Null", "Boolean", "Byte", "Integer", "Long", "LongLong", "Single", "Double",
    /// "Currency", "Date", "String", "Object", "Nothing", "Error", "Variant()", "Byte()".
    std::string_view TypeName() const;

    bool ToBoolean() const;
    int32_t ToLong() const;  ///< rounds halves to even
    double ToDouble() const;
    std::string ToText() const;
    /// The object, or null for Nothing, Empty and Missing. Throws 13 for any other type.
    ObjectRef ToObject() const;
    /// The object. Throws 91 for Nothing and Empty, 13 for any other type.
    ObjectRef RequireObject() const&;
    ObjectRef RequireObject() &&;  ///< the same, and leaves an object value as Nothing

    /// The raw storage, for adapters that translate every type.
    using Storage = std::variant<std::monostate, Null, Missing, bool, uint8_t, int16_t, int32_t, int64_t, float, double,
                                 Currency, Date, std::string, ObjectRef, ErrorValue, std::shared_ptr<const Array>,
                                 std::shared_ptr<const Bytes>>;
    const Storage& Raw() const { return data_; }

  private:
    explicit Value(Storage data) noexcept : data_(std::move(data)) {}
    /// Texts are copied before the variant is made. They alone can fail, and a variant of libstdc++ 12 whose copying
    /// fails ends a member that it does not have.
    static Storage Copy(const Storage& data) {
        if (const auto* text = std::get_if<std::string>(&data)) return Storage(std::string(*text));
        return Storage(data);
    }
    template <class T>
    bool Holds() const {
        return std::holds_alternative<T>(data_);
    }

    Storage data_;
};

inline int64_t Array::UpperBound() const {
    return lowerBound + static_cast<int64_t>(items.size()) - 1;
}

}  // namespace automation
