// CallArguments: reading the arguments that the members of the object models take.
#pragma once

#include <cstdint>

#include "automation/TabledObject.h"
#include "model/Session.h"

namespace localstores {

/// The argument, or Error 0x8002000E when the caller left it out.
const automation::Value& Required(const automation::Arguments& arguments, size_t index);

/// An identifier, given as hexadecimal text or as bytes. Throws MAPI_E_INVALID_ENTRYID for anything else.
EntryId IdOf(const automation::Value& value);

/// Looks for the folder whose identifier is the first argument, in the store whose identifier is the second or, when
/// that is left out or empty, in all stores. Nothing is found when there is no such store.
FolderInStore FindFolder(const Session& session, const automation::Arguments& arguments);

/// A property tag, given as a number or as text that ends in one ("…/proptag/0x3001001F"). Throws E_INVALIDARG.
uint32_t TagOf(const automation::Value& value);

}  // namespace localstores
