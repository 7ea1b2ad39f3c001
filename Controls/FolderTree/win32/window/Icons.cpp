// Icons: what the pictures of the tree look like.
#include "win32/window/Icons.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "automation_win32/Module.h"

namespace foldertree {
namespace {

constexpr int iconBase = 100;  // the resource's number without the picture's

/// A square of that size to draw into, with its pixels.
struct Canvas {
    explicit Canvas(int size) : pixelCount(static_cast<size_t>(size) * static_cast<size_t>(size)) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, size, -size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels = static_cast<RGBQUAD*>(bits);
    }
    ~Canvas() {
        if (bitmap != nullptr) DeleteObject(bitmap);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HBITMAP Release() { return std::exchange(bitmap, nullptr); }

    size_t pixelCount;
    HBITMAP bitmap = nullptr;
    RGBQUAD* pixels = nullptr;
};

void DrawOn(const Canvas& canvas, HICON icon, int size, int ground) {
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, canvas.bitmap);
    const RECT all{0, 0, size, size};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(ground)));
    DrawIconEx(dc, 0, 0, icon, size, size, 0, nullptr, DI_NORMAL);
    SelectObject(dc, before);
    DeleteDC(dc);
    GdiFlush();
}

// AlphaBlend wants colours that are multiplied by their alpha, as they are on black. How much of the ground is seen
// tells the alpha.
HBITMAP WithAlpha(HICON icon, int size) {
    Canvas onBlack(size);
    const Canvas onWhite(size);
    if (onBlack.bitmap == nullptr || onWhite.bitmap == nullptr) return nullptr;
    DrawOn(onBlack, icon, size, BLACK_BRUSH);
    DrawOn(onWhite, icon, size, WHITE_BRUSH);
    for (size_t i = 0; i < onBlack.pixelCount; ++i)
        onBlack.pixels[i].rgbReserved =
            static_cast<BYTE>(255 - (onWhite.pixels[i].rgbGreen - onBlack.pixels[i].rgbGreen));
    return onBlack.Release();
}

HBITMAP LoadPicture(int picture, int size) {
    const HANDLE icon = LoadImageW(automation::ThisModule(), MAKEINTRESOURCEW(iconBase + picture), IMAGE_ICON, size,
                                   size, LR_DEFAULTCOLOR);
    if (icon == nullptr) return nullptr;
    const HBITMAP bitmap = WithAlpha(static_cast<HICON>(icon), size);
    DestroyIcon(static_cast<HICON>(icon));
    return bitmap;
}

size_t SizeFor(int width) {
    size_t best = 0;
    while (best + 1 < iconSizes.size() && iconSizes[best] < width) ++best;
    return best;
}

}  // namespace

Icons::~Icons() {
    for (const OfOneSize& bitmaps : bitmaps_)
        for (const HBITMAP bitmap : bitmaps)
            if (bitmap != nullptr) DeleteObject(bitmap);
}

void Icons::Draw(HDC dc, int picture, const RECT& square, bool pale) const noexcept {
    if (picture <= 0 || picture >= pictureCount) return;
    const size_t best = SizeFor(square.right - square.left);
    const int size = iconSizes[best];
    HBITMAP& bitmap = bitmaps_[best][static_cast<size_t>(picture)];
    if (bitmap == nullptr) bitmap = LoadPicture(picture, size);
    if (bitmap == nullptr) return;
    const HDC source = CreateCompatibleDC(dc);
    const HGDIOBJ before = SelectObject(source, bitmap);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, static_cast<BYTE>(pale ? 110 : 255), AC_SRC_ALPHA};
    GdiAlphaBlend(dc, square.left, square.top, square.right - square.left, square.bottom - square.top, source, 0, 0,
                  size, size, blend);
    SelectObject(source, before);
    DeleteDC(source);
}

}  // namespace foldertree
