// MapiErrors: numbers and texts.
#include "models/common/MapiErrors.h"

namespace localstores {

using automation::Error;
namespace errors = automation::errors;

Error NotFound() {
    return {errors::mapiNotFound, "The object was not found (MAPI_E_NOT_FOUND)."};
}
Error NoSupport() {
    return {errors::mapiNoSupport, "This is not supported (MAPI_E_NO_SUPPORT)."};
}
Error InvalidEntryId() {
    return {0x80040107, "This is no entry identifier (MAPI_E_INVALID_ENTRYID)."};
}
Error InvalidArgument() {
    return {errors::invalidArgument, "The parameter is incorrect."};
}
Error InvalidIndex() {
    return {0x8002000B, "Invalid index."};
}
Error ReadOnly() {
    return {0x80070005, "Local stores are read-only."};
}

}  // namespace localstores
