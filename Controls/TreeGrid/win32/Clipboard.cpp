// Clipboard: text for other programs.
#include "win32/Clipboard.h"

#include <cstring>
#include <exception>
#include <string>
#include <utility>

#include "automation_win32/Bstr.h"

namespace foldertree {
namespace {

class OpenClipboardScope {
  public:
    explicit OpenClipboardScope(HWND window) : opened_(OpenClipboard(window) != FALSE) {}
    ~OpenClipboardScope() {
        if (opened_) CloseClipboard();
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    bool Opened() const { return opened_; }

  private:
    const bool opened_;
};

/// Memory that the clipboard can take over.
class MovableMemory {
  public:
    explicit MovableMemory(size_t size) : handle_(GlobalAlloc(GMEM_MOVEABLE, size)) {}
    ~MovableMemory() {
        if (handle_ != nullptr) GlobalFree(handle_);
    }
    MovableMemory(const MovableMemory&) = delete;
    MovableMemory& operator=(const MovableMemory&) = delete;

    bool Fill(const void* bytes, size_t size) {
        void* place = handle_ != nullptr ? GlobalLock(handle_) : nullptr;
        if (place == nullptr) return false;
        std::memcpy(place, bytes, size);
        GlobalUnlock(handle_);
        return true;
    }
    bool GiveToClipboard(UINT format) {
        if (SetClipboardData(format, handle_) == nullptr) return false;
        handle_ = nullptr;
        return true;
    }

  private:
    HGLOBAL handle_;
};

bool Copy(HWND window, std::string_view text) {
    const std::wstring wide = automation::ToWide(text);
    const size_t size = (wide.size() + 1) * sizeof(wchar_t);
    MovableMemory memory(size);
    if (!memory.Fill(wide.c_str(), size)) return false;
    const OpenClipboardScope clipboard(window);
    return clipboard.Opened() && EmptyClipboard() != FALSE && memory.GiveToClipboard(CF_UNICODETEXT);
}

}  // namespace

bool CopyToClipboard(HWND window, std::string_view text) noexcept {
    try {
        return Copy(window, text);
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace foldertree
