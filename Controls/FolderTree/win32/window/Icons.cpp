// Icons: what the pictures of the tree look like.
#include "win32/window/Icons.h"

#include <cstddef>
#include <cstdint>

#include "automation_win32/Module.h"

namespace foldertree {
namespace {

// AlphaBlend wants colours that are already multiplied by their alpha.
void Premultiply(HBITMAP bitmap) {
    DIBSECTION section{};
    if (GetObjectW(bitmap, sizeof section, &section) != sizeof section || section.dsBm.bmBitsPixel != 32) return;
    auto* bytes = static_cast<uint8_t*>(section.dsBm.bmBits);
    const size_t pixels = static_cast<size_t>(section.dsBm.bmWidth) * static_cast<size_t>(section.dsBm.bmHeight);
    for (size_t i = 0; i < pixels; ++i, bytes += 4)
        for (int channel = 0; channel < 3; ++channel)
            bytes[channel] = static_cast<uint8_t>(bytes[channel] * bytes[3] / 255);
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
    if (best->bitmap == nullptr) {
        best->bitmap = static_cast<HBITMAP>(LoadImageW(automation::ThisModule(), MAKEINTRESOURCEW(best->resource),
                                                       IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
        if (best->bitmap == nullptr) return nullptr;
        Premultiply(best->bitmap);
    }
    return best;
}

void Icons::Draw(HDC dc, int picture, const RECT& square, bool pale) const noexcept {
    const int index = picture - 1;  // the strip has no image for Picture::None
    if (index < 0 || index >= pictureCount - 1) return;
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
