// MemberFunctions: puts ordinary member functions into a table of automation members.
#pragma once

#include <type_traits>

#include "automation/TabledObject.h"

namespace localstores {

/// `method` is a member function with or without `const automation::Arguments&`, whose result makes a Value or is void.
template <auto method, class Self>
automation::Value Handler(Self& self, const automation::Arguments& arguments) {
    const auto call = [&]() -> decltype(auto) {
        if constexpr (std::is_invocable_v<decltype(method), Self&, const automation::Arguments&>)
            return (self.*method)(arguments);
        else
            return (self.*method)();
    };
    if constexpr (std::is_void_v<decltype(call())>) {
        call();
        return {};
    } else {
        return call();
    }
}

template <auto method, class Self>
void Setter(Self& self, const automation::Value& value) {
    (self.*method)(value);
}

}  // namespace localstores
