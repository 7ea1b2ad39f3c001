// Icons: what the pictures of the tree look like.
#pragma once

#include <windows.h>

#include <array>

#include "rows/Pictures.h"

namespace foldertree {

/// The strips of small icons in this module's resources, one a size. Loaded when first drawn; owns its bitmaps.
class Icons {
  public:
    Icons() = default;
    ~Icons();
    Icons(const Icons&) = delete;
    Icons& operator=(const Icons&) = delete;

    /// Draws the picture into the square, from the strip that fits its size best; pale for a disabled control.
    /// Picture::None draws nothing.
    void Draw(HDC dc, Picture picture, const RECT& square, bool pale) const;

  private:
    struct Strip {
        int size;
        int resource;
        HBITMAP bitmap = nullptr;
    };
    const Strip* StripFor(int size) const;

    mutable std::array<Strip, 3> strips_{{{16, 116}, {24, 124}, {32, 132}}};
};

}  // namespace foldertree
