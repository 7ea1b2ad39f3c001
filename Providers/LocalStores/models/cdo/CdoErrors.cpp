// CdoErrors: numbers and texts.
#include "models/cdo/CdoErrors.h"

namespace localstores {

automation::Error CdoNotFound() {
    return {automation::errors::mapiNotFound, "[Collaboration Data Objects - [MAPI_E_NOT_FOUND(8004010F)]]"};
}

automation::Error CdoNotInitialized() {
    return {0x80040605, "[Collaboration Data Objects - [MAPI_E_NOT_INITIALIZED(80040605)]]"};
}

}  // namespace localstores
