// TiledPicture: draws a picture of any size through a bitmap of a bounded one.
#include "win32/window/TiledPicture.h"

#include <algorithm>
#include <cstdint>

#include "win32/OffscreenBitmap.h"

namespace foldertree {

namespace {

constexpr int widestTile = 4096;
constexpr int tileArea = 1 << 20;  // pixels: 4 MiB on a screen of 32 bits
/// What a metafile may take: it keeps every tile.
constexpr int64_t largestRecorded = int64_t{64} << 20;  // pixels

/// A device context of the screen.
class ScreenDc {
  public:
    ScreenDc() : dc_(GetDC(nullptr)) {}
    ~ScreenDc() { ReleaseDC(nullptr, dc_); }
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;
    HDC Get() const { return dc_; }

  private:
    HDC dc_;
};

bool IsMetafile(HDC dc) {
    const DWORD type = GetObjectType(dc);
    return type == OBJ_METADC || type == OBJ_ENHMETADC;
}

RECT InDevicePixels(HDC dc, const RECT& logical) {
    POINT corners[2] = {{logical.left, logical.top}, {logical.right, logical.bottom}};
    LPtoDP(dc, corners, 2);
    return {std::min(corners[0].x, corners[1].x), std::min(corners[0].y, corners[1].y),
            std::max(corners[0].x, corners[1].x), std::max(corners[0].y, corners[1].y)};
}

/// The part of the picture, in its own pixels, that can be seen on the device.
RECT VisiblePart(HDC dc, const RECT& bounds, SIZE pixels) {
    const RECT whole{0, 0, pixels.cx, pixels.cy};
    RECT clip{};
    if (IsMetafile(dc) || GetClipBox(dc, &clip) == ERROR) return whole;
    const RECT place = InDevicePixels(dc, bounds);
    RECT seen = InDevicePixels(dc, clip);
    OffsetRect(&seen, -place.left, -place.top);
    RECT visible{};
    IntersectRect(&visible, &seen, &whole);
    return visible;
}

/// Copies a tile, which is a part of the picture in its own pixels, to where it belongs. Neighbours share their edges
/// in logical units, however coarse these are.
bool Copy(HDC dc, const RECT& bounds, SIZE pixels, const RECT& part, HDC tile) {
    const auto across = [&](int x) { return bounds.left + MulDiv(x, bounds.right - bounds.left, pixels.cx); };
    const auto down = [&](int y) { return bounds.top + MulDiv(y, bounds.bottom - bounds.top, pixels.cy); };
    const RECT to{across(part.left), down(part.top), across(part.right), down(part.bottom)};
    if (to.left == to.right || to.top == to.bottom) return true;
    return StretchBlt(dc, to.left, to.top, to.right - to.left, to.bottom - to.top, tile, 0, 0, part.right - part.left,
                      part.bottom - part.top, SRCCOPY) != FALSE;
}

}  // namespace

HRESULT DrawInTiles(HDC dc, const RECT& bounds, const TiledPicture& picture) {
    const SIZE pixels = picture.pixels;
    if (IsMetafile(dc) && int64_t{pixels.cx} * pixels.cy > largestRecorded) return E_OUTOFMEMORY;
    const RECT visible = VisiblePart(dc, bounds, pixels);
    if (IsRectEmpty(&visible)) return S_OK;
    const int width = std::min<int>(visible.right - visible.left, widestTile);
    const int height = std::min<int>(visible.bottom - visible.top, tileArea / width);
    const ScreenDc screen;
    const OffscreenBitmap tile(screen.Get(), {width, height});
    if (!tile.Made()) return E_OUTOFMEMORY;
    for (int top = visible.top; top < visible.bottom; top += height) {
        for (int left = visible.left; left < visible.right; left += width) {
            if (picture.goesOn && !picture.goesOn()) return E_ABORT;
            const RECT part{left, top, std::min<int>(left + width, visible.right),
                            std::min<int>(top + height, visible.bottom)};
            picture.paint(tile.Dc(), {-left, -top});
            SetViewportOrgEx(tile.Dc(), 0, 0, nullptr);
            if (!Copy(dc, bounds, pixels, part, tile.Dc())) return E_FAIL;
        }
    }
    return S_OK;
}

}  // namespace foldertree
