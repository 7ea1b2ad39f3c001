// RdoArguments: the conversions.
#include "models/rdo/RdoArguments.h"

#include <charconv>
#include <string>

#include "models/rdo/MapiErrors.h"

namespace localstores {

using automation::Arguments;
using automation::Error;
using automation::Value;

const Value& Required(const Arguments& arguments, size_t index) {
    if (!arguments.Has(index)) throw Error(automation::errors::badParamCount, "Invalid number of parameters.");
    return arguments[index];
}

EntryId IdOf(const Value& value) {
    if (const auto* bytes = value.AsBytes()) return bytes->items;
    const auto id = FromHex(value.ToText());
    if (!id || id->empty()) throw InvalidEntryId();
    return *id;
}

uint32_t TagOf(const Value& value) {
    const std::string* text = value.AsText();
    if (text == nullptr) return static_cast<uint32_t>(value.ToLong());
    const size_t prefix = text->rfind("0x");
    if (prefix == std::string::npos) throw InvalidArgument();
    const char* first = text->data() + prefix + 2;
    const char* last = text->data() + text->size();
    uint32_t tag = 0;
    const auto [end, error] = std::from_chars(first, last, tag, 16);
    if (error != std::errc() || end != last) throw InvalidArgument();
    return tag;
}

}  // namespace localstores
