// GridPictures: what the pictures of the grid's cells look like.
#pragma once

#include <windows.h>

namespace foldertree {

/// Draws picture number so and so. The grid knows pictures by their numbers only; 0 is none.
class GridPictures {
  public:
    virtual ~GridPictures() = default;
    /// Draws the picture into the square; pale for a disabled grid. A number without a picture draws nothing. It must
    /// not throw and must not call anything outside.
    virtual void Draw(HDC dc, int picture, const RECT& square, bool pale) const noexcept = 0;
};

}  // namespace foldertree
