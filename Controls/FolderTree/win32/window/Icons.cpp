// Icons: what the pictures of the tree look like.
#include "win32/window/Icons.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "automation_win32/Module.h"

namespace foldertree {
namespace {

constexpr int firstIcon = 101;
constexpr int iconCount = pictureCount - 1;  // there is none for Picture::None

/// A strip of icons of that size to draw into, with its pixels.
struct Canvas {
    explicit Canvas(int size) : pixelCount(static_cast<size_t>(size) * static_cast<size_t>(size) * iconCount) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, iconCount * size, -size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
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

/// The icons on a ground of one colour.
void DrawIcons(const Canvas& canvas, int size, int ground) {
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, canvas.bitmap);
    const RECT all{0, 0, iconCount * size, size};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(ground)));
    for (int index = 0; index < iconCount; ++index) {
        const HANDLE icon = LoadImageW(automation::ThisModule(), MAKEINTRESOURCEW(firstIcon + index), IMAGE_ICON, size,
                                       size, LR_DEFAULTCOLOR);
        if (icon == nullptr) continue;
        DrawIconEx(dc, index * size, 0, static_cast<HICON>(icon), size, size, 0, nullptr, DI_NORMAL);
        DestroyIcon(static_cast<HICON>(icon));
    }
    SelectObject(dc, before);
    DeleteDC(dc);
    GdiFlush();
}

// AlphaBlend wants colours that are multiplied by their alpha, as they are on black. How much of the ground is seen
// tells the alpha.
HBITMAP MakeStrip(int size) {
    Canvas onBlack(size);
    const Canvas onWhite(size);
    if (onBlack.bitmap == nullptr || onWhite.bitmap == nullptr) return nullptr;
    DrawIcons(onBlack, size, BLACK_BRUSH);
    DrawIcons(onWhite, size, WHITE_BRUSH);
    for (size_t i = 0; i < onBlack.pixelCount; ++i)
        onBlack.pixels[i].rgbReserved =
            static_cast<BYTE>(255 - (onWhite.pixels[i].rgbGreen - onBlack.pixels[i].rgbGreen));
    return onBlack.Release();
}

}  // namespace

Icons::~Icons() {
    for (const Strip& strip : strips_)
        if (strip.bitmap != nullptr) DeleteObject(strip.bitmap);
}

const Icons::Strip* Icons::StripFor(int size) const noexcept {
    Strip* best = &strips_.back();
    for (Strip& strip : strips_)
        if (strip.size >= size && strip.size < best->size) best = &strip;
    if (best->bitmap == nullptr) best->bitmap = MakeStrip(best->size);
    return best->bitmap != nullptr ? best : nullptr;
}

void Icons::Draw(HDC dc, int picture, const RECT& square, bool pale) const noexcept {
    const int index = picture - 1;
    if (index < 0 || index >= iconCount) return;
    const Strip* strip = StripFor(square.right - square.left);
    if (strip == nullptr) return;
    const HDC source = CreateCompatibleDC(dc);
    const HGDIOBJ before = SelectObject(source, strip->bitmap);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, static_cast<BYTE>(pale ? 110 : 255), AC_SRC_ALPHA};
    GdiAlphaBlend(dc, square.left, square.top, square.right - square.left, square.bottom - square.top, source,
                  index * strip->size, 0, strip->size, strip->size, blend);
    SelectObject(source, before);
    DeleteDC(source);
}

}  // namespace foldertree
