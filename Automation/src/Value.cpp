// Value: the conversions that Visual Basic makes between its types.
#include "automation/Value.h"

#include <array>
#include <chrono>
#include <cmath>
#include <concepts>
#include <cstdio>
#include <optional>
#include <type_traits>
#include <utility>

#include "Number.h"
#include "automation/Error.h"
#include "automation/Text.h"

namespace automation {

namespace {

/// A visitor made of lambdas, one for each type that matters.
template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

template <class T>
concept Number = std::is_arithmetic_v<T> && !std::is_same_v<T, bool>;

double FromCurrency(Currency value) {
    return static_cast<double>(value.tenThousandths) / 10000.0;
}

std::optional<bool> BooleanWord(std::string_view text) {
    if (EqualNoCase(text, "True")) return true;
    if (EqualNoCase(text, "False")) return false;
    return std::nullopt;
}

/// The number that any plain value is; throws 13 for what is none.
double Numeric(const Value::Storage& data) {
    return std::visit(Overloaded{
                          [](std::monostate) -> double { return 0; },
                          [](bool value) -> double { return value ? -1 : 0; },
                          [](const Number auto& value) -> double { return static_cast<double>(value); },
                          [](Currency value) -> double { return FromCurrency(value); },
                          [](Date value) -> double { return value.days; },
                          [](const std::string& text) -> double {
                              if (const auto word = BooleanWord(text)) return *word ? -1 : 0;
                              const auto number = ParseNumber(text);
                              if (!number) throw VbError(errors::typeMismatch);
                              if (std::isinf(*number)) throw VbError(errors::overflow);
                              return *number;
                          },
                          [](const auto&) -> double { throw VbError(errors::typeMismatch); },
                      },
                      data);
}

std::string CurrencyText(Currency value) {
    const bool negative = value.tenThousandths < 0;
    const auto amount =
        negative ? 0 - static_cast<uint64_t>(value.tenThousandths) : static_cast<uint64_t>(value.tenThousandths);
    std::string text = (negative ? "-" : "") + std::to_string(amount / 10000);
    std::string fraction = std::to_string(10000 + amount % 10000).substr(1);
    while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
    return fraction.empty() ? text : text + "." + fraction;
}

/// Year, month, day, and the time where it is not midnight: a form that is the same in every country.
std::string DateText(Date value) {
    using namespace std::chrono;
    constexpr double firstDay = -657434;  // 1 January 100
    constexpr double lastDay = 2958466;   // 1 January 10000
    if (!(value.days > firstDay - 1 && value.days < lastDay)) throw VbError(errors::overflow);

    double whole = std::trunc(value.days);
    // Before the year 1900 the fraction still counts forwards from midnight.
    auto second = static_cast<int>(std::lround(std::fabs(value.days - whole) * 86400));
    if (second == 86400) {
        second = 0;
        whole += 1;
    }
    const year_month_day date(sys_days(year(1899) / December / 30) + days(static_cast<int>(whole)));
    std::array<char, 64> buffer;
    int length = std::snprintf(buffer.data(), buffer.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
                               static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    if (second != 0)
        length += std::snprintf(buffer.data() + length, buffer.size() - static_cast<size_t>(length), " %02d:%02d:%02d",
                                second / 3600, second / 60 % 60, second % 60);
    return std::string(buffer.data(), static_cast<size_t>(length));
}

}  // namespace

const Array* Value::AsArray() const {
    const auto* array = std::get_if<std::shared_ptr<const Array>>(&data_);
    return array ? array->get() : nullptr;
}

const Bytes* Value::AsBytes() const {
    const auto* bytes = std::get_if<std::shared_ptr<const Bytes>>(&data_);
    return bytes ? bytes->get() : nullptr;
}

std::string_view Value::TypeName() const {
    using Name = std::string_view;
    return std::visit(Overloaded{
                          [](std::monostate) -> Name { return "Empty"; },
                          [](Null) -> Name { return "Null"; },
                          [](Missing) -> Name { return "Error"; },
                          [](bool) -> Name { return "Boolean"; },
                          [](uint8_t) -> Name { return "Byte"; },
                          [](int16_t) -> Name { return "Integer"; },
                          [](int32_t) -> Name { return "Long"; },
                          [](int64_t) -> Name { return "LongLong"; },
                          [](float) -> Name { return "Single"; },
                          [](double) -> Name { return "Double"; },
                          [](Currency) -> Name { return "Currency"; },
                          [](Date) -> Name { return "Date"; },
                          [](const std::string&) -> Name { return "String"; },
                          [](const ObjectRef& object) -> Name { return object ? "Object" : "Nothing"; },
                          [](ErrorValue) -> Name { return "Error"; },
                          [](const std::shared_ptr<const Array>&) -> Name { return "Variant()"; },
                          [](const std::shared_ptr<const Bytes>&) -> Name { return "Byte()"; },
                      },
                      data_);
}

bool Value::ToBoolean() const {
    return Numeric(data_) != 0;
}

int32_t Value::ToLong() const {
    return RoundToLong(Numeric(data_));
}

double Value::ToDouble() const {
    return Numeric(data_);
}

std::string Value::ToText() const {
    return std::visit(Overloaded{
                          [](std::monostate) -> std::string { return {}; },
                          [](bool value) -> std::string { return value ? "True" : "False"; },
                          [](const std::integral auto& value) -> std::string { return std::to_string(value); },
                          [](float value) -> std::string { return NumberText(static_cast<double>(value), 7); },
                          [](double value) -> std::string { return NumberText(value); },
                          [](Currency value) -> std::string { return CurrencyText(value); },
                          [](Date value) -> std::string { return DateText(value); },
                          [](const std::string& text) -> std::string { return text; },
                          [](const auto&) -> std::string { throw VbError(errors::typeMismatch); },
                      },
                      data_);
}

ObjectRef Value::ToObject() const {
    if (const auto* object = std::get_if<ObjectRef>(&data_)) return *object;
    if (IsEmpty() || IsMissing()) return nullptr;
    throw VbError(errors::typeMismatch);
}

ObjectRef Value::RequireObject() const& {
    ObjectRef object = ToObject();
    if (!object) throw VbError(errors::objectNotSet);
    return object;
}

ObjectRef Value::RequireObject() && {
    auto* const held = std::get_if<ObjectRef>(&data_);
    if (held != nullptr && *held != nullptr) return std::move(*held);
    return std::as_const(*this).RequireObject();
}

}  // namespace automation
