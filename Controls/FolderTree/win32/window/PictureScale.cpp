// PictureScale: how large a picture of the control is, and how large things are in it.
#include "win32/window/PictureScale.h"

#include <algorithm>
#include <cstdlib>

namespace foldertree {

namespace {

constexpr int hundredthsPerInch = 2540;
constexpr int lowestDpi = 8;
constexpr int highestDpi = 9600;

/// A metafile of the old kind has no pixels of its own, and does not tell a resolution.
bool HasPixels(HDC dc) {
    return GetObjectType(dc) != OBJ_METADC;
}

int ResolutionOf(HDC dc, HDC target) {
    if (target != nullptr) return GetDeviceCaps(target, LOGPIXELSY);
    if (HasPixels(dc)) return GetDeviceCaps(dc, LOGPIXELSY);
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

SIZE PixelsOf(HDC dc, const RECT& bounds, SIZE natural, int dpi) {
    if (!HasPixels(dc) && natural.cx > 0 && natural.cy > 0)
        return {MulDiv(natural.cx, dpi, hundredthsPerInch), MulDiv(natural.cy, dpi, hundredthsPerInch)};
    POINT corners[2] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
    if (HasPixels(dc)) LPtoDP(dc, corners, 2);
    return {std::abs(corners[1].x - corners[0].x), std::abs(corners[1].y - corners[0].y)};
}

}  // namespace

PictureScale PictureScale::For(HDC dc, HDC target, const RECT& bounds, SIZE natural) {
    PictureScale scale;
    const int device = std::clamp(ResolutionOf(dc, target), lowestDpi, highestDpi);
    scale.pixels = PixelsOf(dc, bounds, natural, device);
    scale.dpi = device;
    if (natural.cx <= 0 || natural.cy <= 0) return scale;
    const int fitting = std::min(MulDiv(scale.pixels.cx, hundredthsPerInch, natural.cx),
                                 MulDiv(scale.pixels.cy, hundredthsPerInch, natural.cy));
    // A size that was rounded to hundredths or pixels must not make everything a pixel smaller.
    const int rounding = device / 50;
    if (std::abs(fitting - device) > rounding) scale.dpi = std::clamp(fitting, lowestDpi, highestDpi);
    return scale;
}

}  // namespace foldertree
