// MessagePump: lets the thread's message loop run for a moment in the middle of a load.
#pragma once

#include <windows.h>

#include <functional>

namespace foldertree {

/// Handles the messages that are waiting; at most a fixed number of them, and not at all when too many pumps are
/// already running inside each other, so that a message that sends itself again cannot hold the load up. `translate`
/// may take a message for itself. Returns false when the program is ending; its WM_QUIT is posted again for the loop
/// that must see it.
bool PumpWaitingMessages(const std::function<bool(MSG&)>& translate);

}  // namespace foldertree
