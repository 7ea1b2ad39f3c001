// TabledObject: placing of arguments that are given by name.
#include "automation/TabledObject.h"

#include <algorithm>

namespace automation {

namespace {

std::vector<std::string_view> SplitAtBlanks(std::string_view names) {
    std::vector<std::string_view> result;
    for (size_t begin = 0; begin < names.size();) {
        const size_t end = std::min(names.find(' ', begin), names.size());
        result.push_back(names.substr(begin, end - begin));
        begin = end + 1;
    }
    return result;
}

}  // namespace

const Value& Arguments::operator[](size_t index) const {
    static const Value missing = Missing();
    return index < values_.size() ? values_[index] : missing;
}

std::vector<Value> PlaceArguments(const Invocation& call, std::string_view parameters) {
    const std::vector<std::string_view> names = SplitAtBlanks(parameters);
    std::vector<Value> placed(call.arguments.begin(), call.arguments.end());
    placed.resize(std::max(placed.size(), names.size()), Missing());
    for (const NamedArgument& argument : call.named) {
        size_t index = 0;
        while (index < names.size() && !SameMember(names[index], argument.name)) ++index;
        if (index == names.size()) throw Error(errors::unknownName, "Unknown name.");
        if (!placed[index].IsMissing()) throw Error(errors::badParamCount, "Invalid number of parameters.");
        placed[index] = argument.value;
    }
    return placed;
}

}  // namespace automation
