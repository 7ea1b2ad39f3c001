// NumberEditor: the small text box in which the user types a row's position number.
#include "win32/NumberEditor.h"

#include "automation_win32/Bstr.h"
#include "automation_win32/Module.h"
#include "win32/AccessibleWindow.h"
#include "win32/NamedObject.h"

namespace foldertree {

using automation::FromWide;
using automation::ToWide;

NumberEditor::NumberEditor(HWND parent, const RECT& place, HFONT font, const std::string& text, std::string label)
    : label_(std::move(label)) {
    edit_ =
        CreateWindowExW(0, L"EDIT", ToWide(text).c_str(), WS_CHILD | WS_VISIBLE | WS_BORDER | ES_RIGHT | ES_AUTOHSCROLL,
                        place.left, place.top, place.right - place.left, place.bottom - place.top, parent, nullptr,
                        automation::ThisModule(), nullptr);
    if (edit_ == nullptr) return;
    SendMessageW(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SetWindowLongPtrW(edit_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    standard_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NumberEditor::Procedure)));
    SendMessageW(edit_, EM_SETMODIFY, FALSE, 0);
    SelectAll();
}

NumberEditor::~NumberEditor() {
    if (edit_ == nullptr) return;
    const HWND edit = edit_;
    edit_ = nullptr;
    // What happens to it while it closes is no further wish of the user.
    SetWindowLongPtrW(edit, GWLP_USERDATA, 0);
    SetWindowLongPtrW(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(standard_));
    DestroyWindow(edit);
}

std::string NumberEditor::Text() const {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(edit_)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(edit_, text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
}

void NumberEditor::Type(const std::string& text) {
    SelectAll();
    SendMessageW(edit_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
    SendMessageW(edit_, EM_SETMODIFY, TRUE, 0);
}

bool NumberEditor::Modified() const {
    return SendMessageW(edit_, EM_GETMODIFY, 0, 0) != 0;
}

void NumberEditor::SelectAll() {
    SendMessageW(edit_, EM_SETSEL, 0, -1);
}

// The system knows no label for it. Without memory it has none.
LRESULT NumberEditor::AnswerWithLabel(WPARAM wParam) const noexcept {
    try {
        return AnswerWithName(edit_, wParam, label_);
    } catch (...) {
        return 0;
    }
}

LRESULT CALLBACK NumberEditor::Procedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* self = reinterpret_cast<NumberEditor*>(GetWindowLongPtrW(edit, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(edit, message, wParam, lParam);
    const WNDPROC standard = self->standard_;
    // After a report the editor may be gone, so nothing of it is touched any more.
    const auto report = [edit](Event event) {
        SendMessageW(GetParent(edit), eventMessage, static_cast<WPARAM>(event), 0);
    };
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS | CallWindowProcW(standard, edit, message, wParam, lParam);
        case WM_KEYDOWN:
            if (wParam == VK_RETURN || wParam == VK_TAB) return report(Event::Enter), 0;
            if (wParam == VK_ESCAPE) return report(Event::Escape), 0;
            break;
        case WM_CHAR:
            // The edit control beeps at them.
            if (wParam == L'\r' || wParam == L'\t' || wParam == VK_ESCAPE) return 0;
            report(Event::Typed);
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS: {
            const LRESULT result = CallWindowProcW(standard, edit, message, wParam, lParam);
            report(message == WM_SETFOCUS ? Event::FocusCame : Event::FocusLeft);
            return result;
        }
        case WM_GETOBJECT:
            if (!AccessibleWindow::Answers(lParam)) break;
            if (const LRESULT object = self->AnswerWithLabel(wParam); object != 0) return object;
            break;
        case WM_NCDESTROY:
            // The parent's window went first.
            self->edit_ = nullptr;
            break;
        default:
            break;
    }
    return CallWindowProcW(standard, edit, message, wParam, lParam);
}

}  // namespace foldertree
