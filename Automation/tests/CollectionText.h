// CollectionText: what the tests of collections look at.
#pragma once

#include <functional>
#include <string>

#include "automation/Collection.h"

namespace automation {

/// The number of the Error that the action throws; 0 when it throws none.
inline uint32_t NumberOfFailure(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

/// The texts of the items, one after the other.
inline std::string Joined(const Collection& collection) {
    std::string text;
    const auto walk = collection.Walk();
    for (Value item; walk->Next(item);) text += item.ToText();
    return text;
}

}  // namespace automation
