// NOXMAPIUtils: reads a MAPI property of a store object by its tag.
#include "noxmapi/NOXMAPIUtils.h"

namespace noxmapi {
namespace {

using automation::Arguments;
using automation::Value;

Value GetProperty(NOXMAPIUtils&, const Arguments& arguments) {
    return arguments[0].RequireObject()->Get("Fields", arguments[1].ToLong());
}

constexpr automation::MemberEntry<NOXMAPIUtils> members[] = {
    {"GetProperty", GetProperty, nullptr, 2, "oStore lPropTag"},
};

}  // namespace

std::span<const automation::MemberEntry<NOXMAPIUtils>> NOXMAPIUtils::Members() {
    return members;
}

}  // namespace noxmapi
