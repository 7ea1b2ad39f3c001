// MessagePump: lets the thread's message loop run for a moment in the middle of a load.
#include "win32/window/MessagePump.h"

namespace foldertree {

namespace {

constexpr int maxDepth = 16;  // a nested load needs some 100 kB of stack at the most
constexpr int maxMessages = 1000;

thread_local int depth = 0;

struct DepthCount {
    DepthCount() { ++depth; }
    ~DepthCount() { --depth; }
};

}  // namespace

bool PumpWaitingMessages(const std::function<bool(MSG&)>& translate) {
    if (depth >= maxDepth) return true;
    const DepthCount count;
    MSG message;
    for (int i = 0; i < maxMessages && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (translate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

}  // namespace foldertree
