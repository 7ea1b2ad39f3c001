// RdoArguments: reading the arguments that the members of an RDO session take.
#pragma once

#include <cstdint>

#include "automation/TabledObject.h"
#include "localstores/EntryId.h"

namespace localstores {

/// The argument, or Error 0x8002000E when the caller left it out.
const automation::Value& Required(const automation::Arguments& arguments, size_t index);

/// An identifier, given as hexadecimal text or as bytes. Throws MAPI_E_INVALID_ENTRYID for anything else.
EntryId IdOf(const automation::Value& value);

/// A property tag, given as a number or as text that ends in one ("…/proptag/0x3001001F"). Throws E_INVALIDARG.
uint32_t TagOf(const automation::Value& value);

}  // namespace localstores
