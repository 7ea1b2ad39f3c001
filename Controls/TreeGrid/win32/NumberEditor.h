// NumberEditor: the small text box in which the user types a row's position number.
#pragma once

#include <windows.h>

#include <string>

#include "interaction/GridView.h"

namespace foldertree {

/// Lives while it is open. What the user does in it is sent to the parent window as a message of its own, with the
/// `Event` as wParam; the parent decides, and may delete the editor from inside the message.
class NumberEditor : public NumberBox {
  public:
    static constexpr UINT eventMessage = WM_USER + 1;
    enum class Event { Enter, Escape, FocusCame, FocusLeft, Typed };

    /// Opens over `place` of `parent`, with its text selected; the focus is the parent's to give.
    /// `label` is what assistive programs call it.
    NumberEditor(HWND parent, const RECT& place, HFONT font, const std::string& text, std::string label);
    ~NumberEditor() override;
    NumberEditor(const NumberEditor&) = delete;
    NumberEditor& operator=(const NumberEditor&) = delete;

    /// Null when Windows refused it, or when it went with its parent.
    HWND Handle() const { return edit_; }
    std::string Text() const override;
    void Type(const std::string& text) override;
    bool Modified() const override;
    void SelectAll() override;

  private:
    LRESULT AnswerWithLabel(WPARAM wParam) const noexcept;
    static LRESULT CALLBACK Procedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    const std::string label_;
    HWND edit_ = nullptr;
    WNDPROC standard_ = nullptr;
};

}  // namespace foldertree
