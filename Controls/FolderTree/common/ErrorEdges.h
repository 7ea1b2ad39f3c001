// ErrorEdges: the only places where the control catches errors.
#pragma once

#include <exception>
#include <new>
#include <optional>
#include <utility>

#include "automation/Error.h"
#include "common/ErrorLines.h"

namespace foldertree {

/// Thrown at a yield after which the control is closed: whatever runs unwinds and touches nothing more. It is no error
/// and passes through Guarded and Attempt up to the public member that the host called.
struct ControlClosed {};

/// Runs the body. Returns the error that ended it, or nothing.
template <class Body>
std::optional<automation::Error> Attempt(Body&& body) {
    try {
        std::forward<Body>(body)();
        return std::nullopt;
    } catch (automation::Error& error) {
        return std::move(error);  // without a copy, which could fail for lack of memory
    } catch (const std::bad_alloc&) {
        return automation::Error(automation::errors::outOfMemory, "Out of memory.");
    } catch (const std::exception& error) {
        return automation::Error(automation::errors::unspecified, error.what());
    }
}

/// Lets an error for lack of memory go on, where any other is an answer: it tells nothing of what was asked.
inline void ThrowIfOutOfMemory(std::optional<automation::Error>& error) {
    if (error && error->Number() == automation::errors::outOfMemory) throw automation::Error(std::move(*error));
}

/// Runs the body of one of the control's procedures. An error writes the procedure's one trace line through `tracer`
/// (its TraceError) and ends here. Returns whether the body ran to its end; what it stored until then stays.
template <class Tracer, class Body>
bool Guarded(Tracer& tracer, const ErrorLine& line, Body&& body) {
    const std::optional<automation::Error> error = Attempt(std::forward<Body>(body));
    if (error) tracer.TraceError(line, *error);
    return !error;
}

/// Runs the body of a public member; a body that ends because the control was closed leaves `result` as it was.
template <class Result, class Body>
Result UntilClosed(Result result, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const ControlClosed&) {
        return result;
    }
}

}  // namespace foldertree
