// Tip: a small text beside what it is about, as the system shows tips.
#include "win32/Tip.h"

#include <commctrl.h>

#include "automation_win32/Module.h"

namespace foldertree {
namespace {

TTTOOLINFOW ToolOf(HWND owner) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;  // what the oldest of the system's libraries knows
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = owner;
    return tool;
}

void Send(HWND tip, UINT message, WPARAM wParam, const TTTOOLINFOW& tool) {
    SendMessageW(tip, message, wParam, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

Tip::~Tip() {
    if (tip_ != nullptr && IsWindow(tip_)) DestroyWindow(tip_);
}

// It goes away with its owner, without being told.
bool Tip::Make(HWND owner) {
    if (tip_ != nullptr && owner_ == owner && IsWindow(tip_)) return true;
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    const DWORD balloon = kind_ == Kind::Balloon ? TTS_BALLOON : 0;
    tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP | balloon, 0, 0,
                           0, 0, owner, nullptr, automation::ThisModule(), nullptr);
    owner_ = owner;
    if (tip_ == nullptr) return false;
    Send(tip_, TTM_ADDTOOLW, 0, ToolOf(owner));
    return true;
}

void Tip::Show(HWND owner, const std::wstring& text, POINT point, int width) {
    if (!Make(owner)) return;
    std::wstring shown = text;  // the system takes no constant
    TTTOOLINFOW tool = ToolOf(owner);
    tool.lpszText = shown.data();
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, width);
    Send(tip_, TTM_UPDATETIPTEXTW, 0, tool);
    SendMessageW(tip_, TTM_TRACKPOSITION, 0, MAKELPARAM(point.x, point.y));
    Send(tip_, TTM_TRACKACTIVATE, TRUE, tool);
    shown_ = true;
}

void Tip::Hide() noexcept {
    if (!shown_) return;
    shown_ = false;
    if (tip_ != nullptr && IsWindow(tip_)) Send(tip_, TTM_TRACKACTIVATE, FALSE, ToolOf(owner_));
}

}  // namespace foldertree
