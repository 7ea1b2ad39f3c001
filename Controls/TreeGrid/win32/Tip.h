// Tip: a small text beside what it is about, as the system shows tips.
#pragma once

#include <windows.h>

#include <string>

namespace foldertree {

/// Shown and hidden by whoever owns it; never takes focus or pointer. Its window is made when it is first shown, and
/// goes with it. Where Windows refuses one there is no tip.
class Tip {
  public:
    /// A plain tip, or a balloon that points at its place.
    enum class Kind { Plain, Balloon };

    explicit Tip(Kind kind) : kind_(kind) {}
    ~Tip();
    Tip(const Tip&) = delete;
    Tip& operator=(const Tip&) = delete;

    /// At a point of the screen; `width` is where a longer text begins a new line.
    void Show(HWND owner, const std::wstring& text, POINT point, int width);
    void Hide() noexcept;
    bool Shown() const { return shown_; }

  private:
    bool Make(HWND owner);

    const Kind kind_;
    HWND tip_ = nullptr;
    HWND owner_ = nullptr;
    bool shown_ = false;
};

}  // namespace foldertree
