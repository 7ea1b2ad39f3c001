// OffscreenBitmap: a bitmap to draw into, so that a picture comes to the screen at once.
#include "win32/OffscreenBitmap.h"

#include <algorithm>

namespace foldertree {

OffscreenBitmap::OffscreenBitmap(HDC target, SIZE size) noexcept : target_(target), size_(size) {
    memory_ = CreateCompatibleDC(target);
    if (memory_ == nullptr) return;
    bitmap_ = CreateCompatibleBitmap(target, std::max<int>(1, size.cx), std::max<int>(1, size.cy));
    if (bitmap_ != nullptr) before_ = SelectObject(memory_, bitmap_);
}

OffscreenBitmap::~OffscreenBitmap() {
    if (before_ != nullptr) SelectObject(memory_, before_);
    if (bitmap_ != nullptr) DeleteObject(bitmap_);
    if (memory_ != nullptr) DeleteDC(memory_);
}

void OffscreenBitmap::Show() const noexcept {
    if (Made()) BitBlt(target_, 0, 0, size_.cx, size_.cy, memory_, 0, 0, SRCCOPY);
}

}  // namespace foldertree
