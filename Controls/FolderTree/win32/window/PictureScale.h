// PictureScale: how large a picture of the control is, and how large things are in it.
#pragma once

#include <windows.h>

namespace foldertree {

struct PictureScale {
    SIZE pixels{0, 0};  ///< 0 where there is nothing to draw
    int dpi = 96;       ///< pixels to an inch of the control

    /// For a picture in `bounds` (logical units of `dc`). It shows all of a control of `natural` size, in hundredths of
    /// a millimetre, as large as it fits; a control without one (0) is shown in the resolution of the device. `target`
    /// may be null; it is the device that a metafile is made for.
    static PictureScale For(HDC dc, HDC target, const RECT& bounds, SIZE natural);
};

}  // namespace foldertree
