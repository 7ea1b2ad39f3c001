// AccessibleWindow: the way from an assistive program to a window that answers it.
#include "win32/AccessibleWindow.h"

#include "win32/AccessibleObject.h"

namespace foldertree {

LRESULT AccessibleWindow::Answer(WPARAM wParam) {
    const HWND window = answers_.Window();
    if (window == nullptr) return 0;
    if (connection_ == nullptr || connection_->window != window) {
        CutOff();
        connection_ = std::make_shared<AccessibleConnection>(
            AccessibleConnection{&answers_, &keeper_, window, GetCurrentThreadId()});
    }
    const auto object = automation::MakeCom<AccessibleObject>(connection_);
    return LresultFromObject(__uuidof(IAccessible), wParam, static_cast<IAccessible*>(object.Get()));
}

void AccessibleWindow::CutOff() noexcept {
    if (connection_ != nullptr) connection_->answers = nullptr;
    connection_ = nullptr;
}

}  // namespace foldertree
