// CallArguments: the conversions.
#include "models/common/CallArguments.h"

#include <charconv>
#include <string>

#include "models/common/MapiErrors.h"

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

FolderInStore FindFolder(const Session& session, const Arguments& arguments) {
    const EntryId id = IdOf(Required(arguments, 0));
    const bool anyStore = !arguments.Has(1) || arguments[1].IsEmpty() || arguments[1].ToText().empty();
    if (anyStore) return session.FindFolder(id);
    const auto store = session.Find(IdOf(arguments[1]));
    if (!store) return {};
    return {store, store->Find(id)};
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
