// CdoErrors: the errors that the members of a CDO session raise, with the texts that CDO gives them.
#pragma once

#include "automation/Error.h"

namespace localstores {

automation::Error CdoNotFound();        ///< MAPI_E_NOT_FOUND
automation::Error CdoNotInitialized();  ///< MAPI_E_NOT_INITIALIZED: nobody has logged on

}  // namespace localstores
