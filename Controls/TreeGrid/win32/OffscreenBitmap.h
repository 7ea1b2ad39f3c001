// OffscreenBitmap: a bitmap to draw into, so that a picture comes to the screen at once.
#pragma once

#include <windows.h>

namespace foldertree {

/// Owns a bitmap like those of `target` and a device context to draw into it. Where there is no memory for one, drawing
/// goes to the target itself: it may flicker, but it is seen.
class OffscreenBitmap {
  public:
    OffscreenBitmap(HDC target, SIZE size) noexcept;
    ~OffscreenBitmap();
    OffscreenBitmap(const OffscreenBitmap&) = delete;
    OffscreenBitmap& operator=(const OffscreenBitmap&) = delete;

    /// Whether there is a bitmap.
    bool Made() const { return bitmap_ != nullptr; }
    HDC Dc() const { return Made() ? memory_ : target_; }
    /// Copies the bitmap to the target's origin.
    void Show() const noexcept;

  private:
    HDC target_;
    SIZE size_;
    HDC memory_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

}  // namespace foldertree
