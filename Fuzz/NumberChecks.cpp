// NumberChecks: numbers in texts, numbers as texts, and the conversions of values.
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "FuzzInput.h"
#include "TextChecks.h"
#include "automation/Error.h"
#include "automation/Text.h"
#include "automation/Value.h"

namespace fuzz {
namespace {

using automation::Value;

template <class Call>
void AllowError(Call&& call) {
    try {
        call();
    } catch (const automation::Error&) {
        // Type mismatch or overflow: a value need not be of every type.
    }
}

bool SameNumber(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// Fifteen digits are written, so what is read again differs by half a unit of the fifteenth at most.
bool NearlySame(double a, double b) {
    return SameNumber(a, b) || std::fabs(a - b) <= std::fabs(a) * 1e-14 ||
           (std::fabs(a) < 1e-300 && std::fabs(b) < 1e-300) || (std::isinf(b) && std::fabs(a) > 1.79769313486231e308);
}

void CheckNumber(double number) {
    const std::string text = automation::NumberText(number);
    Must(!text.empty(), "every number has a text");
    if (std::isfinite(number)) {
        const auto again = automation::ParseNumber(text);
        Must(again.has_value(), "a written number is a number");
        Must(NearlySame(number, *again), "a written number is read as it was");
        Must(SameNumber(automation::Val(text), *again), "Val and ParseNumber agree on a written number");
    }
    AllowError([&] { Must(std::fabs(automation::RoundToLong(number) - number) <= 0.5, "a Long is the nearest one"); });
}

void CheckValue(const Value& value) {
    Must(!value.TypeName().empty(), "every type has a name");
    AllowError([&] { value.ToText(); });
    AllowError([&] { value.ToObject(); });
    AllowError([&] { value.RequireObject(); });
    AllowError([&] {
        const double number = value.ToDouble();
        Must(value.ToBoolean() == (number != 0), "what is a number is a Boolean");
        AllowError([&] { Must(value.ToLong() == automation::RoundToLong(number), "a Long is the rounded number"); });
    });
}

}  // namespace

void CheckNumbersInText(std::string_view text) {
    const double val = automation::Val(text);
    Must(!std::isnan(val), "Val is a number");
    CheckNumber(val);
    const auto number = automation::ParseNumber(text);
    if (!number) return;
    CheckNumber(*number);
    // The C library is asked in its own locale, whose point is a point.
    Must(SameNumber(*number, std::strtod(std::string(text).c_str(), nullptr)), "the C library reads the same number");
    Must(SameNumber(*number, val), "Val and ParseNumber agree on a number");
}

void CheckNumbers(std::string_view text) {
    FuzzInput input(reinterpret_cast<const uint8_t*>(text.data()), text.size());
    while (!input.AtEnd()) CheckNumber(input.Take<double>());
}

void CheckConversions(std::string_view text) {
    CheckValue(Value(text));
    FuzzInput input(reinterpret_cast<const uint8_t*>(text.data()), text.size());
    const auto bits = input.Take<int64_t>();
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    CheckValue(number);
    CheckValue(automation::Date{number});
    CheckValue(automation::Currency{bits});
    CheckValue(Value::LongLong(bits));
    CheckValue(Value::Integer(static_cast<int16_t>(bits)));
    CheckValue(Value::Byte(static_cast<uint8_t>(bits)));
    CheckValue(static_cast<int32_t>(bits));
    CheckValue(automation::ErrorValue{static_cast<uint32_t>(bits)});
    CheckValue(Value::Single(input.Take<float>()));
}

}  // namespace fuzz
