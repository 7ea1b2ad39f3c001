// TiledPicture: draws a picture of any size through a bitmap of a bounded one.
#pragma once

#include <windows.h>

#include <functional>

namespace foldertree {

struct TiledPicture {
    SIZE pixels;  ///< of the whole picture, both above 0
    /// Paints the picture with its upper left corner at `origin`; what lies outside the device context is clipped.
    std::function<void(HDC dc, POINT origin)> paint;
    /// Asked before each tile; false ends the drawing. May be empty.
    std::function<bool()> goesOn = {};
};

/// Draws the picture into `bounds`, in logical units of `dc`, tile by tile; tiles out of sight are left out.
/// E_OUTOFMEMORY where there is no memory for a tile, or where a metafile would have to keep too many of them; E_FAIL
/// where the device refuses one; E_ABORT where `goesOn` says so.
HRESULT DrawInTiles(HDC dc, const RECT& bounds, const TiledPicture& picture);

}  // namespace foldertree
