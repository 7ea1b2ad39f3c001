// Icons: what the pictures of the tree look like.
#pragma once

#include <windows.h>

#include <array>

#include "common/Pictures.h"
#include "win32/GridPictures.h"

namespace foldertree {

/// The strips of small icons in this module's resources, one a size. Loaded when first drawn; owns its bitmaps.
class Icons final : public GridPictures {
  public:
    Icons() = default;
    ~Icons() override;
    Icons(const Icons&) = delete;
    Icons& operator=(const Icons&) = delete;

    /// Draws from the strip that fits the square's size best. `picture` is a Picture.
    void Draw(HDC dc, int picture, const RECT& square, bool pale) const noexcept override;

  private:
    struct Strip {
        int size;
        int resource;
        HBITMAP bitmap = nullptr;
    };
    const Strip* StripFor(int size) const noexcept;

    mutable std::array<Strip, 3> strips_{{{16, 116}, {24, 124}, {32, 132}}};
};

}  // namespace foldertree
