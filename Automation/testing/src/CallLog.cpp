// CallLog: the wording of its lines.
#include "automation_testing/CallLog.h"

#include <algorithm>

#include "automation_testing/ScriptedObject.h"

namespace automation::testing {

namespace {

std::string DescribeBytes(const Bytes& bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "0x";
    for (const uint8_t byte : bytes.items) {
        text.push_back(digits[byte >> 4]);
        text.push_back(digits[byte & 15]);
    }
    return text;
}

std::string DescribeArray(const Array& array) {
    std::string text = "[";
    for (const Value& item : array.items) text += (text.size() > 1 ? ", " : "") + Describe(item);
    return text + "]";
}

std::string DescribeObject(const ObjectRef& object) {
    if (!object) return "Nothing";
    const auto* scripted = dynamic_cast<const ScriptedObject*>(object.get());
    return "<" + (scripted ? scripted->Name() : "Object") + ">";
}

std::string DescribeArguments(const Invocation& call) {
    std::string text;
    for (const Value& argument : call.arguments) text += (text.empty() ? "" : ", ") + Describe(argument);
    for (const NamedArgument& argument : call.named)
        text += (text.empty() ? "" : ", ") + std::string(argument.name) + ":=" + Describe(argument.value);
    return text.empty() ? text : "(" + text + ")";
}

}  // namespace

void CallLog::AddCall(std::string_view object, const Invocation& call) {
    const std::string name = std::string(object) + (call.member.empty() ? "" : ".") + std::string(call.member);
    if (call.access == Access::Call || call.arguments.empty()) {
        Add(name + DescribeArguments(call));
        return;
    }
    Invocation indices = call;
    indices.arguments = call.arguments.first(call.arguments.size() - 1);
    Add((call.access == Access::PutRef ? "Set " : "") + name + DescribeArguments(indices) + " = " +
        Describe(call.arguments.back()));
}

size_t CallLog::Count(std::string_view part) const {
    return static_cast<size_t>(std::count_if(lines_.begin(), lines_.end(), [part](const std::string& line) {
        return line.find(part) != std::string::npos;
    }));
}

std::string Describe(const Value& value) {
    if (const std::string* text = value.AsText()) return "\"" + *text + "\"";
    if (const Array* array = value.AsArray()) return DescribeArray(*array);
    if (const Bytes* bytes = value.AsBytes()) return DescribeBytes(*bytes);
    if (value.IsObject()) return DescribeObject(value.ToObject());
    if (value.IsMissing()) return "(left out)";
    if (value.IsEmpty() || value.IsNull() || value.IsError()) return std::string(value.TypeName());
    return value.ToText();
}

}  // namespace automation::testing
