// PaintScope: the frame around painting what a window lacks.
#pragma once

#include <windows.h>

namespace foldertree {

/// BeginPaint, and EndPaint whatever happens in between.
class PaintScope {
  public:
    explicit PaintScope(HWND window) : window_(window) { BeginPaint(window_, &paint_); }
    ~PaintScope() { EndPaint(window_, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;

    HDC Dc() const { return paint_.hdc; }

  private:
    HWND window_;
    PAINTSTRUCT paint_{};
};

}  // namespace foldertree
