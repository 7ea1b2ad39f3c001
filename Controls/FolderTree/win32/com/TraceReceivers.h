// TraceReceivers: whether anybody can receive what is written to the debugger's output.
#pragma once

namespace foldertree {

/// True where a debugger is attached to the process, where a viewer of debugger output holds its section, of the
/// session or of the whole system, and under Wine, whose own debug channel cannot be asked. The environment variable
/// FOLDERTREE_TRACE changes that: "always" is always true, "ask" leaves Wine out.
/// A receiver inside the process (a handler of the exception that the output is) cannot be seen: whoever has one holds
/// the section or sets the variable. Costs some microseconds.
bool TraceHasReceiver() noexcept;

}  // namespace foldertree
