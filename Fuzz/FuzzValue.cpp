// FuzzValue: the first byte of a value is its type.
#include "FuzzValue.h"

#include <string>

#include "automation/Error.h"
#include "automation/Object.h"

namespace fuzz {
namespace {

using automation::Value;

class Stranger final : public automation::Object {
  public:
    Value Invoke(const automation::Invocation&) override {
        throw automation::Error(automation::errors::unknownName, "A stranger has no members");
    }
    bool HasMember(std::string_view) const override { return false; }
};

Value TakeArray(FuzzInput& input, int depth) {
    constexpr int deepest = 3;
    automation::Array array{input.Take<int32_t>(), {}};
    for (int left = input.TakeByte() % 4; left > 0 && depth < deepest; --left)
        array.items.push_back(TakeValue(input, depth + 1));
    return array;
}

Value TakeBytes(FuzzInput& input) {
    const auto lowerBound = input.Take<int32_t>();
    const std::string_view bytes = input.TakeText(input.TakeByte() % 16u);
    return automation::Bytes{lowerBound, {bytes.begin(), bytes.end()}};
}

}  // namespace

automation::ObjectRef MakeStranger() {
    return std::make_shared<Stranger>();
}

Value TakeValue(FuzzInput& input, int depth) {
    switch (input.TakeByte() % 18) {
        case 0:
            return {};
        case 1:
            return automation::Null();
        case 2:
            return automation::Missing();
        case 3:
            return input.TakeByte() % 2 == 1;
        case 4:
            return Value::Byte(input.TakeByte());
        case 5:
            return Value::Integer(input.Take<int16_t>());
        case 6:
            return input.Take<int32_t>();
        case 7:
            return Value::LongLong(input.Take<int64_t>());
        case 8:
            return Value::Single(input.Take<float>());
        case 9:
            return input.Take<double>();
        case 10:
            return automation::Currency{input.Take<int64_t>()};
        case 11:
            return automation::Date{input.Take<double>()};
        case 12:
            return std::string(input.TakeText(input.TakeByte() % 32u));
        case 13:
            return nullptr;
        case 14:
            return MakeStranger();
        case 15:
            return automation::ErrorValue{input.Take<uint32_t>()};
        case 16:
            return TakeBytes(input);
        default:
            return TakeArray(input, depth);
    }
}

}  // namespace fuzz
