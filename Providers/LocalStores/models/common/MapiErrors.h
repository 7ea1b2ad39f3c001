// MapiErrors: the errors that the members of the object models raise.
#pragma once

#include "automation/Error.h"

namespace localstores {

automation::Error NotFound();         ///< MAPI_E_NOT_FOUND
automation::Error NoSupport();        ///< MAPI_E_NO_SUPPORT
automation::Error InvalidEntryId();   ///< MAPI_E_INVALID_ENTRYID
automation::Error InvalidArgument();  ///< E_INVALIDARG
automation::Error InvalidIndex();     ///< DISP_E_BADINDEX
automation::Error ReadOnly();         ///< E_ACCESSDENIED

}  // namespace localstores
