// NumberEditor: the small text box in which the user types a row's position number.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace foldertree {

/// Lives while it is open. It reports each wish to end; whoever opened it decides, and may delete it from inside the
/// report.
class NumberEditor {
  public:
    enum class Wish { Commit, Cancel, FocusLost };

    /// Opens over `place` of `parent`, with the focus and its text selected. `ended` is called for Enter, Esc and the
    /// loss of the focus.
    NumberEditor(HWND parent, const RECT& place, HFONT font, const std::string& text, std::function<void(Wish)> ended);
    ~NumberEditor();
    NumberEditor(const NumberEditor&) = delete;
    NumberEditor& operator=(const NumberEditor&) = delete;

    HWND Handle() const { return edit_; }
    std::string Text() const;
    /// Puts text in as if it had been typed, with the caret at its end.
    void Type(const std::string& text);
    /// Whether the user typed anything, be it the same number again.
    bool Modified() const;
    void SelectAll();

  private:
    static LRESULT CALLBACK Procedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static void Report(HWND edit, Wish wish);

    std::function<void(Wish)> ended_;
    HWND edit_ = nullptr;
    WNDPROC standard_ = nullptr;
};

}  // namespace foldertree
