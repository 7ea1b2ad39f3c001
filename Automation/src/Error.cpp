// Error: the usual English texts of Visual Basic's error numbers.
#include "automation/Error.h"

namespace automation {

namespace {

const char* VbErrorText(uint32_t number) {
    switch (number) {
        case errors::invalidCall:
            return "Invalid procedure call or argument";
        case errors::overflow:
            return "Overflow";
        case errors::subscript:
            return "Subscript out of range";
        case errors::typeMismatch:
            return "Type mismatch";
        case errors::objectNotSet:
            return "Object variable or With block variable not set";
        case errors::cannotCreate:
            return "ActiveX component can't create object";
        case errors::noSuchMember:
            return "Object doesn't support this property or method";
        case errors::duplicateKey:
            return "This key is already associated with an element of this collection";
        default:
            return "Application-defined or object-defined error";
    }
}

}  // namespace

Error VbError(uint32_t number) {
    return Error(number, VbErrorText(number));
}

}  // namespace automation
