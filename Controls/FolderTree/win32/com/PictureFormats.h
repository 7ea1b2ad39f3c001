// PictureFormats: a picture as a DIB and as metafiles, for containers that keep one of a control.
#pragma once

#include <windows.h>

#include <functional>

namespace foldertree {

/// Draws a picture into an area of a device context that is made for it.
using DrawPicture = std::function<HRESULT(HDC dc, const RECT& area)>;

// Each returns S_OK and a handle that the caller owns, or a failure and none: OLE_E_BLANK for a picture without a size,
// E_OUTOFMEMORY for one that is too large.

/// A packed DIB of 24 bits a pixel in a movable block.
HRESULT MakeDib(SIZE pixels, const DrawPicture& draw, HGLOBAL* dib);
/// `size` is in hundredths of a millimetre.
HRESULT MakeEnhancedMetafile(SIZE pixels, SIZE size, const DrawPicture& draw, HENHMETAFILE* metafile);
/// A METAFILEPICT in a movable block; the metafile in it is the caller's too.
HRESULT MakeMetafilePict(SIZE pixels, SIZE size, const DrawPicture& draw, HGLOBAL* picture);

}  // namespace foldertree
