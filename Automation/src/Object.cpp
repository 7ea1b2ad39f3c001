// Object: the parts of an automation object that are the same for all.
#include "automation/Object.h"

#include "automation/Text.h"

namespace automation {

Value Object::InvokeFrom(int line, const Invocation& call) {
    // An outside call lets messages in, and inside it the caller's only reference may go.
    const ObjectRef keepAlive = weak_from_this().lock();
    try {
        return Invoke(call);
    } catch (Error& error) {
        // An object may itself call further objects: the outermost call is the last to pass here, and its line stays.
        error.SetLine(line);
        throw;
    }
}

bool SameMember(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
    return true;
}

Object& Deref(const ObjectRef& object) {
    if (!object) throw VbError(errors::objectNotSet);
    return *object;
}

}  // namespace automation
